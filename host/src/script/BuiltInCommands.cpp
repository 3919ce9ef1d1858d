#include "script/BuiltInCommands.h"

#include <limits>
#include <string>
#include <vector>

#include "core/ExportSetupAttribute.h"
#include "core/Text.h"
#include "script/MacroText.h"
#include "vexhost/DataSet.h"
#include "vexhost/Drawing.h"
#include "vexhost/Exporter.h"
#include "vexhost/FrameStack.h"
#include "vexhost/MacroError.h"
#include "vexhost/MacroFileRunner.h"
#include "vexhost/StateNotifier.h"
#include "vexhost/StyleStore.h"

namespace vexhost {

using script::joinWords;
using script::parseBoolean;
using script::parseNumber;
using script::parseQuoted;
using script::parseWholeNumber;
using script::quoteForMessage;
using script::splitWords;
using script::trimBlanks;
using text::equalsIgnoringCase;

namespace {

const char* const PlotTypeNames =
    "0 sketch, 1 3D Cartesian, 2 2D Cartesian, 3 XY line, 4 polar line";

[[noreturn]] void fail(const std::string& message) {
    throw MacroError(message);
}

std::string wordCount(std::size_t count) {
    return count == 1 ? "1 word" : std::to_string(count) + " words";
}

// The words of the arguments, when there are `count` of them; else "<needs>; found <n> words."
std::vector<std::string> wordsOf(const std::string& arguments, std::size_t count,
                                 const std::string& needs) {
    std::vector<std::string> words = splitWords(arguments);
    if (words.size() != count)
        fail(needs + "; found " + wordCount(words.size()) + ".");
    return words;
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
    if (!arguments.empty())
        fail(std::string(command) + " takes no arguments; found " + quoteForMessage(arguments) +
             ".");
}

// Why the host refused a value, for "the host refused <value>: <why>."
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

// The text before and after the '=' of "<name> = <value>", both without the blanks around them;
// the usage message when there is no '='.
std::pair<std::string, std::string> assignment(const std::string& arguments, const char* usage) {
    const std::size_t equals = arguments.find('=');
    if (equals == std::string::npos)
        fail(usage);
    return {arguments.substr(0, equals),
            std::string(trimBlanks(std::string_view(arguments).substr(equals + 1)))};
}

// A value as a macro line writes one of that type: a number, a whole number, true or false, or a
// text in double quotes (what the text is named in messages: "text", "file name").
struct TypedValue {
    double number = 0;
    int64_t whole = 0;
    bool flag = false;
    std::string text;
};

TypedValue typedValue(const std::string& prefix, StyleStore::ValueType type,
                      const std::string& value, const char* textName) {
    TypedValue typed;
    switch (type) {
        case StyleStore::ValueType::Double: {
            const std::optional<double> number = parseNumber(value);
            if (!number)
                fail(prefix + quoteForMessage(value) + " is not a number.");
            typed.number = *number;
            break;
        }
        case StyleStore::ValueType::Int: {
            // Any whole number: the range is the host's to check, as for an add-on's call.
            const std::optional<int64_t> whole = parseWholeNumber(
                value, std::numeric_limits<int64_t>::min(), std::numeric_limits<int64_t>::max());
            if (!whole)
                fail(prefix + quoteForMessage(value) + " is not a whole number.");
            typed.whole = *whole;
            break;
        }
        case StyleStore::ValueType::Bool: {
            const std::optional<bool> flag = parseBoolean(value);
            if (!flag)
                fail(prefix + "use true or false; found " + quoteForMessage(value) + ".");
            typed.flag = *flag;
            break;
        }
        case StyleStore::ValueType::String: {
            const std::optional<std::string> text = parseQuoted(value);
            if (!text)
                fail(prefix + "the " + textName + " must stand in double quotes; found " +
                     quoteForMessage(value) + ".");
            typed.text = *text;
            break;
        }
    }
    return typed;
}

void exportSetup(Exporter& exporter, const std::string& arguments) {
    static const char* const Usage =
        "$!EXPORTSETUP needs an attribute and a value: $!EXPORTSETUP <Attribute> = <value>.";
    const auto [name, value] = assignment(arguments, Usage);
    const std::vector<std::string> names = splitWords(name);
    if (names.size() != 1)
        fail(Usage);
    const ExportSetupAttribute* attribute = ExportSetupAttribute::find(names[0]);
    if (attribute == nullptr) {
        std::vector<std::string> known;
        for (const ExportSetupAttribute& a : ExportSetupAttribute::all())
            known.push_back(a.name);
        fail("$!EXPORTSETUP: unknown attribute " + quoteForMessage(names[0]) + "; use " +
             text::listOf(known, "or") + ".");
    }
    const std::string prefix = std::string("$!EXPORTSETUP ") + attribute->name + ": ";
    if (value.empty())
        fail(prefix + "the value is missing.");

    // The values travel as VexUtilExportSetup takes them (ExportSetupAttribute).
    double doubleValue = 0;
    VexArbParam_t intValue = 0;
    std::string fileName;
    if (!attribute->keywords.empty()) {
        const ExportSetupAttribute::Keyword* keyword = attribute->keyword(value);
        if (keyword == nullptr) {
            std::vector<std::string> words;
            for (const ExportSetupAttribute::Keyword& k : attribute->keywords)
                words.push_back(k.word);
            fail(prefix + "unknown value " + quoteForMessage(value) + "; use " +
                 text::listOf(words, "or") + ".");
        }
        intValue = keyword->value;
    } else {
        const StyleStore::ValueType type = attribute->type();
        const TypedValue typed = typedValue(prefix, type, value, "file name");
        switch (type) {
            case StyleStore::ValueType::Double:
                doubleValue = typed.number;
                break;
            case StyleStore::ValueType::Int:
                intValue = static_cast<VexArbParam_t>(typed.whole);
                break;
            case StyleStore::ValueType::Bool:
                intValue = typed.flag ? 1 : 0;
                break;
            case StyleStore::ValueType::String:
                fileName = typed.text;
                intValue = reinterpret_cast<VexArbParam_t>(fileName.c_str());
                break;
        }
    }
    // The same validation as VexUtilExportSetup: the player is the host, so it needs no lock.
    const VexSetValueReturnCode_e code =
        exporter.setup(attribute->name, nullptr, doubleValue, intValue);
    if (code != VexSetValue_Ok)
        fail(prefix + "the host refused " + quoteForMessage(value) + ": " + refusal(code) + ".");
}

void set(StyleStore& style, FrameStack& frames, StateNotifier& stateChanges,
         const std::string& arguments) {
    static const char* const Usage =
        "$!SET needs a style path and a value: $!SET <path word> ... = <value>.";
    const auto [pathText, value] = assignment(arguments, Usage);
    const StyleStore::Path path = splitWords(pathText);
    if (path.empty())
        fail(Usage);
    const std::string prefix = "$!SET " + joinWords(path) + ": ";
    const std::optional<StyleStore::ValueType> type = style.typeOf(path);
    if (!type)
        fail("$!SET: unknown style path " + quoteForMessage(joinWords(path)) +
             " (docs/host.md lists the style paths).");
    if (value.empty())
        fail(prefix + "the value is missing.");
    // The 3D view values belong to the active frame.
    if (equalsIgnoringCase(path.front(), "ThreeDView") && frames.active() == nullptr)
        fail(prefix + "there is no frame.");

    const TypedValue typed = typedValue(prefix, *type, value, "text");
    VexSetValueReturnCode_e code = VexSetValue_Ok;
    switch (*type) {
        case StyleStore::ValueType::Double:
            code = style.setDouble(path, typed.number);
            break;
        case StyleStore::ValueType::Int:
            code = style.setInt(path, typed.whole);
            break;
        case StyleStore::ValueType::Bool:
            code = style.setBool(path, typed.flag);
            break;
        case StyleStore::ValueType::String:
            code = style.setString(path, typed.text);
            break;
    }
    if (code != VexSetValue_Ok)
        fail(prefix + "the host refused " + quoteForMessage(value) + ": " + refusal(code) + ".");
    // As for a style value set by an add-on, listeners hear of it.
    stateChanges.send(VexStateChange_Style);
}

void view(FrameStack& frames, StateNotifier& stateChanges, const std::string& arguments) {
    const std::vector<std::string> words =
        wordsOf(arguments, 7, "$!VIEW needs 7 numbers (x y z psi theta alpha width)");
    double values[7];
    for (std::size_t i = 0; i < 7; ++i)
        values[i] = numberArgument("$!VIEW", words[i]);
    if (!(values[6] > 0))
        fail("$!VIEW: the view width must be greater than 0; found " + quoteForMessage(words[6]) +
             ".");
    Frame* frame = frames.active();
    if (frame == nullptr)
        fail("$!VIEW: there is no frame.");
    View3D& view = frame->view();
    view.setPosition({values[0], values[1], values[2]});
    view.setPsi(values[3]);
    view.setTheta(values[4]);
    view.setAlpha(values[5]);
    view.setWidth(values[6]);
    stateChanges.send(VexStateChange_View);
}

void solutionTime(DataSet& dataSet, StateNotifier& stateChanges, const std::string& arguments) {
    const std::vector<std::string> words =
        wordsOf(arguments, 1, "$!SOLUTIONTIME needs one number, the solution time");
    dataSet.setSolutionTime(numberArgument("$!SOLUTIONTIME", words[0]));
    stateChanges.send(VexStateChange_SolutionTime);
}

void plotType(FrameStack& frames, const std::string& arguments) {
    const VexPlotType_e plotType = plotTypeArgument("$!PLOTTYPE", arguments);
    Frame* frame = frames.active();
    if (frame == nullptr)
        fail("$!PLOTTYPE: there is no frame.");
    frames.setPlotType(frame->uniqueId(), plotType);
}

void newFrame(FrameStack& frames, const std::string& arguments) {
    const VexPlotType_e plotType = plotTypeArgument("$!NEWFRAME", arguments);
    // A new frame takes the place and size of the active one, so frames made by a macro match the
    // frame the program was started with (vexplot --size).
    const Frame* active = frames.active();
    const double x = active != nullptr ? active->x() : Frame::DefaultX;
    const double y = active != nullptr ? active->y() : Frame::DefaultY;
    const double width = active != nullptr ? active->width() : Frame::DefaultWidth;
    const double height = active != nullptr ? active->height() : Frame::DefaultHeight;
    frames.create(plotType).setPosAndSize(x, y, width, height);
}

void deleteFrames(FrameStack& frames, const std::string& arguments) {
    expectNoArguments("$!DELETEFRAMES", arguments);
    frames.removeAll();
}

void zone(DataSet& dataSet, const std::string& arguments) {
    const std::vector<std::string> words =
        wordsOf(arguments, 2, "$!ZONE needs the solution time and the strand id");
    const double time = numberArgument("$!ZONE", words[0]);
    const std::optional<int64_t> strand =
        parseWholeNumber(words[1], 0, std::numeric_limits<int32_t>::max());
    if (!strand)
        fail("$!ZONE: the strand id must be a whole number from 0 up; found " +
             quoteForMessage(words[1]) + ".");
    Zone zone;
    zone.name = "Zone " + std::to_string(dataSet.zoneCount() + 1);
    zone.solutionTime = time;
    zone.strandId = static_cast<int32_t>(*strand);
    zone.enabled = true;
    dataSet.addZone(std::move(zone));
}

void redraw(FrameStack& frames, Drawing& drawing, const std::string& arguments) {
    expectNoArguments("$!REDRAW", arguments);
    if (frames.active() == nullptr)
        fail("$!REDRAW: there is no frame to draw.");
    if (!drawing.redraw())
        fail("$!REDRAW: drawing is suspended.");
}

}  // namespace

void BuiltInCommands::install(MacroFileRunner& runner, Exporter& exporter, StyleStore& style,
                              FrameStack& frames, DataSet& dataSet, Drawing& drawing,
                              StateNotifier& stateChanges) {
    using Arguments = const std::string&;
    const MacroFileRunner::Recording Record = MacroFileRunner::Recording::RecordLine;
    runner.addCommand(
        "EXPORTSETUP", [&exporter](Arguments a) { exportSetup(exporter, a); }, Record);
    runner.addCommand(
        "SET",
        [&style, &frames, &stateChanges](Arguments a) { set(style, frames, stateChanges, a); },
        Record);
    runner.addCommand(
        "VIEW", [&frames, &stateChanges](Arguments a) { view(frames, stateChanges, a); }, Record);
    runner.addCommand(
        "SOLUTIONTIME",
        [&dataSet, &stateChanges](Arguments a) { solutionTime(dataSet, stateChanges, a); }, Record);
    runner.addCommand(
        "PLOTTYPE", [&frames](Arguments a) { plotType(frames, a); }, Record);
    runner.addCommand(
        "NEWFRAME", [&frames](Arguments a) { newFrame(frames, a); }, Record);
    runner.addCommand(
        "DELETEFRAMES", [&frames](Arguments a) { deleteFrames(frames, a); }, Record);
    runner.addCommand(
        "ZONE", [&dataSet](Arguments a) { zone(dataSet, a); }, Record);
    runner.addCommand(
        "REDRAW", [&frames, &drawing](Arguments a) { redraw(frames, drawing, a); }, Record);
}

}  // namespace vexhost
