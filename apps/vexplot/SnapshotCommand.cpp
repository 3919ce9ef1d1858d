#include "SnapshotCommand.h"

#include <algorithm>
#include <cctype>
#include <string>
#include <utility>

#include "vexhost/Drawing.h"
#include "vexhost/FrameStack.h"
#include "vexhost/MacroError.h"
#include "vexhost/PngWriter.h"

namespace vexplot {
namespace app {

namespace {

const char* const Usage =
    "$!SNAPSHOT needs the picture's file name in double quotes: "
    "$!SNAPSHOT \"<file.png>\" [SUPERSAMPLE=<n>].";

[[noreturn]] void fail(const std::string& message) {
    throw vexhost::MacroError(message);
}

// The text as a message quotes it: at most 60 characters, so a broken line cannot flood the
// terminal.
std::string quoted(const std::string& text) {
    return "\"" + (text.size() > 60 ? text.substr(0, 60) + "..." : text) + "\"";
}

std::string upperCase(std::string text) {
    for (char& c : text)
        c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return text;
}

int supersampleOption(const std::string& option) {
    const std::string prefix = "SUPERSAMPLE=";
    const std::string upper = upperCase(option);
    const std::string value = option.substr(std::min(option.size(), prefix.size()));
    const bool digitsOnly = !value.empty() && value.size() <= 2 &&
                            value.find_first_not_of("0123456789") == std::string::npos;
    if (upper.compare(0, prefix.size(), prefix) != 0 || !digitsOnly || std::stoi(value) < 1 ||
        std::stoi(value) > SnapshotCommand::MaxSupersample)
        fail("$!SNAPSHOT: " + quoted(option) +
             " is not an option; use SUPERSAMPLE=<n> with n from " + "1 to " +
             std::to_string(SnapshotCommand::MaxSupersample) + ".");
    return std::stoi(value);
}

}  // namespace

void SnapshotCommand::install(vexhost::MacroFileRunner& runner, vexhost::Host& host) {
    runner.addCommand(
        "SNAPSHOT", [&host](const std::string& arguments) { run(host, arguments); },
        vexhost::MacroFileRunner::Recording::RecordLine);
}

void SnapshotCommand::run(vexhost::Host& host, const std::string& arguments) {
    // The name runs to the next double quote: file names with quotes in them are not worth the
    // escapes they would need.
    const std::size_t close = arguments.find('"', 1);
    if (arguments.empty() || arguments.front() != '"' || close == std::string::npos)
        fail(Usage);
    const std::string fileName = arguments.substr(1, close - 1);
    if (fileName.empty())
        fail("$!SNAPSHOT: the file name is empty.");
    std::string rest = arguments.substr(close + 1);
    const std::size_t first = rest.find_first_not_of(" \t");
    rest = first == std::string::npos ? "" : rest.substr(first);
    if (!rest.empty() && rest.front() == '"')
        fail(Usage);
    const int supersample = rest.empty() ? 1 : supersampleOption(rest);

    const vexhost::Frame* frame = host.frames().active();
    if (frame == nullptr)
        fail("$!SNAPSHOT: there is no frame to draw.");
    const std::pair<int, int> size = vexhost::Drawing::pixelSize(*frame);
    const vexhost::Image picture = host.drawing().picture(size.first, size.second, supersample);
    if (picture.empty())
        fail("$!SNAPSHOT: this host draws no pictures (it has no renderer); " + quoted(fileName) +
             " was not written.");
    vexhost::writePng(fileName, picture);
}

}  // namespace app
}  // namespace vexplot
