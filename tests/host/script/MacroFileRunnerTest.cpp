// The host's macro player, fed lines in process: every command, every malformed form, comments,
// blank lines and quoting, recording, the idle queue and the failures a line can have.
#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "support/HostFixture.h"
#include "vexhost/Bookkeeping.h"
#include "vexhost/DataSet.h"
#include "vexhost/Drawing.h"
#include "vexhost/ExportSettings.h"
#include "vexhost/Exporter.h"
#include "vexhost/FrameStack.h"
#include "vexhost/HostErrors.h"
#include "vexhost/IdleQueue.h"
#include "vexhost/MacroError.h"
#include "vexhost/MacroFileRunner.h"
#include "vexhost/MacroRecorder.h"
#include "vexhost/StateNotifier.h"
#include "vexhost/StyleStore.h"
#include "vexhost/UserDialogs.h"
#include "vexhost/View3D.h"
#include "vxappaddonuiaction.h"

namespace {

using vexhost::MacroError;
using vexhost::MacroFileRunner;
using Path = vexhost::StyleStore::Path;

// A stand-in add-on's macro command callback, registered as "Probe": it keeps every command
// string it gets and acts on a few words, so tests see what the player handed over.
std::vector<std::string> probeCommands;
VexAddOn_pa probeAddOn = nullptr;

void showIdleMessage(void*) {
    VexUtilDialogMessageBox("idle work ran", VexMessageBox_Information);
}

bool fillError(const char* message, char** errMsg) {
    char* text = VexUtilStringAlloc(static_cast<int32_t>(std::strlen(message)), "probe error");
    std::strcpy(text, message);
    *errMsg = text;
    return false;
}

bool probeCallback(const char* commandString, char** errMsg) {
    const std::string command = commandString;
    probeCommands.push_back(command);
    if (command == "Fail")
        return fillError("Probe error:\nIt went wrong.", errMsg);
    if (command == "FailSilently")
        return false;
    if (command == "Ask") {
        VexUtilDialogMessageBox("Overwrite the file?", VexMessageBox_YesNo);
    } else if (command == "QueueIdle") {
        VexUtilOnIdleQueueAddCallback(showIdleMessage, nullptr);
    } else if (command == "KeepLock") {
        VexUtilLockStart(probeAddOn);
    } else if (command == "KeepDrawingSuspended") {
        VexUtilLockStart(probeAddOn);
        VexUtilDrawGraphics(false);
        VexUtilLockFinish(probeAddOn);
    } else if (command == "KeepStatusOpen") {
        VexUtilLockStart(probeAddOn);
        VexUtilStatusStartPercentDone("Working.", true, true);
        VexUtilLockFinish(probeAddOn);
    } else if (command == "Record") {
        VexUtilLockStart(probeAddOn);
        VexUtilMacroRecordExtCommand("Probe", "Record");
        VexUtilLockFinish(probeAddOn);
    }
    return true;
}

class MacroFileRunnerTest : public vextest::HostFixture {
protected:
    void SetUp() override {
        HostFixture::SetUp();
        probeCommands.clear();
        probeAddOn = registerAddOn("Probe");
        VexUtilMacroAddCommandCallback("Probe", probeCallback);
        runner.setFailureSink([this](const MacroFileRunner::Failure& f) { failures.push_back(f); });
    }

    // The message of the line's failure, or "" when it ran.
    std::string failureOf(const std::string& line) {
        try {
            runner.runLine(line);
        } catch (const MacroError& error) {
            return error.what();
        }
        return "";
    }

    std::vector<std::string> failureTexts() const {
        std::vector<std::string> texts;
        for (const MacroFileRunner::Failure& failure : failures)
            texts.push_back(failure.text());
        return texts;
    }

    MacroFileRunner runner{host()};
    std::vector<MacroFileRunner::Failure> failures;
};

// ---- Comments, blank lines, command words ----

TEST_F(MacroFileRunnerTest, CommentsAndBlankLinesRunNothing) {
    createFrame3D();
    for (const char* line : {"", "   ", "\t", "\r", "# a comment", "   # indented comment",
                             "#$!REDRAW", "# $!FOO this is not run"}) {
        EXPECT_FALSE(runner.runLine(line)) << line;
    }
    EXPECT_EQ(0u, runner.commandCount());
    EXPECT_EQ(0u, host().drawing().drawnFrames());
}

TEST_F(MacroFileRunnerTest, CommandWordsAreMatchedInAnyCase) {
    createFrame3D();
    for (const char* line : {"$!REDRAW", "$!redraw", "$!ReDraw", "  $!REDRAW  ", "$!REDRAW\r"}) {
        EXPECT_TRUE(runner.runLine(line)) << line;
    }
    EXPECT_EQ(5u, host().drawing().drawnFrames());
    EXPECT_EQ(5u, runner.commandCount());
}

struct MalformedLine {
    const char* name;
    std::string line;
    std::string message;
};

std::ostream& operator<<(std::ostream& out, const MalformedLine& row) {
    return out << row.name;
}

class MalformedLineTest : public MacroFileRunnerTest,
                          public ::testing::WithParamInterface<MalformedLine> {};

TEST_P(MalformedLineTest, FailsNamingWhatWasWrongAndChangesNothing) {
    createFrame3D();
    const vexhost::View3D viewBefore = host().frames().active()->view();
    const vexhost::ExportSettings exportBefore = host().exporter().settings();
    EXPECT_EQ(GetParam().message, failureOf(GetParam().line));
    EXPECT_EQ(viewBefore, host().frames().active()->view());
    EXPECT_EQ(exportBefore.format, host().exporter().settings().format);
    EXPECT_EQ(exportBefore.fileName, host().exporter().settings().fileName);
    EXPECT_EQ(75, host().style().getDouble({"GlobalThreeD", "LightSource", "Intensity"}));
    EXPECT_EQ(0, host().dataSet().solutionTime());
    EXPECT_EQ(1, host().frames().count());
    EXPECT_EQ(0, host().dataSet().zoneCount());
    EXPECT_EQ(0u, host().drawing().drawnFrames());
    EXPECT_TRUE(probeCommands.empty());
}

INSTANTIATE_TEST_SUITE_P(
    EveryCommand, MalformedLineTest,
    ::testing::Values(
        MalformedLine{"NotACommand", "REDRAW",
                      "Expected a command starting with \"$!\" or a comment starting with "
                      "\"#\"; found \"REDRAW\"."},
        MalformedLine{"NoCommandWord", "$!", "The command word is missing after \"$!\"."},
        MalformedLine{"BlankAfterDollarBang", "$! REDRAW",
                      "The command word is missing after \"$!\"."},
        MalformedLine{"UnknownCommand", "$!FLY away", "Unknown macro command \"$!FLY\"."},
        MalformedLine{"NulCharacter", std::string("$!REDRAW\0x", 10),
                      "The line holds a NUL character; macro files are text."},
        MalformedLine{"AddOnWithoutName", "$!ADDON",
                      "$!ADDON needs the add-on name in double quotes, then its command: "
                      "$!ADDON \"<add-on name>\" <command>."},
        MalformedLine{"AddOnNameUnquoted", "$!ADDON Probe Fail",
                      "$!ADDON needs the add-on name in double quotes, then its command: "
                      "$!ADDON \"<add-on name>\" <command>."},
        MalformedLine{"AddOnNameUnclosed", "$!ADDON \"Probe Fail",
                      "$!ADDON: the add-on name \"\\\"Probe Fail\" has no closing double quote."},
        MalformedLine{"AddOnNameEmpty", "$!ADDON \"\" Fail", "$!ADDON: the add-on name is empty."},
        MalformedLine{"AddOnNoBlankAfterName", "$!ADDON \"Probe\"Fail",
                      "$!ADDON: a blank must follow the add-on name \"Probe\"."},
        MalformedLine{"AddOnUnknown", "$!ADDON \"Nobody\" Animate",
                      "No add-on named \"Nobody\" has a macro command callback."},
        MalformedLine{"ExportSetupNoEquals", "$!EXPORTSETUP ExportFormat AVI",
                      "$!EXPORTSETUP needs an attribute and a value: "
                      "$!EXPORTSETUP <Attribute> = <value>."},
        MalformedLine{"ExportSetupNoAttribute", "$!EXPORTSETUP = AVI",
                      "$!EXPORTSETUP needs an attribute and a value: "
                      "$!EXPORTSETUP <Attribute> = <value>."},
        MalformedLine{"ExportSetupTwoWords", "$!EXPORTSETUP Export Format = AVI",
                      "$!EXPORTSETUP needs an attribute and a value: "
                      "$!EXPORTSETUP <Attribute> = <value>."},
        MalformedLine{"ExportSetupUnknownAttribute", "$!EXPORTSETUP Quality = 3",
                      "$!EXPORTSETUP: unknown attribute \"Quality\"; use ExportFormat, "
                      "ExportRegion, ImageWidth, AnimationSpeed, UseSuperSampleAntiAliasing, "
                      "SuperSampleFactor, FlashImageType, FlashCompressionType or ExportFName."},
        MalformedLine{"ExportSetupNoValue", "$!EXPORTSETUP ExportFormat =  ",
                      "$!EXPORTSETUP ExportFormat: the value is missing."},
        MalformedLine{"ExportSetupUnknownFormat", "$!EXPORTSETUP ExportFormat = MOV",
                      "$!EXPORTSETUP ExportFormat: unknown value \"MOV\"; use AVI, FLV, FLASH, "
                      "MPEG4, RASTERMETAFILE or WMV."},
        MalformedLine{"ExportSetupFormatAsNumber", "$!EXPORTSETUP ExportFormat = 21",
                      "$!EXPORTSETUP ExportFormat: unknown value \"21\"; use AVI, FLV, FLASH, "
                      "MPEG4, RASTERMETAFILE or WMV."},
        MalformedLine{"ExportSetupUnknownRegion", "$!EXPORTSETUP ExportRegion = SCREEN",
                      "$!EXPORTSETUP ExportRegion: unknown value \"SCREEN\"; use CURRENTFRAME, "
                      "ALLFRAMES or WORKAREA."},
        MalformedLine{"ExportSetupUnknownImageType", "$!EXPORTSETUP FlashImageType = PNG",
                      "$!EXPORTSETUP FlashImageType: unknown value \"PNG\"; use LOSSLESS, JPEG "
                      "or 256COLOR."},
        MalformedLine{"ExportSetupUnknownCompression", "$!EXPORTSETUP FlashCompressionType = FAST",
                      "$!EXPORTSETUP FlashCompressionType: unknown value \"FAST\"; use BESTSPEED "
                      "or SMALLESTSIZE."},
        MalformedLine{"ExportSetupWidthNotWhole", "$!EXPORTSETUP ImageWidth = 800.5",
                      "$!EXPORTSETUP ImageWidth: \"800.5\" is not a whole number."},
        MalformedLine{"ExportSetupWidthOutOfRange", "$!EXPORTSETUP ImageWidth = 0",
                      "$!EXPORTSETUP ImageWidth: the host refused \"0\": the value is out of "
                      "range or of the wrong type."},
        MalformedLine{"ExportSetupWidthHuge", "$!EXPORTSETUP ImageWidth = 99999999999",
                      "$!EXPORTSETUP ImageWidth: the host refused \"99999999999\": the value is "
                      "out of range or of the wrong type."},
        MalformedLine{"ExportSetupWidthBeyondAnyNumber",
                      "$!EXPORTSETUP ImageWidth = 99999999999999999999",
                      "$!EXPORTSETUP ImageWidth: \"99999999999999999999\" is not a whole number."},
        MalformedLine{"ExportSetupSpeedNotNumber", "$!EXPORTSETUP AnimationSpeed = fast",
                      "$!EXPORTSETUP AnimationSpeed: \"fast\" is not a number."},
        MalformedLine{"ExportSetupSpeedNotFinite", "$!EXPORTSETUP AnimationSpeed = inf",
                      "$!EXPORTSETUP AnimationSpeed: \"inf\" is not a number."},
        MalformedLine{"ExportSetupSpeedZero", "$!EXPORTSETUP AnimationSpeed = 0",
                      "$!EXPORTSETUP AnimationSpeed: the host refused \"0\": the value is out of "
                      "range or of the wrong type."},
        MalformedLine{"ExportSetupBooleanWord", "$!EXPORTSETUP UseSuperSampleAntiAliasing = yes",
                      "$!EXPORTSETUP UseSuperSampleAntiAliasing: use true or false; found "
                      "\"yes\"."},
        MalformedLine{"ExportSetupFactorOutOfRange", "$!EXPORTSETUP SuperSampleFactor = 17",
                      "$!EXPORTSETUP SuperSampleFactor: the host refused \"17\": the value is out "
                      "of range or of the wrong type."},
        MalformedLine{"ExportSetupFileNameUnquoted", "$!EXPORTSETUP ExportFName = movie.mp4",
                      "$!EXPORTSETUP ExportFName: the file name must stand in double quotes; "
                      "found \"movie.mp4\"."},
        MalformedLine{"ExportSetupFileNameUnclosed", "$!EXPORTSETUP ExportFName = \"movie.mp4",
                      "$!EXPORTSETUP ExportFName: the file name must stand in double quotes; "
                      "found \"\\\"movie.mp4\"."},
        MalformedLine{"SetNoEquals", "$!SET GlobalThreeD LightSource Intensity 50",
                      "$!SET needs a style path and a value: $!SET <path word> ... = <value>."},
        MalformedLine{"SetNoPath", "$!SET = 50",
                      "$!SET needs a style path and a value: $!SET <path word> ... = <value>."},
        MalformedLine{"SetUnknownPath", "$!SET GlobalThreeD Brightness = 50",
                      "$!SET: unknown style path \"GlobalThreeD Brightness\" (docs/host.md lists "
                      "the style paths)."},
        MalformedLine{"SetBranchPath", "$!SET ThreeDView ViewerPosition = 1",
                      "$!SET: unknown style path \"ThreeDView ViewerPosition\" (docs/host.md "
                      "lists the style paths)."},
        MalformedLine{"SetNoValue", "$!SET GlobalThreeD LightSource Intensity =",
                      "$!SET GlobalThreeD LightSource Intensity: the value is missing."},
        MalformedLine{"SetNotANumber", "$!SET GlobalThreeD LightSource Intensity = bright",
                      "$!SET GlobalThreeD LightSource Intensity: \"bright\" is not a number."},
        MalformedLine{"SetOutOfRange", "$!SET GlobalThreeD LightSource Intensity = 101",
                      "$!SET GlobalThreeD LightSource Intensity: the host refused \"101\": the "
                      "value is out of range or of the wrong type."},
        MalformedLine{"SetIntegerNotWhole", "$!SET ExportSetup ImageWidth = 1.5",
                      "$!SET ExportSetup ImageWidth: \"1.5\" is not a whole number."},
        MalformedLine{"SetBooleanWord", "$!SET ThreeDAxis FrameAxis Show = off",
                      "$!SET ThreeDAxis FrameAxis Show: use true or false; found \"off\"."},
        MalformedLine{"SetStringUnquoted", "$!SET ExportSetup ExportFName = a.mp4",
                      "$!SET ExportSetup ExportFName: the text must stand in double quotes; "
                      "found \"a.mp4\"."},
        MalformedLine{"ViewTooFewNumbers", "$!VIEW 1 2 3",
                      "$!VIEW needs 7 numbers (x y z psi theta alpha width); found 3 words."},
        MalformedLine{"ViewNoNumbers", "$!VIEW",
                      "$!VIEW needs 7 numbers (x y z psi theta alpha width); found 0 words."},
        MalformedLine{"ViewTooManyNumbers", "$!VIEW 1 2 3 4 5 6 7 8",
                      "$!VIEW needs 7 numbers (x y z psi theta alpha width); found 8 words."},
        MalformedLine{"ViewNotANumber", "$!VIEW 1 2 three 4 5 6 7",
                      "$!VIEW: \"three\" is not a number."},
        MalformedLine{"ViewNotFinite", "$!VIEW 1 2 nan 4 5 6 7",
                      "$!VIEW: \"nan\" is not a number."},
        MalformedLine{"ViewNumberWithJunk", "$!VIEW 1 2 3x 4 5 6 7",
                      "$!VIEW: \"3x\" is not a number."},
        MalformedLine{"ViewWidthZero", "$!VIEW 1 2 3 4 5 6 0",
                      "$!VIEW: the view width must be greater than 0; found \"0\"."},
        MalformedLine{"SolutionTimeMissing", "$!SOLUTIONTIME",
                      "$!SOLUTIONTIME needs one number, the solution time; found 0 words."},
        MalformedLine{"SolutionTimeTwoNumbers", "$!SOLUTIONTIME 1 2",
                      "$!SOLUTIONTIME needs one number, the solution time; found 2 words."},
        MalformedLine{"SolutionTimeNotANumber", "$!SOLUTIONTIME later",
                      "$!SOLUTIONTIME: \"later\" is not a number."},
        MalformedLine{"PlotTypeOutOfRange", "$!PLOTTYPE 5",
                      "$!PLOTTYPE needs one plot type number (0 sketch, 1 3D Cartesian, 2 2D "
                      "Cartesian, 3 XY line, 4 polar line); found \"5\"."},
        MalformedLine{"PlotTypeMissing", "$!PLOTTYPE",
                      "$!PLOTTYPE needs one plot type number (0 sketch, 1 3D Cartesian, 2 2D "
                      "Cartesian, 3 XY line, 4 polar line); found 0 words."},
        MalformedLine{"NewFrameByName", "$!NEWFRAME Cartesian3D",
                      "$!NEWFRAME needs one plot type number (0 sketch, 1 3D Cartesian, 2 2D "
                      "Cartesian, 3 XY line, 4 polar line); found \"Cartesian3D\"."},
        MalformedLine{"DeleteFramesWithArgument", "$!DELETEFRAMES all",
                      "$!DELETEFRAMES takes no arguments; found \"all\"."},
        MalformedLine{"ZoneOneNumber", "$!ZONE 0.5",
                      "$!ZONE needs the solution time and the strand id; found 1 word."},
        MalformedLine{"ZoneTimeNotANumber", "$!ZONE soon 1", "$!ZONE: \"soon\" is not a number."},
        MalformedLine{"ZoneNegativeStrand", "$!ZONE 0.5 -1",
                      "$!ZONE: the strand id must be a whole number from 0 up; found \"-1\"."},
        MalformedLine{"RedrawWithArgument", "$!REDRAW now",
                      "$!REDRAW takes no arguments; found \"now\"."}),
    [](const ::testing::TestParamInfo<MalformedLine>& info) { return info.param.name; });

TEST_F(MacroFileRunnerTest, AMessageQuotesOnlyTheStartOfAVeryLongLine) {
    const std::string line = "REDRAW" + std::string(1000000, 'x');
    EXPECT_EQ(
        "Expected a command starting with \"$!\" or a comment starting with \"#\"; found "
        "\"REDRAW" +
            std::string(54, 'x') + "...\".",
        failureOf(line));
}

TEST_F(MacroFileRunnerTest, AMessageEscapesControlCharactersOfTheLine) {
    EXPECT_EQ("Unknown macro command \"$!A\\x01\\x1B\".", failureOf("$!A\x01\x1b"));
}

TEST_F(MacroFileRunnerTest, AMessageCutsALongLineAtACharacterBoundary) {
    // "$!" and 57 letters, then two-byte characters: the cut at 60 bytes falls inside the first
    // one and backs off to its start.
    const std::string line = "$!" + std::string(57, 'A') + "\xc3\xa9\xc3\xa9\xc3\xa9";
    EXPECT_EQ("Unknown macro command \"$!" + std::string(57, 'A') + "...\".", failureOf(line));
}

// ---- $!ADDON ----

TEST_F(MacroFileRunnerTest, AddOnGetsTheRestOfTheLineAsItStands) {
    EXPECT_TRUE(runner.runLine("$!ADDON \"Probe\" Open  FileName=\"a b.keyframe\"  x=\"y\" "));
    EXPECT_EQ(std::vector<std::string>{"Open  FileName=\"a b.keyframe\"  x=\"y\" "}, probeCommands);
}

TEST_F(MacroFileRunnerTest, AddOnWordAndBlanksBeforeTheNameAreFree) {
    EXPECT_TRUE(runner.runLine("$!addon   \"Probe\" Go"));
    EXPECT_EQ(std::vector<std::string>{"Go"}, probeCommands);
}

TEST_F(MacroFileRunnerTest, AddOnTakesOneBlankAfterTheNameAndKeepsTheOthers) {
    EXPECT_TRUE(runner.runLine("$!ADDON \"Probe\"\t  Go"));
    EXPECT_EQ(std::vector<std::string>{"  Go"}, probeCommands);
}

TEST_F(MacroFileRunnerTest, AddOnWithoutCommandGetsAnEmptyCommandString) {
    EXPECT_TRUE(runner.runLine("$!ADDON \"Probe\""));
    EXPECT_TRUE(runner.runLine("$!ADDON \"Probe\" "));
    EXPECT_EQ((std::vector<std::string>{"", ""}), probeCommands);
}

TEST_F(MacroFileRunnerTest, AddOnCarriageReturnOfAWindowsLineIsNotPartOfTheCommand) {
    EXPECT_TRUE(runner.runLine("$!ADDON \"Probe\" Go\r"));
    EXPECT_EQ(std::vector<std::string>{"Go"}, probeCommands);
}

TEST_F(MacroFileRunnerTest, AddOnFailureTextIsTheLinesMessageAsItStands) {
    EXPECT_EQ("Probe error:\nIt went wrong.", failureOf("$!ADDON \"Probe\" Fail"));
    EXPECT_EQ(0u, host().bookkeeping().outstanding(vexhost::Bookkeeping::Kind::String));
}

TEST_F(MacroFileRunnerTest, AddOnFailureWithoutMessageSaysSo) {
    EXPECT_EQ("The add-on \"Probe\" reported a failure without a message.",
              failureOf("$!ADDON \"Probe\" FailSilently"));
}

TEST_F(MacroFileRunnerTest, AddOnNameIsMatchedExactly) {
    EXPECT_EQ("No add-on named \"probe\" has a macro command callback.",
              failureOf("$!ADDON \"probe\" Go"));
}

// ---- $!EXPORTSETUP ----

struct ExportSetupLine {
    const char* name;
    const char* line;
    vexhost::ExportSettings expected;
};

std::ostream& operator<<(std::ostream& out, const ExportSetupLine& row) {
    return out << row.name;
}

vexhost::ExportSettings settingsWith(void (*change)(vexhost::ExportSettings&)) {
    vexhost::ExportSettings s;
    change(s);
    return s;
}

class ExportSetupLineTest : public MacroFileRunnerTest,
                            public ::testing::WithParamInterface<ExportSetupLine> {};

TEST_P(ExportSetupLineTest, SetsTheExportSetupAsVexUtilExportSetupDoes) {
    createFrame3D();
    ASSERT_TRUE(runner.runLine(GetParam().line));
    const vexhost::ExportSettings actual = host().exporter().settings();
    const vexhost::ExportSettings& expected = GetParam().expected;
    EXPECT_EQ(expected.format, actual.format);
    EXPECT_EQ(expected.region, actual.region);
    EXPECT_EQ(expected.imageWidth, actual.imageWidth);
    EXPECT_EQ(expected.animationSpeed, actual.animationSpeed);
    EXPECT_EQ(expected.useSuperSampling, actual.useSuperSampling);
    EXPECT_EQ(expected.superSampleFactor, actual.superSampleFactor);
    EXPECT_EQ(expected.flashImageType, actual.flashImageType);
    EXPECT_EQ(expected.flashCompressionType, actual.flashCompressionType);
    EXPECT_EQ(expected.fileName, actual.fileName);
}

INSTANTIATE_TEST_SUITE_P(
    EveryAttributeAndKeyword, ExportSetupLineTest,
    ::testing::Values(
        ExportSetupLine{"FormatAvi", "$!EXPORTSETUP ExportFormat = AVI",
                        settingsWith([](auto& s) { s.format = 14; })},
        ExportSetupLine{"FormatFlv", "$!EXPORTSETUP ExportFormat = FLV",
                        settingsWith([](auto& s) { s.format = 20; })},
        ExportSetupLine{"FormatFlash", "$!EXPORTSETUP ExportFormat = FLASH",
                        settingsWith([](auto& s) { s.format = 17; })},
        ExportSetupLine{"FormatMpeg4", "$!EXPORTSETUP ExportFormat = MPEG4",
                        settingsWith([](auto& s) { s.format = 21; })},
        ExportSetupLine{"FormatRasterMetafile", "$!EXPORTSETUP ExportFormat = RASTERMETAFILE",
                        settingsWith([](auto& s) { s.format = 0; })},
        ExportSetupLine{"FormatWmv", "$!EXPORTSETUP ExportFormat = WMV",
                        settingsWith([](auto& s) { s.format = 22; })},
        ExportSetupLine{"FormatInLowerCase", "$!exportsetup exportformat = wmv",
                        settingsWith([](auto& s) { s.format = 22; })},
        ExportSetupLine{"RegionCurrentFrame", "$!EXPORTSETUP ExportRegion = CURRENTFRAME",
                        settingsWith([](auto& s) { s.region = 0; })},
        ExportSetupLine{"RegionAllFrames", "$!EXPORTSETUP ExportRegion = ALLFRAMES",
                        settingsWith([](auto& s) { s.region = 1; })},
        ExportSetupLine{"RegionWorkArea", "$!EXPORTSETUP ExportRegion = WORKAREA",
                        settingsWith([](auto& s) { s.region = 2; })},
        ExportSetupLine{"ImageWidth", "$!EXPORTSETUP ImageWidth = 1000",
                        settingsWith([](auto& s) { s.imageWidth = 1000; })},
        ExportSetupLine{"AnimationSpeed", "$!EXPORTSETUP AnimationSpeed = 12.5",
                        settingsWith([](auto& s) { s.animationSpeed = 12.5; })},
        ExportSetupLine{"AnimationSpeedSixDigits", "$!EXPORTSETUP AnimationSpeed = 0.333333",
                        settingsWith([](auto& s) { s.animationSpeed = 0.333333; })},
        ExportSetupLine{"SuperSamplingOn", "$!EXPORTSETUP UseSuperSampleAntiAliasing = true",
                        settingsWith([](auto& s) { s.useSuperSampling = true; })},
        ExportSetupLine{"SuperSamplingOff", "$!EXPORTSETUP UseSuperSampleAntiAliasing = false",
                        settingsWith([](auto& s) { s.useSuperSampling = false; })},
        ExportSetupLine{"SuperSampleFactor", "$!EXPORTSETUP SuperSampleFactor = 16",
                        settingsWith([](auto& s) { s.superSampleFactor = 16; })},
        ExportSetupLine{"ImageTypeLossless", "$!EXPORTSETUP FlashImageType = LOSSLESS",
                        settingsWith([](auto& s) { s.flashImageType = 0; })},
        ExportSetupLine{"ImageTypeJpeg", "$!EXPORTSETUP FlashImageType = JPEG",
                        settingsWith([](auto& s) { s.flashImageType = 1; })},
        ExportSetupLine{"ImageType256Colors", "$!EXPORTSETUP FlashImageType = 256COLOR",
                        settingsWith([](auto& s) { s.flashImageType = 2; })},
        ExportSetupLine{"CompressionBestSpeed", "$!EXPORTSETUP FlashCompressionType = BESTSPEED",
                        settingsWith([](auto& s) { s.flashCompressionType = 0; })},
        ExportSetupLine{"CompressionSmallestSize",
                        "$!EXPORTSETUP FlashCompressionType = SMALLESTSIZE",
                        settingsWith([](auto& s) { s.flashCompressionType = 1; })},
        ExportSetupLine{"FileName", "$!EXPORTSETUP ExportFName = \"movie.mp4\"",
                        settingsWith([](auto& s) { s.fileName = "movie.mp4"; })},
        ExportSetupLine{"FileNameWithBlanks", "$!EXPORTSETUP ExportFName = \"/tmp/my movie.mp4\"",
                        settingsWith([](auto& s) { s.fileName = "/tmp/my movie.mp4"; })},
        // Written without escaping, so a quote inside stays as it is.
        ExportSetupLine{"FileNameWithAQuote", "$!EXPORTSETUP ExportFName = \"say \"hi\".mp4\"",
                        settingsWith([](auto& s) { s.fileName = "say \"hi\".mp4"; })},
        ExportSetupLine{"FileNameEmpty", "$!EXPORTSETUP ExportFName = \"\"",
                        settingsWith([](auto& s) { s.fileName = ""; })},
        ExportSetupLine{"BlanksAroundEquals", "$!EXPORTSETUP\tImageWidth=640  ",
                        settingsWith([](auto& s) { s.imageWidth = 640; })}),
    [](const ::testing::TestParamInfo<ExportSetupLine>& info) { return info.param.name; });

TEST_F(MacroFileRunnerTest, ExportSetupReplaysTheLinesTheExportOptionsDialogRecords) {
    createFrame3D();
    std::istringstream macro(
        "$!EXPORTSETUP ExportFormat = MPEG4\n"
        "$!EXPORTSETUP ExportRegion = CURRENTFRAME\n"
        "$!EXPORTSETUP ImageWidth = 800\n"
        "$!EXPORTSETUP AnimationSpeed = 10\n"
        "$!EXPORTSETUP UseSuperSampleAntiAliasing = false\n"
        "$!EXPORTSETUP ExportFName = \"movie.mp4\"\n");
    ASSERT_TRUE(runner.runStream(macro, "export.mcr")) << ::testing::PrintToString(failureTexts());
    const vexhost::ExportSettings s = host().exporter().settings();
    EXPECT_EQ(21, s.format);
    EXPECT_EQ(0, s.region);
    EXPECT_EQ(800, s.imageWidth);
    EXPECT_EQ(10, s.animationSpeed);
    EXPECT_FALSE(s.useSuperSampling);
    EXPECT_EQ("movie.mp4", s.fileName);
}

// ---- $!SET ----

TEST_F(MacroFileRunnerTest, SetReadsTheValueByThePathsType) {
    createFrame3D();
    ASSERT_TRUE(runner.runLine("$!SET GlobalThreeD LightSource Intensity = 42.5"));
    ASSERT_TRUE(runner.runLine("$!SET ExportSetup ImageWidth = 640"));
    ASSERT_TRUE(runner.runLine("$!SET ThreeDAxis FrameAxis Show = FALSE"));
    ASSERT_TRUE(runner.runLine("$!SET ExportSetup ExportFName = \"a b = c.mp4\""));
    EXPECT_EQ(42.5, host().style().getDouble({"GlobalThreeD", "LightSource", "Intensity"}));
    EXPECT_EQ(640, host().style().getInt({"ExportSetup", "ImageWidth"}));
    EXPECT_FALSE(host().style().getBool({"ThreeDAxis", "FrameAxis", "Show"}));
    EXPECT_EQ("a b = c.mp4", host().style().getString({"ExportSetup", "ExportFName"}));
}

TEST_F(MacroFileRunnerTest, SetMatchesPathWordsInAnyCase) {
    createFrame3D();
    ASSERT_TRUE(runner.runLine("$!set threedview viewwidth = 2.5"));
    EXPECT_EQ(2.5, host().frames().active()->view().width());
}

TEST_F(MacroFileRunnerTest, SetTellsTheListenersOfTheStyleChange) {
    createFrame3D();
    const uint64_t before = host().stateChanges().sentCount(VexStateChange_Style);
    ASSERT_TRUE(runner.runLine("$!SET StreamAttributes StreamTiming TimeAnchor = 0.25"));
    EXPECT_EQ(before + 1, host().stateChanges().sentCount(VexStateChange_Style));
}

TEST_F(MacroFileRunnerTest, SetOfAThreeDViewValueWithoutAFrameFails) {
    EXPECT_EQ("$!SET ThreeDView ViewWidth: there is no frame.",
              failureOf("$!SET ThreeDView ViewWidth = 2"));
}

// ---- $!VIEW, $!SOLUTIONTIME, frames, zones, $!REDRAW ----

TEST_F(MacroFileRunnerTest, ViewSetsTheActiveFramesViewAsGiven) {
    createFrame3D();
    const uint64_t before = host().stateChanges().sentCount(VexStateChange_View);
    ASSERT_TRUE(runner.runLine("$!VIEW 1.5 -2 3e1 400 -50 +6 0.75"));
    const vexhost::View3D& view = host().frames().active()->view();
    EXPECT_EQ((vexhost::View3D::Vector{1.5, -2, 30}), view.position());
    EXPECT_EQ(400, view.psi());  // as given, not brought into range
    EXPECT_EQ(-50, view.theta());
    EXPECT_EQ(6, view.alpha());
    EXPECT_EQ(0.75, view.width());
    EXPECT_EQ(before + 1, host().stateChanges().sentCount(VexStateChange_View));
}

TEST_F(MacroFileRunnerTest, ViewWithoutAFrameFails) {
    EXPECT_EQ("$!VIEW: there is no frame.", failureOf("$!VIEW 1 2 3 4 5 6 7"));
}

TEST_F(MacroFileRunnerTest, SolutionTimeSetsTheCurrentTimeAndTellsTheListeners) {
    ASSERT_TRUE(runner.runLine("$!SOLUTIONTIME 0.6"));
    EXPECT_EQ(0.6, host().dataSet().solutionTime());
    EXPECT_EQ(1u, host().stateChanges().sentCount(VexStateChange_SolutionTime));
}

TEST_F(MacroFileRunnerTest, PlotTypeChangesTheActiveFrame) {
    createFrame3D();
    ASSERT_TRUE(runner.runLine("$!PLOTTYPE 2"));
    EXPECT_EQ(VexPlotType_Cartesian2D, host().frames().active()->plotType());
    EXPECT_EQ(1u, host().stateChanges().sentCount(VexStateChange_PlotType));
}

TEST_F(MacroFileRunnerTest, PlotTypeWithoutAFrameFails) {
    EXPECT_EQ("$!PLOTTYPE: there is no frame.", failureOf("$!PLOTTYPE 1"));
}

TEST_F(MacroFileRunnerTest, NewFrameTakesThePlaceAndSizeOfTheActiveFrame) {
    createFrame3D().setPosAndSize(0.5, 0.5, 6.4, 4.8);
    ASSERT_TRUE(runner.runLine("$!NEWFRAME 3"));
    ASSERT_EQ(2, host().frames().count());
    const vexhost::Frame& made = *host().frames().active();
    EXPECT_EQ(VexPlotType_XYLine, made.plotType());
    EXPECT_EQ(2, made.uniqueId());
    EXPECT_EQ(6.4, made.width());
    EXPECT_EQ(4.8, made.height());
    EXPECT_EQ(0.5, made.x());
}

TEST_F(MacroFileRunnerTest, NewFrameWithoutFramesHasTheDefaultPlaceAndSize) {
    ASSERT_TRUE(runner.runLine("$!NEWFRAME 1"));
    ASSERT_EQ(1, host().frames().count());
    EXPECT_EQ(vexhost::Frame::DefaultWidth, host().frames().active()->width());
    EXPECT_EQ(VexPlotType_Cartesian3D, host().frames().active()->plotType());
}

TEST_F(MacroFileRunnerTest, DeleteFramesRemovesEveryFrame) {
    createFrame3D();
    createFrame(VexPlotType_Sketch);
    ASSERT_TRUE(runner.runLine("$!DELETEFRAMES"));
    EXPECT_TRUE(host().frames().empty());
    EXPECT_EQ(2u, host().stateChanges().sentCount(VexStateChange_FrameDeleted));
}

TEST_F(MacroFileRunnerTest, ZoneAppendsAnEnabledZone) {
    addZone(0, 0);
    ASSERT_TRUE(runner.runLine("$!ZONE 0.25 3"));
    ASSERT_EQ(2, host().dataSet().zoneCount());
    const vexhost::Zone& zone = host().dataSet().zone(2);
    EXPECT_EQ("Zone 2", zone.name);
    EXPECT_EQ(0.25, zone.solutionTime);
    EXPECT_EQ(3, zone.strandId);
    EXPECT_TRUE(zone.enabled);
    EXPECT_EQ(std::vector<int32_t>({1, 2}), host().dataSet().enabledZones());
}

TEST_F(MacroFileRunnerTest, RedrawDrawsTheActiveFrame) {
    createFrame3D();
    ASSERT_TRUE(runner.runLine("$!REDRAW"));
    EXPECT_EQ(1u, host().drawing().drawnFrames());
}

TEST_F(MacroFileRunnerTest, RedrawWithoutAFrameFails) {
    EXPECT_EQ("$!REDRAW: there is no frame to draw.", failureOf("$!REDRAW"));
}

// ---- Added commands ----

TEST_F(MacroFileRunnerTest, AddedCommandGetsItsArgumentsWithoutSurroundingBlanks) {
    std::vector<std::string> seen;
    runner.addCommand(
        "snapshot", [&](const std::string& a) { seen.push_back(a); },
        MacroFileRunner::Recording::RecordLine);
    ASSERT_TRUE(runner.runLine("$!SNAPSHOT   \"view 1.png\"  "));
    ASSERT_TRUE(runner.runLine("$!Snapshot"));
    EXPECT_EQ((std::vector<std::string>{"\"view 1.png\"", ""}), seen);
}

TEST_F(MacroFileRunnerTest, AddedCommandFailureIsTheLinesMessage) {
    runner.addCommand(
        "UI", [](const std::string&) { throw MacroError("$!UI: no dialog is up."); },
        MacroFileRunner::Recording::NotRecorded);
    EXPECT_EQ("$!UI: no dialog is up.", failureOf("$!UI PRESS OK"));
}

TEST_F(MacroFileRunnerTest, AddCommandRefusesABuiltInOrTakenWord) {
    runner.addCommand(
        "UI", [](const std::string&) {}, MacroFileRunner::Recording::NotRecorded);
    const auto add = [&](const char* word) {
        runner.addCommand(
            word, [](const std::string&) {}, MacroFileRunner::Recording::RecordLine);
    };
    EXPECT_THROW(add("ui"), std::logic_error);
    EXPECT_THROW(add("View"), std::logic_error);
    EXPECT_THROW(add("ADDON"), std::logic_error);
    EXPECT_THROW(add(""), std::logic_error);
    EXPECT_THROW(add("TWO WORDS"), std::logic_error);
}

// ---- Recording ----

TEST_F(MacroFileRunnerTest, WhileRecordingHostCommandsAreRecordedAsTheyStood) {
    createFrame3D();
    runner.addCommand(
        "SNAPSHOT", [](const std::string&) {}, MacroFileRunner::Recording::RecordLine);
    runner.addCommand(
        "UI", [](const std::string&) {}, MacroFileRunner::Recording::NotRecorded);
    host().macro().setRecording(true);
    std::istringstream macro(
        "# not recorded\n"
        "  $!view 1 2 3 4 5 6 7  \n"
        "$!SOLUTIONTIME 0.5\n"
        "$!EXPORTSETUP ExportFormat = AVI\n"
        "$!UI PRESS OK\n"
        "$!SNAPSHOT \"a.png\"\n"
        "$!REDRAW\n");
    ASSERT_TRUE(runner.runStream(macro, "m.mcr")) << ::testing::PrintToString(failureTexts());
    EXPECT_EQ((std::vector<std::string>{"$!view 1 2 3 4 5 6 7", "$!SOLUTIONTIME 0.5",
                                        "$!EXPORTSETUP ExportFormat = AVI", "$!SNAPSHOT \"a.png\"",
                                        "$!REDRAW"}),
              host().macro().lines());
}

TEST_F(MacroFileRunnerTest, AddOnLinesAreLeftToTheAddOnToRecord) {
    host().macro().setRecording(true);
    ASSERT_TRUE(runner.runLine("$!ADDON \"Probe\" Go"));
    ASSERT_TRUE(runner.runLine("$!ADDON \"Probe\" Record"));
    EXPECT_EQ(std::vector<std::string>{"$!ADDON \"Probe\" Record"}, host().macro().lines());
}

TEST_F(MacroFileRunnerTest, FailingLinesAreNotRecorded) {
    host().macro().setRecording(true);
    failureOf("$!VIEW 1 2 3 4 5 6 7");  // no frame
    failureOf("$!SOLUTIONTIME x");
    EXPECT_TRUE(host().macro().lines().empty());
}

TEST_F(MacroFileRunnerTest, NothingIsRecordedWhileTheRecorderIsOff) {
    ASSERT_TRUE(runner.runLine("$!SOLUTIONTIME 0.5"));
    EXPECT_TRUE(host().macro().lines().empty());
}

// ---- Idle queue and host state after a line ----

TEST_F(MacroFileRunnerTest, IdleQueueRunsAfterEachLine) {
    ASSERT_TRUE(runner.runLine("$!ADDON \"Probe\" QueueIdle"));
    EXPECT_EQ(0u, host().idleQueue().pending());
    ASSERT_EQ(1u, host().userDialogs().messageBoxes().size());
    EXPECT_EQ("idle work ran", host().userDialogs().messageBoxes()[0].text);
}

TEST_F(MacroFileRunnerTest, IdleQueueRunsAlsoAfterAFailingLine) {
    VexUtilOnIdleQueueAddCallback(showIdleMessage, nullptr);
    failureOf("$!NOPE");
    EXPECT_EQ(0u, host().idleQueue().pending());
}

TEST_F(MacroFileRunnerTest, AQuestionWithNoAnswerFailsTheLineNamingTheQuestion) {
    EXPECT_EQ(
        "Host error: VexUtilDialogMessageBox: no answer was queued for the question "
        "\"Overwrite the file?\"; answered No",
        failureOf("$!ADDON \"Probe\" Ask"));
    EXPECT_TRUE(host().errors().empty());  // reported with the line, not twice
}

TEST_F(MacroFileRunnerTest, AQueuedAnswerLetsTheLineRun) {
    host().userDialogs().queueAnswer(true);
    EXPECT_EQ("", failureOf("$!ADDON \"Probe\" Ask"));
    EXPECT_TRUE(host().userDialogs().messageBoxes().at(0).answer);
}

TEST_F(MacroFileRunnerTest, ALockLeftHeldFailsTheLine) {
    EXPECT_EQ("The host lock is still held after the line (depth 1).",
              failureOf("$!ADDON \"Probe\" KeepLock"));
    VexUtilLockFinish(probeAddOn);
}

TEST_F(MacroFileRunnerTest, DrawingLeftSuspendedFailsTheLine) {
    EXPECT_EQ("Drawing is still suspended after the line.",
              failureOf("$!ADDON \"Probe\" KeepDrawingSuspended"));
    vextest::ScopedLock lock(probeAddOn);
    VexUtilDrawGraphics(true);
}

TEST_F(MacroFileRunnerTest, ProgressStatusLeftOpenFailsTheLine) {
    EXPECT_EQ("The progress status \"Working.\" is still open after the line.",
              failureOf("$!ADDON \"Probe\" KeepStatusOpen"));
    vextest::ScopedLock lock(probeAddOn);
    VexUtilStatusFinishPercentDone();
}

// ---- Streams and files ----

TEST_F(MacroFileRunnerTest, StreamStopsAtTheFirstFailingLineNamingSourceAndLine) {
    createFrame3D();
    std::istringstream macro("# first\n$!REDRAW\n\n$!VIEW 1\n$!REDRAW\n");
    EXPECT_FALSE(runner.runStream(macro, "flight.mcr"));
    EXPECT_EQ(std::vector<std::string>{"flight.mcr:4: $!VIEW needs 7 numbers (x y z psi theta "
                                       "alpha width); found 1 word."},
              failureTexts());
    EXPECT_EQ(1u, host().drawing().drawnFrames());
    EXPECT_EQ(1u, runner.failureCount());
}

TEST_F(MacroFileRunnerTest, StreamWithKeepGoingReportsEveryFailingLineAndRunsTheRest) {
    createFrame3D();
    runner.setKeepGoing(true);
    std::istringstream macro("$!NOPE\n$!REDRAW\n$!ADDON \"Probe\" Fail\n$!REDRAW\n");
    EXPECT_FALSE(runner.runStream(macro, "m.mcr"));
    EXPECT_EQ((std::vector<std::string>{"m.mcr:1: Unknown macro command \"$!NOPE\".",
                                        "m.mcr:3: Probe error:\nIt went wrong."}),
              failureTexts());
    EXPECT_EQ(2u, host().drawing().drawnFrames());
    EXPECT_EQ(4u, runner.commandCount());
}

TEST_F(MacroFileRunnerTest, StreamOfWindowsLinesRuns) {
    createFrame3D();
    std::istringstream macro("# comment\r\n$!REDRAW\r\n\r\n$!ADDON \"Probe\" Go\r\n");
    EXPECT_TRUE(runner.runStream(macro, "m.mcr")) << ::testing::PrintToString(failureTexts());
    EXPECT_EQ(std::vector<std::string>{"Go"}, probeCommands);
}

TEST_F(MacroFileRunnerTest, LineObserverHearsOfEveryCommandLineBeforeItsFailure) {
    std::vector<std::string> events;
    runner.setLineObserver([&] { events.push_back("line"); });
    runner.setFailureSink(
        [&](const MacroFileRunner::Failure& f) { events.push_back("failure " + f.text()); });
    runner.setKeepGoing(true);
    std::istringstream macro("# c\n$!SOLUTIONTIME 1\n$!NOPE\n");
    runner.runStream(macro, "m.mcr");
    EXPECT_EQ((std::vector<std::string>{"line", "line",
                                        "failure m.mcr:3: Unknown macro command \"$!NOPE\"."}),
              events);
}

TEST_F(MacroFileRunnerTest, MissingFileIsOneFailureNamingIt) {
    EXPECT_FALSE(runner.runFile("/nonexistent/flight.mcr"));
    EXPECT_EQ(std::vector<std::string>{"/nonexistent/flight.mcr: Cannot open the macro file: No "
                                       "such file or directory."},
              failureTexts());
}

TEST_F(MacroFileRunnerTest, DirectoryIsNoMacroFile) {
    EXPECT_FALSE(runner.runFile("/tmp"));
    EXPECT_EQ(std::vector<std::string>{"/tmp: Cannot read the macro file: it is a directory."},
              failureTexts());
}

// ---- Robustness ----

TEST_F(MacroFileRunnerTest, RandomLinesOnlyEverFailWithAMessage) {
    createFrame3D();
    addZone(0, 1);
    runner.setKeepGoing(true);
    const std::vector<std::string> pieces = {"$!",
                                             "$!ADDON",
                                             "\"Probe\"",
                                             "\"",
                                             " ",
                                             "\t",
                                             "=",
                                             "$!VIEW",
                                             "$!SET",
                                             "1",
                                             "-2.5e3",
                                             "nan",
                                             "1e999",
                                             "#",
                                             "\x01",
                                             "\xff",
                                             "ThreeDView",
                                             "ViewWidth",
                                             "$!EXPORTSETUP",
                                             "ExportFName",
                                             "ImageWidth",
                                             "$!ZONE",
                                             "$!SOLUTIONTIME",
                                             "$!REDRAW",
                                             "$!PLOTTYPE",
                                             "$!NEWFRAME",
                                             "Go",
                                             "Fail",
                                             "\"\"",
                                             "\r"};
    std::mt19937 random(20240601);
    std::size_t failed = 0;
    for (int n = 0; n < 3000; ++n) {
        std::string line;
        const int count = static_cast<int>(random() % 8);
        for (int k = 0; k < count; ++k)
            line += pieces[random() % pieces.size()];
        try {
            runner.runLine(line);
        } catch (const MacroError& error) {
            ++failed;
            EXPECT_NE(std::string(), error.what()) << line;
        }
        // A random line may delete the frame; keep one, so later lines reach further.
        if (host().frames().empty())
            createFrame3D();
    }
    EXPECT_GT(failed, 0u);
}

}  // namespace
