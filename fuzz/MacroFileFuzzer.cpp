// fuzz_macro_file: any text as a macro file of vexplot, run line by line by the host's macro
// player with vexplot's commands ($!UI, $!SNAPSHOT added to the player's own), going on after
// failing lines, then the end of a vexplot run: the idle queue, the host's shutdown.
//
// The host is FuzzHost's. Inputs that name files outside the scratch directory (a '/') are not run,
// nor inputs with a number of four digits or more: that keeps animations small (a frame count
// typed into the dialog) and pictures small, so every input runs in a moment.
//
// Rules: the player reports every failing line with a message; the only host errors are those a
// macro file itself can cause (a question nobody answered, a modal dialog left up at the end);
// after the run no modal dialog holds the lock except one left up, and the host is left as
// FuzzHost::checkHost requires.
#include <cctype>
#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>
#include <vector>

#include "FuzzHost.h"
#include "FuzzSupport.h"
#include "SnapshotCommand.h"
#include "vexhost/GuiModel.h"
#include "vexhost/GuiScript.h"
#include "vexhost/GuiUser.h"
#include "vexhost/Host.h"
#include "vexhost/HostErrors.h"
#include "vexhost/IdleQueue.h"
#include "vexhost/MacroFileRunner.h"

namespace {

bool hasLongNumber(const std::string& text) {
    int digits = 0;
    for (char c : text) {
        digits = std::isdigit(static_cast<unsigned char>(c)) ? digits + 1 : 0;
        if (digits >= 4)
            return true;
    }
    return false;
}

// The host errors a macro file can cause on its own: a question it left unanswered, a modal
// dialog it left up at the end.
bool causedByTheMacro(const std::string& error) {
    return error.rfind("VexUtilDialogMessageBox: no answer was queued for the question ", 0) == 0 ||
           error.rfind("Host::shutDown: the modal dialog ", 0) == 0;
}

// The host errors among a failed line's problems: the player puts each on a line of its own,
// after "Host error: " (the user's text in its messages is quoted with line feeds escaped).
std::vector<std::string> hostErrorsOf(const std::string& message) {
    static const std::string Prefix = "Host error: ";
    std::vector<std::string> errors;
    std::istringstream lines(message);
    std::string line;
    while (std::getline(lines, line)) {
        if (line.rfind(Prefix, 0) == 0)
            errors.push_back(line.substr(Prefix.size()));
    }
    return errors;
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
    vexfuzz::enterScratchDirectory(argc, argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
    static vexfuzz::FuzzHost fuzzHost;
    const std::string text(reinterpret_cast<const char*>(data), size);
    if (text.find('/') != std::string::npos || hasLongNumber(text))
        return 0;

    fuzzHost.reset();
    vexhost::Host& host = vexhost::Host::instance();
    std::ostringstream dumps;
    vexhost::GuiUser user(host);
    vexhost::MacroFileRunner runner(host);
    vexhost::GuiScript::install(runner, user, host.guiModel(), dumps);
    vexplot::app::SnapshotCommand::install(runner, host);
    runner.setKeepGoing(true);
    runner.setFailureSink([](const vexhost::MacroFileRunner::Failure& failure) {
        vexfuzz::expect(!failure.message.empty(), "a line failed without a message");
        for (const std::string& error : hostErrorsOf(failure.message))
            vexfuzz::expect(causedByTheMacro(error), "a line made the host error " + error);
    });
    std::istringstream in(text);
    runner.runStream(in, "fuzz.mcr");

    host.idleQueue().runUntilEmpty();
    host.shutDown();
    host.idleQueue().runUntilEmpty();
    for (const std::string& error : host.errors().take())
        vexfuzz::expect(causedByTheMacro(error), "the end of the run made the host error " + error);
    fuzzHost.checkHost();
    return 0;
}
