// vexplot driving the key frame add-on's dialogs with $!UI lines, as a user at the screen does:
// building the list, the sensitivities, the messages the dialogs show, the export options and
// what they record, a recorded session replayed, and the example script.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "support/VexplotProcess.h"

namespace {

using vextest::contains;
using vextest::linesOf;
using vextest::VexplotProcess;
using Result = VexplotProcess::Result;
using Lines = std::vector<std::string>;

const std::string Open = "$!UI MENU \"Animate\" \"&Key Frame Animation...\"\n";
const std::string Main = "\"Key Frame Animation\"";

std::string press(const std::string& button) {
    return "$!UI PRESS " + Main + " \"" + button + "\"\n";
}

std::string select(const std::string& lines) {
    return "$!UI SELECT " + Main + " list:1 " + lines + "\n";
}

// Three key frames, each captured at a view of its own.
const std::string ThreeAppends = Open + "$!VIEW 2.59808 -4.5 3.1 60 30 0 3.2\n" + press("Append") +
                                 "$!VIEW 5.19615 0 3.1 60 90 0 3.2\n" + press("Append") +
                                 "$!VIEW 0 5.19615 3.1 60 180 0 3.2\n" + press("Append");
const std::string Dump = "$!UI DUMP " + Main + "\n";

class VexplotDialogTest : public ::testing::Test {
protected:
    // The dump line of the control whose line contains `part` (the first one).
    static std::string dumpLine(const std::string& dump, const std::string& part) {
        for (const std::string& line : linesOf(dump)) {
            if (contains(line, part))
                return line;
        }
        return "";
    }

    // The list lines of the last dump in the output: the indented entries after "list #".
    static Lines listEntries(const std::string& out) {
        Lines entries;
        bool inList = false;
        for (const std::string& line : linesOf(out)) {
            if (contains(line, "  list #")) {
                inList = true;
                entries.clear();
            } else if (inList && line.rfind("    ", 0) == 0) {
                entries.push_back(line.substr(4));
            } else {
                inList = false;
            }
        }
        return entries;
    }

    static bool isSensitive(const std::string& dump, const std::string& label) {
        const std::string line = dumpLine(dump, label);
        EXPECT_FALSE(line.empty()) << label;
        return contains(line, " sensitive");
    }

    VexplotProcess process;
};

TEST_F(VexplotDialogTest, ThreeAppendsAreViews1To3With30FramesAndTheFourthTakesAChangedCount) {
    const Result result =
        process.runMacro(ThreeAppends + select("3") + Dump + "$!UI TYPE " + Main +
                         " \"Frame Count:\" \"12\"\n" + press("Append") + select("4") + Dump);
    ASSERT_EQ(0, result.exitStatus) << result.err;
    const std::string firstDump = result.out.substr(0, result.out.find("dialog #", 1));
    EXPECT_EQ(listEntries(firstDump), (Lines{"1 \"View 1\"", "2 \"View 2\"", "3 \"View 3\""}));
    EXPECT_TRUE(contains(dumpLine(firstDump, "beside \"Frame Count:\""), "text \"30\""));
    EXPECT_EQ(listEntries(result.out),
              (Lines{"1 \"View 1\"", "2 \"View 2\"", "3 \"View 3\"", "4 \"View 4\""}));
    EXPECT_TRUE(contains(
        dumpLine(result.out.substr(result.out.find("dialog #", 1)), "beside \"Frame Count:\""),
        "text \"12\""));
}

TEST_F(VexplotDialogTest, InsertWithTheFirstLineSelectedPutsView4InLine1) {
    const Result result = process.runMacro(ThreeAppends + select("1") + press("Insert") + Dump);
    ASSERT_EQ(0, result.exitStatus) << result.err;
    EXPECT_EQ(listEntries(result.out),
              (Lines{"1 \"View 4\"", "2 \"View 1\"", "3 \"View 2\"", "4 \"View 3\""}));
}

TEST_F(VexplotDialogTest, SensitivitiesWithNoOneAndTwoSelectedLines) {
    const Result result =
        process.runMacro(ThreeAppends + Dump + select("2") + Dump + select("2 3") + Dump);
    ASSERT_EQ(0, result.exitStatus) << result.err;
    std::vector<std::string> dumps;
    std::size_t start = 0;
    while (start != std::string::npos) {
        const std::size_t next = result.out.find("dialog #", start + 1);
        dumps.push_back(result.out.substr(start, next == std::string::npos ? next : next - start));
        start = next;
    }
    ASSERT_EQ(dumps.size(), 3u);
    // No line selected.
    EXPECT_FALSE(isSensitive(dumps[0], "\"A&pply        \""));
    EXPECT_FALSE(isSensitive(dumps[0], "\"&Delete       \""));
    EXPECT_FALSE(isSensitive(dumps[0], "\"  Animate \\n&Selected\""));
    EXPECT_TRUE(isSensitive(dumps[0], "\"A&nimate\\nAll\""));
    EXPECT_TRUE(isSensitive(dumps[0], "\"&Clear         \""));
    // One line.
    EXPECT_TRUE(isSensitive(dumps[1], "\"A&pply        \""));
    EXPECT_TRUE(isSensitive(dumps[1], "\"&Update      \""));
    EXPECT_TRUE(isSensitive(dumps[1], "beside \"View Name:\""));
    EXPECT_TRUE(isSensitive(dumps[1], "\"&Delete       \""));
    EXPECT_FALSE(isSensitive(dumps[1], "\"  Animate \\n&Selected\""));
    EXPECT_TRUE(contains(dumpLine(dumps[1], "beside \"View Name:\""), "text \"View 2\""));
    // Two lines.
    EXPECT_FALSE(isSensitive(dumps[2], "\"A&pply        \""));
    EXPECT_FALSE(isSensitive(dumps[2], "beside \"View Name:\""));
    EXPECT_TRUE(isSensitive(dumps[2], "beside \"Frame Count:\""));
    EXPECT_TRUE(isSensitive(dumps[2], "\"  Animate \\n&Selected\""));
}

TEST_F(VexplotDialogTest, AnEmptyListLeavesOnlyAppendAndTheDestinationEnabled) {
    const Result result = process.runMacro(Open + Dump);
    ASSERT_EQ(0, result.exitStatus) << result.err;
    EXPECT_EQ(listEntries(result.out), Lines{"1 \"No Key Frames established.\""});
    int sensitiveControls = 0;
    for (const std::string& line : linesOf(result.out)) {
        if (line.rfind("  ", 0) == 0 && line.rfind("    ", 0) != 0 &&
            contains(line, " sensitive") && !contains(line, "menubar") &&
            !contains(line, "  label #"))
            ++sensitiveControls;
    }
    EXPECT_EQ(sensitiveControls, 2);
    EXPECT_TRUE(isSensitive(result.out, "\"&Append     \""));
    EXPECT_TRUE(isSensitive(result.out, "beside \"Destination:\""));
}

TEST_F(VexplotDialogTest, AnimateSelectedNeedsAContinuousRange) {
    const Result result = process.runMacro(ThreeAppends + select("1 3") + press("Animate Selected"),
                                           {"--trace", "t.jsonl"});
    ASSERT_EQ(0, result.exitStatus) << result.err;
    EXPECT_TRUE(contains(result.err, "Selected items must be a continuous range.\n")) << result.err;
    EXPECT_FALSE(contains(result.err, "Animating....")) << result.err;
    // Only the exit line: nothing was drawn.
    EXPECT_EQ(linesOf(process.readFile("t.jsonl")).size(), 1u);
}

TEST_F(VexplotDialogTest, AnimateSelectedToFileResetsTheDestinationWithAMessage) {
    const Result result =
        process.runMacro(ThreeAppends + "$!UI OPTION " + Main + " \"Destination:\" \"To File\"\n" +
                         select("1 2") + press("Animate Selected") + Dump);
    ASSERT_EQ(0, result.exitStatus) << result.err;
    EXPECT_TRUE(contains(result.err,
                         "\"Animate Selected\" does not support output to file.\n"
                         "The destination has been reset to \"On Screen\".\n"))
        << result.err;
    EXPECT_TRUE(contains(dumpLine(result.out, "beside \"Destination:\""), "choice 1"));
    EXPECT_TRUE(contains(result.err, "Animating....")) << result.err;
}

TEST_F(VexplotDialogTest, AnEmptyViewNameIsRefusedAndTheNameRestored) {
    const Result result = process.runMacro(ThreeAppends + select("2") + "$!UI TYPE " + Main +
                                           " \"View Name:\" \"\"\n" + Dump);
    ASSERT_EQ(0, result.exitStatus) << result.err;
    EXPECT_EQ(result.err, "The view name must be at least one character.\n");
    EXPECT_TRUE(contains(dumpLine(result.out, "beside \"View Name:\""), "text \"View 2\""));
    EXPECT_EQ(listEntries(result.out), (Lines{"1 \"View 1\"", "2 \"View 2\"", "3 \"View 3\""}));
}

TEST_F(VexplotDialogTest, TheExportOptionsRecordTheSixLinesOfAnMpeg4Export) {
    const Result result =
        process.runMacro(ThreeAppends + "$!UI OPTION " + Main + " \"Destination:\" \"To File\"\n" +
                             press("Animate All") + "$!UI OK \"Export Options\"\n",
                         {"--record", "rec.mcr", "--file-name", "movie.mp4"});
    ASSERT_EQ(0, result.exitStatus) << result.err;
    Lines exportSetup;
    for (const std::string& line : linesOf(process.readFile("rec.mcr"))) {
        if (line.rfind("$!EXPORTSETUP", 0) == 0)
            exportSetup.push_back(line);
    }
    EXPECT_EQ(
        exportSetup,
        (Lines{"$!EXPORTSETUP ExportFormat = MPEG4", "$!EXPORTSETUP ExportRegion = CURRENTFRAME",
               "$!EXPORTSETUP ImageWidth = 800", "$!EXPORTSETUP AnimationSpeed = 10",
               "$!EXPORTSETUP UseSuperSampleAntiAliasing = false",
               "$!EXPORTSETUP ExportFName = \"movie.mp4\""}));
    EXPECT_EQ(linesOf(process.readFile("rec.mcr")).back(),
              "$!ADDON \"Key Frame Animation\" Animate AnimationDestination=ToFile");
}

TEST_F(VexplotDialogTest, AnEnteredWidthOf1000OnAn800By600FrameGives1000By750) {
    const Result result =
        process.runMacro(ThreeAppends + "$!UI OPTION " + Main + " \"Destination:\" \"To File\"\n" +
                         press("Animate All") + "$!UI RADIO \"Export Options\" \"Enter Width:\"\n" +
                         "$!UI TYPE \"Export Options\" textfield:1 \"1000\"\n" +
                         "$!UI DUMP \"Export Options\"\n" + "$!UI CANCEL \"Export Options\"\n");
    ASSERT_EQ(0, result.exitStatus) << result.err;
    EXPECT_TRUE(contains(result.out, "label #") &&
                !dumpLine(result.out, "\"Dimensions: 1000 x 750\"").empty())
        << result.out;
}

TEST_F(VexplotDialogTest, ARunThatEndsWithAModalDialogUpFails) {
    const Result result = process.runMacro(Open + "$!UI DIALOGMENU " + Main +
                                           " \"Options\" \"Time Animation Options...\"\n");
    EXPECT_EQ(1, result.exitStatus);
    EXPECT_TRUE(contains(result.err,
                         "the modal dialog \"Time Animation Options\" is still up, holding its "
                         "add-on's lock"))
        << result.err;
}

TEST_F(VexplotDialogTest, ModalDialogsHoldTheLockOnlyUntilOkOrCancel) {
    const Result result = process.runMacro(
        ThreeAppends + "$!UI DIALOGMENU " + Main + " \"Options\" \"Time Animation Options...\"\n" +
        "$!UI RADIO \"Time Animation Options\" \"Loop\"\n" +
        "$!UI SPIN \"Time Animation Options\" \"Num Cycles:\" UP\n" +
        "$!UI OK \"Time Animation Options\"\n" + press("Append") + Dump);
    ASSERT_EQ(0, result.exitStatus) << result.err;
    EXPECT_TRUE(contains(dumpLine(result.out, "\"Animate &Time Concurrently\""), " on"));
    EXPECT_EQ(listEntries(result.out).size(), 4u);
}

TEST_F(VexplotDialogTest, ARecordedSessionReplaysToTheSameFileAndFrames) {
    // A user builds two key frames, renames one, saves the list, and animates it to a file.
    const std::string session =
        Open + "$!VIEW 2.59808 -4.5 3.1 60 30 0 3.2\n" + press("Append") +
        "$!VIEW 5.19615 0 3.1 60 90 0 3.2\n" + press("Append") + select("1") + "$!UI TYPE " + Main +
        " \"View Name:\" \"Start\"\n" + "$!UI DIALOGMENU " + Main +
        " \"File\" \"Save Animation File As...\"\n" + "$!UI OPTION " + Main +
        " \"Destination:\" \"To File\"\n" + press("Animate All") + "$!UI OK \"Export Options\"\n";
    const Result recorded =
        process.runMacro(session, {"--record", "rec.mcr", "--trace", "first.jsonl", "--file-name",
                                   "flight.keyframe", "--file-name", "movie.mp4"});
    ASSERT_EQ(0, recorded.exitStatus) << recorded.err;
    const std::string savedFile = process.readFile("flight.keyframe");
    ASSERT_TRUE(contains(savedFile, "\"Start\"")) << savedFile;

    const Result replayed = process.run({"--trace", "second.jsonl", "rec.mcr"});
    ASSERT_EQ(0, replayed.exitStatus) << replayed.err << process.readFile("rec.mcr");
    EXPECT_EQ(process.readFile("flight.keyframe"), savedFile);
    const Lines first = linesOf(process.readFile("first.jsonl"));
    const Lines second = linesOf(process.readFile("second.jsonl"));
    EXPECT_GT(first.size(), 30u);
    EXPECT_EQ(first, second);
}

TEST_F(VexplotDialogTest, TheExampleBuildsItsListThroughTheDialogAndAnimatesIt) {
    // As the README runs it: from the top of the source tree.
    const char* sourceDir = std::getenv("VEX_TEST_SOURCE_DIR");
    ASSERT_NE(nullptr, sourceDir);
    const std::string trace = process.directory() + "/dialog.jsonl";
    const Result result = process.run({"--trace", trace, "examples/dialog.mcr"}, sourceDir);
    ASSERT_EQ(0, result.exitStatus) << result.err;
    EXPECT_EQ(listEntries(result.out), (Lines{"1 \"View 1\"", "2 \"Side\"", "3 \"View 3\""}));
    const Lines lines = linesOf(process.readFile("dialog.jsonl"));
    // 30 + 45 frames between the key frames, the last key frame, and the exit line.
    ASSERT_EQ(77u, lines.size());
    EXPECT_TRUE(contains(lines.front(), "\"view\": [2.59808, -4.5, 3.1, ")) << lines.front();
    // Faded in from black.
    EXPECT_TRUE(contains(lines.front(), "\"intensity\": 0,")) << lines.front();
}

}  // namespace
