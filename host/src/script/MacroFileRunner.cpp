#include "vexhost/MacroFileRunner.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <istream>
#include <limits>
#include <stdexcept>

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

using script::equalsIgnoringCase;
using script::isBlank;
using script::joinWords;
using script::parseBoolean;
using script::parseNumber;
using script::parseQuoted;
using script::parseWholeNumber;
using script::quoteForMessage;
using script::splitWords;
using script::trimBlanks;
using script::upperCase;

namespace {

// The export setup attributes and how their values are written: the keywords the export options
// dialog records for enumerations, numbers, true/false, and the file name in double quotes.
enum class SetupValue { Keyword, Whole, Number, Boolean, FileName };

struct Keyword {
    const char* word;
    int value;
};

struct SetupAttribute {
    const char* name;
    SetupValue kind;
    std::vector<Keyword> keywords;
};

const std::vector<SetupAttribute>& setupAttributes() {
    static const std::vector<SetupAttribute> attributes = {
        {"ExportFormat",
         SetupValue::Keyword,
         {{"AVI", VexExportFormat_AVI},
          {"FLV", VexExportFormat_FLV},
          {"FLASH", VexExportFormat_Flash},
          {"MPEG4", VexExportFormat_MPEG4},
          {"RASTERMETAFILE", VexExportFormat_RasterMetafile},
          {"WMV", VexExportFormat_WMV}}},
        {"ExportRegion",
         SetupValue::Keyword,
         {{"CURRENTFRAME", VexExportRegion_CurrentFrame},
          {"ALLFRAMES", VexExportRegion_AllFrames},
          {"WORKAREA", VexExportRegion_WorkArea}}},
        {"ImageWidth", SetupValue::Whole, {}},
        {"AnimationSpeed", SetupValue::Number, {}},
        {"UseSuperSampleAntiAliasing", SetupValue::Boolean, {}},
        {"SuperSampleFactor", SetupValue::Whole, {}},
        {"FlashImageType",
         SetupValue::Keyword,
         {{"LOSSLESS", VexFlashImageType_Lossless},
          {"JPEG", VexFlashImageType_JPEG},
          {"256COLOR", VexFlashImageType_Color256}}},
        {"FlashCompressionType",
         SetupValue::Keyword,
         {{"BESTSPEED", VexFlashCompressionType_BestSpeed},
          {"SMALLESTSIZE", VexFlashCompressionType_SmallestSize}}},
        {"ExportFName", SetupValue::FileName, {}},
    };
    return attributes;
}

// "A, B or C"
template <typename Items, typename Name>
std::string listOf(const Items& items, Name name) {
    std::string list;
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (i > 0)
            list += i + 1 == items.size() ? " or " : ", ";
        list += name(items[i]);
    }
    return list;
}

const char* const PlotTypeNames =
    "0 sketch, 1 3D Cartesian, 2 2D Cartesian, 3 XY line, 4 polar line";

[[noreturn]] void fail(const std::string& message) {
    throw MacroError(message);
}

std::string wordCount(std::size_t count) {
    return count == 1 ? "1 word" : std::to_string(count) + " words";
}

double numberArgument(const char* command, const std::string& word) {
    const std::optional<double> value = parseNumber(word);
    if (!value)
        fail(std::string(command) + ": " + quoteForMessage(word) + " is not a number.");
    return *value;
}

VexPlotType_e plotTypeArgument(const char* command, const std::string& arguments) {
    const std::vector<std::string> words = splitWords(arguments);
    const std::optional<int64_t> value =
        words.size() == 1 ? parseWholeNumber(words[0], VexPlotType_Sketch, VexPlotType_PolarLine)
                          : std::nullopt;
    if (!value)
        fail(std::string(command) + " needs one plot type number (" + PlotTypeNames + "); found " +
             (words.size() == 1 ? quoteForMessage(words[0]) : wordCount(words.size())) + ".");
    return static_cast<VexPlotType_e>(*value);
}

void expectNoArguments(const char* command, const std::string& arguments) {
    if (!trimBlanks(arguments).empty())
        fail(std::string(command) + " takes no arguments; found " +
             quoteForMessage(trimBlanks(arguments)) + ".");
}

const char* refusal(VexSetValueReturnCode_e code) {
    switch (code) {
        case VexSetValue_InvalidValue:
            return "the value is out of range or of the wrong type";
        case VexSetValue_ContextError:
            return "the host cannot take it now";
        default:
            return "the host does not know it";
    }
}

}  // namespace

std::string MacroFileRunner::Failure::text() const {
    if (lineNumber == 0)
        return source + ": " + message;
    return source + ":" + std::to_string(lineNumber) + ": " + message;
}

MacroFileRunner::MacroFileRunner(Host& host) : host_(host) {}

void MacroFileRunner::addCommand(const std::string& word, CommandHandler handler,
                                 Recording recording) {
    const std::string upper = upperCase(word);
    bool taken = upper.empty() || added_.count(upper) != 0 || !handler;
    for (const BuiltInCommand& builtIn : builtInCommands())
        taken = taken || upper == builtIn.word;
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
    host_.idleQueue().runUntilEmpty();

    // What the host saw go wrong while the line ran fails the line: nothing passes silently.
    for (const std::string& error : host_.errors().take())
        problems.push_back("Host error: " + error);
    if (host_.lock().isHeld() && !host_.guiModel().isModalDialogUp())
        problems.push_back("The host lock is still held after the line (depth " +
                           std::to_string(host_.lock().depth()) + ").");
    if (host_.drawing().isSuspended())
        problems.push_back("Drawing is still suspended after the line.");
    if (host_.progress().isOpen())
        problems.push_back("The progress status " + quoteForMessage(host_.progress().text()) +
                           " is still open after the line.");

    if (problems.empty() && record && host_.macro().isRecording())
        host_.macro().recordRaw(std::string(trimBlanks(line)).c_str());
    if (lineObserver_)
        lineObserver_();
    if (!problems.empty()) {
        std::string message = problems.front();
        for (std::size_t i = 1; i < problems.size(); ++i)
            message += "\n" + problems[i];
        throw MacroError(message);
    }
}

const std::vector<MacroFileRunner::BuiltInCommand>& MacroFileRunner::builtInCommands() {
    // $!ADDON lines are left to the add-on to record (see the header).
    static const std::vector<BuiltInCommand> commands = {
        {"ADDON", &MacroFileRunner::runAddOn, Recording::NotRecorded},
        {"EXPORTSETUP", &MacroFileRunner::runExportSetup, Recording::RecordLine},
        {"SET", &MacroFileRunner::runSet, Recording::RecordLine},
        {"VIEW", &MacroFileRunner::runView, Recording::RecordLine},
        {"SOLUTIONTIME", &MacroFileRunner::runSolutionTime, Recording::RecordLine},
        {"PLOTTYPE", &MacroFileRunner::runPlotType, Recording::RecordLine},
        {"NEWFRAME", &MacroFileRunner::runNewFrame, Recording::RecordLine},
        {"DELETEFRAMES", &MacroFileRunner::runDeleteFrames, Recording::RecordLine},
        {"ZONE", &MacroFileRunner::runZone, Recording::RecordLine},
        {"REDRAW", &MacroFileRunner::runRedraw, Recording::RecordLine},
    };
    return commands;
}

bool MacroFileRunner::dispatch(const std::string& word, const std::string& arguments) {
    const std::string upper = upperCase(word);
    for (const BuiltInCommand& command : builtInCommands()) {
        if (upper == command.word) {
            (this->*command.run)(arguments);
            return command.recording == Recording::RecordLine;
        }
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
    const AddOnRegistry::CommandResult result = host_.addOns().runMacroCommand(name, command);
    if (!result.ok)
        fail(result.error.empty()
                 ? "The add-on " + quoteForMessage(name) + " reported a failure without a message."
                 : result.error);
}

void MacroFileRunner::runExportSetup(const std::string& arguments) {
    static const char* const Usage =
        "$!EXPORTSETUP needs an attribute and a value: $!EXPORTSETUP <Attribute> = <value>.";
    const std::size_t equals = arguments.find('=');
    if (equals == std::string::npos)
        fail(Usage);
    const std::vector<std::string> names = splitWords(arguments.substr(0, equals));
    if (names.size() != 1)
        fail(Usage);
    const SetupAttribute* attribute = nullptr;
    for (const SetupAttribute& candidate : setupAttributes()) {
        if (equalsIgnoringCase(candidate.name, names[0]))
            attribute = &candidate;
    }
    if (attribute == nullptr)
        fail("$!EXPORTSETUP: unknown attribute " + quoteForMessage(names[0]) + "; use " +
             listOf(setupAttributes(), [](const SetupAttribute& a) { return a.name; }) + ".");
    const std::string prefix = std::string("$!EXPORTSETUP ") + attribute->name + ": ";
    const std::string value(trimBlanks(std::string_view(arguments).substr(equals + 1)));
    if (value.empty())
        fail(prefix + "the value is missing.");

    double doubleValue = 0;
    VexArbParam_t intValue = 0;
    std::string fileName;
    switch (attribute->kind) {
        case SetupValue::Keyword: {
            const Keyword* found = nullptr;
            for (const Keyword& keyword : attribute->keywords) {
                if (equalsIgnoringCase(keyword.word, value))
                    found = &keyword;
            }
            if (found == nullptr)
                fail(prefix + "unknown value " + quoteForMessage(value) + "; use " +
                     listOf(attribute->keywords, [](const Keyword& k) { return k.word; }) + ".");
            intValue = found->value;
            break;
        }
        case SetupValue::Whole: {
            // Any whole number is handed over: the range is the host's to check, as for an
            // add-on's call.
            const std::optional<int64_t> whole = parseWholeNumber(
                value, std::numeric_limits<int64_t>::min(), std::numeric_limits<int64_t>::max());
            if (!whole)
                fail(prefix + quoteForMessage(value) + " is not a whole number.");
            intValue = static_cast<VexArbParam_t>(*whole);
            break;
        }
        case SetupValue::Number: {
            const std::optional<double> number = parseNumber(value);
            if (!number)
                fail(prefix + quoteForMessage(value) + " is not a number.");
            doubleValue = *number;
            break;
        }
        case SetupValue::Boolean: {
            const std::optional<bool> flag = parseBoolean(value);
            if (!flag)
                fail(prefix + "use true or false; found " + quoteForMessage(value) + ".");
            intValue = *flag ? 1 : 0;
            break;
        }
        case SetupValue::FileName: {
            const std::optional<std::string> quoted = parseQuoted(value);
            if (!quoted)
                fail(prefix + "the file name must stand in double quotes; found " +
                     quoteForMessage(value) + ".");
            fileName = *quoted;
            intValue = reinterpret_cast<VexArbParam_t>(fileName.c_str());
            break;
        }
    }
    // The same validation as VexUtilExportSetup: the player is the host, so it needs no lock.
    const VexSetValueReturnCode_e code =
        host_.exporter().setup(attribute->name, nullptr, doubleValue, intValue);
    if (code != VexSetValue_Ok)
        fail(prefix + "the host refused " + quoteForMessage(value) + ": " + refusal(code) + ".");
}

void MacroFileRunner::runSet(const std::string& arguments) {
    static const char* const Usage =
        "$!SET needs a style path and a value: $!SET <path word> ... = <value>.";
    const std::size_t equals = arguments.find('=');
    if (equals == std::string::npos)
        fail(Usage);
    const StyleStore::Path path = splitWords(arguments.substr(0, equals));
    if (path.empty())
        fail(Usage);
    const std::string prefix = "$!SET " + joinWords(path) + ": ";
    const std::optional<StyleStore::ValueType> type = host_.style().typeOf(path);
    if (!type)
        fail("$!SET: unknown style path " + quoteForMessage(joinWords(path)) +
             " (docs/host.md lists the style paths).");
    const std::string value(trimBlanks(std::string_view(arguments).substr(equals + 1)));
    if (value.empty())
        fail(prefix + "the value is missing.");
    // The 3D view values belong to the active frame.
    if (equalsIgnoringCase(path.front(), "ThreeDView") && host_.frames().active() == nullptr)
        fail(prefix + "there is no frame.");

    StyleStore& style = host_.style();
    VexSetValueReturnCode_e code = VexSetValue_Ok;
    switch (*type) {
        case StyleStore::ValueType::Double: {
            const std::optional<double> number = parseNumber(value);
            if (!number)
                fail(prefix + quoteForMessage(value) + " is not a number.");
            code = style.setDouble(path, *number);
            break;
        }
        case StyleStore::ValueType::Int: {
            const std::optional<int64_t> whole = parseWholeNumber(
                value, std::numeric_limits<int64_t>::min(), std::numeric_limits<int64_t>::max());
            if (!whole)
                fail(prefix + quoteForMessage(value) + " is not a whole number.");
            code = style.setInt(path, *whole);
            break;
        }
        case StyleStore::ValueType::Bool: {
            const std::optional<bool> flag = parseBoolean(value);
            if (!flag)
                fail(prefix + "use true or false; found " + quoteForMessage(value) + ".");
            code = style.setBool(path, *flag);
            break;
        }
        case StyleStore::ValueType::String: {
            const std::optional<std::string> text = parseQuoted(value);
            if (!text)
                fail(prefix + "the text must stand in double quotes; found " +
                     quoteForMessage(value) + ".");
            code = style.setString(path, *text);
            break;
        }
    }
    if (code != VexSetValue_Ok)
        fail(prefix + "the host refused " + quoteForMessage(value) + ": " + refusal(code) + ".");
    // As for a style value set by an add-on, listeners hear of it.
    host_.stateChanges().send(VexStateChange_Style);
}

void MacroFileRunner::runView(const std::string& arguments) {
    const std::vector<std::string> words = splitWords(arguments);
    if (words.size() != 7)
        fail("$!VIEW needs 7 numbers (x y z psi theta alpha width); found " +
             wordCount(words.size()) + ".");
    double values[7];
    for (std::size_t i = 0; i < 7; ++i)
        values[i] = numberArgument("$!VIEW", words[i]);
    if (!(values[6] > 0))
        fail("$!VIEW: the view width must be greater than 0; found " + quoteForMessage(words[6]) +
             ".");
    Frame* frame = host_.frames().active();
    if (frame == nullptr)
        fail("$!VIEW: there is no frame.");
    View3D& view = frame->view();
    view.setPosition({values[0], values[1], values[2]});
    view.setPsi(values[3]);
    view.setTheta(values[4]);
    view.setAlpha(values[5]);
    view.setWidth(values[6]);
    host_.stateChanges().send(VexStateChange_View);
}

void MacroFileRunner::runSolutionTime(const std::string& arguments) {
    const std::vector<std::string> words = splitWords(arguments);
    if (words.size() != 1)
        fail("$!SOLUTIONTIME needs one number, the solution time; found " +
             wordCount(words.size()) + ".");
    host_.dataSet().setSolutionTime(numberArgument("$!SOLUTIONTIME", words[0]));
    host_.stateChanges().send(VexStateChange_SolutionTime);
}

void MacroFileRunner::runPlotType(const std::string& arguments) {
    const VexPlotType_e plotType = plotTypeArgument("$!PLOTTYPE", arguments);
    Frame* frame = host_.frames().active();
    if (frame == nullptr)
        fail("$!PLOTTYPE: there is no frame.");
    host_.frames().setPlotType(frame->uniqueId(), plotType);
}

void MacroFileRunner::runNewFrame(const std::string& arguments) {
    const VexPlotType_e plotType = plotTypeArgument("$!NEWFRAME", arguments);
    // A new frame takes the place and size of the active one, so frames made by a macro match the
    // frame the program was started with (vexplot --size).
    const Frame* active = host_.frames().active();
    const double x = active != nullptr ? active->x() : Frame::DefaultX;
    const double y = active != nullptr ? active->y() : Frame::DefaultY;
    const double width = active != nullptr ? active->width() : Frame::DefaultWidth;
    const double height = active != nullptr ? active->height() : Frame::DefaultHeight;
    host_.frames().create(plotType).setPosAndSize(x, y, width, height);
}

void MacroFileRunner::runDeleteFrames(const std::string& arguments) {
    expectNoArguments("$!DELETEFRAMES", arguments);
    host_.frames().removeAll();
}

void MacroFileRunner::runZone(const std::string& arguments) {
    const std::vector<std::string> words = splitWords(arguments);
    if (words.size() != 2)
        fail("$!ZONE needs the solution time and the strand id; found " + wordCount(words.size()) +
             ".");
    const double time = numberArgument("$!ZONE", words[0]);
    const std::optional<int64_t> strand =
        parseWholeNumber(words[1], 0, std::numeric_limits<int32_t>::max());
    if (!strand)
        fail("$!ZONE: the strand id must be a whole number from 0 up; found " +
             quoteForMessage(words[1]) + ".");
    Zone zone;
    zone.name = "Zone " + std::to_string(host_.dataSet().zoneCount() + 1);
    zone.solutionTime = time;
    zone.strandId = static_cast<int32_t>(*strand);
    zone.enabled = true;
    host_.dataSet().addZone(std::move(zone));
}

void MacroFileRunner::runRedraw(const std::string& arguments) {
    expectNoArguments("$!REDRAW", arguments);
    if (host_.frames().active() == nullptr)
        fail("$!REDRAW: there is no frame to draw.");
    if (!host_.drawing().redraw())
        fail("$!REDRAW: drawing is suspended.");
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
