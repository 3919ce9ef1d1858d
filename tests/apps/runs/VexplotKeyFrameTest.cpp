// vexplot with the key frame add-on it loads by default: its macro commands replayed from macro
// files, their failures on stderr, recording and replay, Stop.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "support/ExportLogLines.h"
#include "support/KeyFrameData.h"
#include "support/TraceLines.h"
#include "support/VexplotProcess.h"

namespace {

using vextest::contains;
using vextest::exportStartedLine;
using vextest::linesOf;
using vextest::TraceFields;
using vextest::traceLineHead;
using vextest::traceLineStart;
using vextest::traceView;
using vextest::VexplotProcess;
using Result = VexplotProcess::Result;

// Two key frames, 3 frames from the first to the second: 4 frames in all.
const std::vector<vextest::KeyFrame_s> TwoKeyFrames = {
    vextest::keyFrame("Front", {1.5, -20, 3.25, 30, 45, 0, 12}, 3, 0),
    vextest::keyFrame("Top", {0, 0, 50, 0, 0, 0, 10}, 1, 0.5)};

const char* const Open = "$!ADDON \"Key Frame Animation\" OpenSettingsFile FileName=";
const char* const Save = "$!ADDON \"Key Frame Animation\" SaveSettingsFile FileName=";
const char* const Animate = "$!ADDON \"Key Frame Animation\" Animate";

class VexplotKeyFrameTest : public ::testing::Test {
protected:
    // Written as the add-on writes a settings file, so a file saved from it compares byte for
    // byte.
    void SetUp() override {
        vextest::writeSettingsFile(process.directory() + "/two.keyframe", TwoKeyFrames,
                                   vextest::AnimationSettings_s());
    }

    // The events of a trace file, in order.
    std::vector<std::string> traceEvents(const std::string& name) const {
        std::vector<std::string> events;
        for (const std::string& line : linesOf(process.readFile(name)))
            events.push_back(vextest::traceEventOf(line));
        return events;
    }

    VexplotProcess process;
};

TEST_F(VexplotKeyFrameTest, OpenedKeyFramesAnimateOnScreenFrameByFrame) {
    const Result result = process.runMacro(
        std::string(Open) + "two.keyframe\n" + Animate + " AnimationDestination=OnScreen\n",
        {"--trace", "out.jsonl"});
    EXPECT_EQ(0, result.exitStatus) << result.err;
    EXPECT_EQ((std::vector<std::string>{"redraw", "redraw", "redraw", "redraw", "exit"}),
              traceEvents("out.jsonl"));
    // The first and last frames are the key frames' views.
    const std::vector<std::string> lines = linesOf(process.readFile("out.jsonl"));
    EXPECT_TRUE(contains(lines.at(0), traceView({1.5, -20, 3.25, 30, 45, 0, 12})));
    EXPECT_TRUE(contains(lines.at(3), traceView({0, 0, 50, 0, 0, 0, 10})));
    EXPECT_TRUE(contains(result.err, "Animating.... Press [Esc] or click [Stop] to cancel.\n"));
}

TEST_F(VexplotKeyFrameTest, RecordedMacroReplaysToTheSameFrameTrace) {
    const Result recorded = process.runMacro(
        "$!VIEW 1 2 3 40 50 0 4\n"
        "$!REDRAW\n" +
            std::string(Open) + "two.keyframe\n" + Animate +
            " AnimationDestination=onscreen\n"
            "$!SOLUTIONTIME 0.5\n"
            "$!REDRAW\n",
        {"--trace", "first.jsonl", "--record", "recorded.mcr"});
    ASSERT_EQ(0, recorded.exitStatus) << recorded.err;
    // The add-on records its own commands, with the destination as it names it.
    EXPECT_EQ(
        "$!VIEW 1 2 3 40 50 0 4\n"
        "$!REDRAW\n"
        "$!ADDON \"Key Frame Animation\" OpenSettingsFile FileName=two.keyframe\n"
        "$!ADDON \"Key Frame Animation\" Animate AnimationDestination=OnScreen\n"
        "$!SOLUTIONTIME 0.5\n"
        "$!REDRAW\n",
        process.readFile("recorded.mcr"));

    const Result replayed = process.run({"--trace", "second.jsonl", "recorded.mcr"});
    ASSERT_EQ(0, replayed.exitStatus) << replayed.err;
    EXPECT_EQ(7u, linesOf(process.readFile("first.jsonl")).size());
    EXPECT_EQ(process.readFile("first.jsonl"), process.readFile("second.jsonl"));
}

TEST_F(VexplotKeyFrameTest, OpenSettingsFileOfABrokenFileFailsAndChangesNothing) {
    process.writeFile("broken.keyframe",
                      "#!KeyFrame 1\n\n%Settings\n AnimateTime false\n Bogus 3\n%Settings\n");
    const Result result = process.runMacro(std::string(Open) + "two.keyframe\n" + Open +
                                               "broken.keyframe\n" + Save + "saved.keyframe\n",
                                           {"--keep-going", "--record", "recorded.mcr"});
    EXPECT_EQ(1, result.exitStatus);
    EXPECT_EQ(
        "m.mcr:2: Key Frame Animation error:\n"
        "Error reading key frame settings file.\n\nUnrecognized setting entry.\n\n"
        "Error occurred on line number 5.\n",
        result.err);
    // The list and settings are still those of the first file, and the failed open is not
    // recorded.
    EXPECT_EQ(process.readFile("two.keyframe"), process.readFile("saved.keyframe"));
    EXPECT_EQ(std::string(Open) + "two.keyframe\n" + Save + "saved.keyframe\n",
              process.readFile("recorded.mcr"));
}

TEST_F(VexplotKeyFrameTest, FirstBrokenFileStopsTheRun) {
    process.writeFile("broken.keyframe", "#!KeyFrame 2\n");
    const Result result =
        process.runMacro(std::string(Open) + "broken.keyframe\n" + Save + "saved.keyframe\n");
    EXPECT_EQ(1, result.exitStatus);
    EXPECT_EQ(
        "m.mcr:1: Key Frame Animation error:\n"
        "File created with a newer version of the Key Frame add-on.\n",
        result.err);
    EXPECT_FALSE(process.exists("saved.keyframe"));
}

TEST_F(VexplotKeyFrameTest, SaveSettingsFileWithNoKeyFramesFailsAndCreatesNoFile) {
    const Result result =
        process.runMacro(std::string(Save) + "saved.keyframe\n", {"--record", "recorded.mcr"});
    EXPECT_EQ(1, result.exitStatus);
    EXPECT_EQ("m.mcr:1: Key Frame Animation error:\nNo Key Frames established.\n", result.err);
    EXPECT_FALSE(process.exists("saved.keyframe"));
    EXPECT_EQ("", process.readFile("recorded.mcr"));
}

TEST_F(VexplotKeyFrameTest, AnimateWithTheDestinationInLowerCaseRunsToFile) {
    const Result result =
        process.runMacro("$!EXPORTSETUP ExportFName = \"film.mp4\"\n" + std::string(Open) +
                             "two.keyframe\n" + Animate + " AnimationDestination=tofile\n",
                         {"--trace", "out.jsonl"});
    EXPECT_EQ(0, result.exitStatus) << result.err;
    EXPECT_EQ((std::vector<std::string>{"export-start", "export-frame", "export-frame",
                                        "export-frame", "export-finish", "exit"}),
              traceEvents("out.jsonl"));
    // The export log tells what was written.
    EXPECT_TRUE(contains(result.err, exportStartedLine(21, 800, 600, "film.mp4") + "\n"))
        << result.err;
}

TEST_F(VexplotKeyFrameTest, AnimateWithoutParametersNamesTheMissingParameter) {
    const Result result = process.runMacro(std::string(Open) + "two.keyframe\n" + Animate + "\n",
                                           {"--trace", "out.jsonl"});
    EXPECT_EQ(1, result.exitStatus);
    EXPECT_EQ(
        "m.mcr:2: Key Frame Animation error:\n"
        "Invalid macro command: missing value for parameter \"AnimationDestination\"\n",
        result.err);
    EXPECT_EQ(std::vector<std::string>{"exit"}, traceEvents("out.jsonl"));
}

TEST_F(VexplotKeyFrameTest, AnimateToScreenIsAnInvalidDestination) {
    const Result result = process.runMacro(std::string(Open) + "two.keyframe\n" + Animate +
                                           " AnimationDestination=Screen\n");
    EXPECT_EQ(1, result.exitStatus);
    EXPECT_EQ(
        "m.mcr:2: Key Frame Animation error:\n"
        "Invalid macro command: invalid value for parameter \"AnimationDestination\"\n",
        result.err);
}

TEST_F(VexplotKeyFrameTest, StopAtCancelsTheAnimation) {
    const Result result = process.runMacro(
        std::string(Open) + "two.keyframe\n" + Animate + " AnimationDestination=OnScreen\n",
        {"--stop-at", "4", "--trace", "out.jsonl"});
    EXPECT_EQ(1, result.exitStatus);
    EXPECT_TRUE(contains(result.err, "m.mcr:2: Key Frame Animation error:\nAnimation canceled.\n"))
        << result.err;
    EXPECT_LT(linesOf(process.readFile("out.jsonl")).size(), 5u);
}

TEST_F(VexplotKeyFrameTest, OpenSettingsFileOfAMissingFileSaysItCannotBeRead) {
    const Result result = process.runMacro(std::string(Open) + "\"no such.keyframe\"\n");
    EXPECT_EQ(1, result.exitStatus);
    EXPECT_EQ("m.mcr:1: Key Frame Animation error:\nUnable to open file for reading.\n",
              result.err);
}

TEST_F(VexplotKeyFrameTest, ExampleFlightAnimatesThroughItsFourKeyFrames) {
    // As the README runs it: from the top of the source tree.
    const char* sourceDir = std::getenv("VEX_TEST_SOURCE_DIR");
    ASSERT_NE(nullptr, sourceDir);
    const std::string trace = process.directory() + "/flight.jsonl";
    const Result result = process.run({"--trace", trace, "examples/flight.mcr"}, sourceDir);
    ASSERT_EQ(0, result.exitStatus) << result.err;
    const std::vector<std::string> lines = linesOf(process.readFile("flight.jsonl"));
    // 30 + 30 + 30 frames between the key frames, the last key frame, and the exit line.
    ASSERT_EQ(92u, lines.size());
    EXPECT_TRUE(contains(lines.front(), traceView({2.59808, -4.5, 3.1, 60, 30, 0, 3.2})));
    TraceFields lastKeyFrame;
    lastKeyFrame.view = {-5.0191, -2.89778, 1.65291, 75, -60, 0, 3.2};
    lastKeyFrame.solutionTime = 1;
    EXPECT_EQ(0u, lines[90].find(traceLineHead("redraw", lastKeyFrame))) << lines[90];
    EXPECT_EQ(0u, lines.back().find(traceLineStart("exit")));
}

}  // namespace
