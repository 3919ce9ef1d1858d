#include "vexhost/MacroFileRunner.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <istream>
#include <stdexcept>

#include "script/BuiltInCommands.h"
#include "script/MacroText.h"
#include "vexhost/AddOnRegistry.h"
#include "vexhost/DataSet.h"
#include "vexhost/Drawing.h"
#include "vexhost/Exporter.h"
#include "vexhost/FrameStack.h"
#include "vexhost/GuiModel.h"
#include "vexhost/Host.h"
#include "vexhost/HostErrors.h"
#include "vexhost/IdleQueue.h"
#include "vexhost/LockState.h"
#include "vexhost/MacroError.h"
#include "vexhost/MacroRecorder.h"
#include "vexhost/ProgressStatus.h"
#include "vexhost/StateNotifier.h"
#include "vexhost/StyleStore.h"
#include "vexhost/Zone.h"

namespace vexhost {

using script::isBlank;
using script::quoteForMessage;
using script::trimBlanks;
using script::upperCase;

namespace {

// The runner's own command: the rest of its line goes to an add-on as it stands.
const char* const AddOnWord = "ADDON";

[[noreturn]] void fail(const std::string& message) {
    throw MacroError(message);
}

}  // namespace

std::string MacroFileRunner::Failure::text() const {
    if (lineNumber == 0)
        return source + ": " + message;
    return source + ":" + std::to_string(lineNumber) + ": " + message;
}

MacroFileRunner::MacroFileRunner(Host& host)
    : MacroFileRunner(host.addOns(), host.idleQueue(), host.errors(), host.lock(), host.guiModel(),
                      host.drawing(), host.progress(), host.macro()) {
    BuiltInCommands::install(*this, host.exporter(), host.style(), host.frames(), host.dataSet(),
                             host.drawing(), host.stateChanges());
}

MacroFileRunner::MacroFileRunner(AddOnRegistry& addOns, IdleQueue& idleQueue, HostErrors& errors,
                                 LockState& lock, GuiModel& gui, Drawing& drawing,
                                 ProgressStatus& progress, MacroRecorder& recorder)
    : addOns_(addOns),
      idleQueue_(idleQueue),
      errors_(errors),
      lock_(lock),
      gui_(gui),
      drawing_(drawing),
      progress_(progress),
      recorder_(recorder) {}

void MacroFileRunner::addCommand(const std::string& word, CommandHandler handler,
                                 Recording recording) {
    const std::string upper = upperCase(word);
    bool taken = upper.empty() || upper == AddOnWord || added_.count(upper) != 0 || !handler;
    for (char c : upper)
        taken = taken || isBlank(c);
    if (taken)
        throw std::logic_error("MacroFileRunner::addCommand(): \"" + word +
                               "\" is empty, has a blank, has no handler or is already a command");
    added_.emplace(upper, AddedCommand{std::move(handler), recording});
}

bool MacroFileRunner::runLine(const std::string& line) {
    std::string_view text = line;
    if (!text.empty() && text.back() == '\r')
        text.remove_suffix(1);
    // The add-on gets its command as a C string: a NUL would silently cut it short.
    if (text.find('\0') != std::string_view::npos)
        fail("The line holds a NUL character; macro files are text.");
    const std::string_view trimmed = trimBlanks(text);
    if (trimmed.empty() || trimmed.front() == '#')
        return false;
    ++commands_;
    // Trailing blanks stay: an add-on gets the rest of its line exactly as it stands.
    runCommand(std::string(text.substr(static_cast<std::size_t>(trimmed.data() - text.data()))));
    return true;
}

void MacroFileRunner::runCommand(const std::string& line) {
    std::vector<std::string> problems;
    bool record = false;
    try {
        if (line.compare(0, 2, "$!") != 0)
            fail(
                "Expected a command starting with \"$!\" or a comment starting with \"#\"; found " +
                quoteForMessage(line) + ".");
        std::size_t end = 2;
        while (end < line.size() && !isBlank(line[end]))
            ++end;
        const std::string word = line.substr(2, end - 2);
        if (word.empty())
            fail("The command word is missing after \"$!\".");
        record = dispatch(word, line.substr(end));
    } catch (const std::exception& error) {
        problems.emplace_back(error.what());
    }

    // The application's main loop goes idle after every line, whether it worked or not.
    idleQueue_.runUntilEmpty();

    // What the host saw go wrong while the line ran fails the line: nothing passes silently.
    for (const std::string& error : errors_.take())
        problems.push_back("Host error: " + error);
    if (lock_.isHeld() && !gui_.isModalDialogUp())
        problems.push_back("The host lock is still held after the line (depth " +
                           std::to_string(lock_.depth()) + ").");
    if (drawing_.isSuspended())
        problems.push_back("Drawing is still suspended after the line.");
    if (progress_.isOpen())
        problems.push_back("The progress status " + quoteForMessage(progress_.text()) +
                           " is still open after the line.");

    if (problems.empty() && record && recorder_.isRecording())
        recorder_.recordRaw(std::string(trimBlanks(line)).c_str());
    if (lineObserver_)
        lineObserver_();
    if (!problems.empty()) {
        std::string message = problems.front();
        for (std::size_t i = 1; i < problems.size(); ++i)
            message += "\n" + problems[i];
        throw MacroError(message);
    }
}

bool MacroFileRunner::dispatch(const std::string& word, const std::string& arguments) {
    const std::string upper = upperCase(word);
    // Not recorded: the add-on records its own commands (see the header).
    if (upper == AddOnWord) {
        runAddOn(arguments);
        return false;
    }
    const auto added = added_.find(upper);
    if (added == added_.end())
        fail("Unknown macro command " + quoteForMessage("$!" + word) + ".");
    added->second.handler(std::string(trimBlanks(arguments)));
    return added->second.recording == Recording::RecordLine;
}

void MacroFileRunner::runAddOn(const std::string& arguments) {
    std::size_t open = 0;
    while (open < arguments.size() && isBlank(arguments[open]))
        ++open;
    if (open == arguments.size() || arguments[open] != '"')
        fail(
            "$!ADDON needs the add-on name in double quotes, then its command: "
            "$!ADDON \"<add-on name>\" <command>.");
    const std::size_t close = arguments.find('"', open + 1);
    if (close == std::string::npos)
        fail("$!ADDON: the add-on name " + quoteForMessage(arguments.substr(open)) +
             " has no closing double quote.");
    const std::string name = arguments.substr(open + 1, close - open - 1);
    if (name.empty())
        fail("$!ADDON: the add-on name is empty.");
    // One blank separates the name from the command, as the recorder writes it; the rest goes
    // to the add-on exactly as it stands.
    std::string command;
    if (close + 1 < arguments.size()) {
        if (!isBlank(arguments[close + 1]))
            fail("$!ADDON: a blank must follow the add-on name " + quoteForMessage(name) + ".");
        command = arguments.substr(close + 2);
    }
    const AddOnRegistry::CommandResult result = addOns_.runMacroCommand(name, command);
    if (!result.ok)
        fail(result.error.empty()
                 ? "The add-on " + quoteForMessage(name) + " reported a failure without a message."
                 : result.error);
}

void MacroFileRunner::report(const std::string& source, std::size_t lineNumber,
                             const std::string& message) {
    ++failures_;
    if (failureSink_)
        failureSink_(Failure{source, lineNumber, message});
}

bool MacroFileRunner::runStream(std::istream& in, const std::string& source) {
    bool allRan = true;
    std::size_t lineNumber = 0;
    std::string line;
    while (std::getline(in, line)) {
        ++lineNumber;
        try {
            runLine(line);
        } catch (const std::exception& error) {
            report(source, lineNumber, error.what());
            allRan = false;
            if (!keepGoing_)
                return false;
        }
    }
    if (in.bad()) {
        report(source, lineNumber + 1, "Reading the file failed.");
        return false;
    }
    return allRan;
}

bool MacroFileRunner::runFile(const std::string& path) {
    std::error_code error;
    if (std::filesystem::is_directory(path, error)) {
        report(path, 0, "Cannot read the macro file: it is a directory.");
        return false;
    }
    std::ifstream in(path, std::ios::binary);
    if (!in) {
        report(path, 0, std::string("Cannot open the macro file: ") + std::strerror(errno) + ".");
        return false;
    }
    return runStream(in, path);
}

}  // namespace vexhost
