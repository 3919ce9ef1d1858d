// vexplot run as a user runs it: options, exit statuses, what it prints, the frame trace and the
// recorded macro. Most cases load the probe add-on (tests/apps/probe), which asks questions, opens
// file dialogs, shows progress and fails on demand through the SDK.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/ExportLogLines.h"
#include "support/TraceLines.h"
#include "support/VexplotProcess.h"
#include "vexhost/FrameStack.h"
#include "vexhost/FrameTrace.h"
#include "vexhost/Host.h"
#include "vexhost/SceneState.h"

namespace {

using vextest::contains;
using vextest::exportStartedLine;
using vextest::linesOf;
using vextest::movieWrittenLine;
using vextest::TraceFields;
using vextest::traceLine;
using vextest::traceLineStart;
using vextest::VexplotProcess;
using Result = VexplotProcess::Result;

class VexplotTest : public ::testing::Test {
protected:
    // Runs vexplot with the probe add-on and a macro of these lines (m.mcr).
    Result runProbe(const std::string& macro, std::vector<std::string> options = {}) {
        options.insert(options.begin(), {"--addon", VEXPLOT_PROBE_ADDON_PATH});
        return process.runMacro(macro, std::move(options));
    }

    VexplotProcess process;
};

// ---- Command line ----

TEST_F(VexplotTest, HelpPrintsTheUsageAndExitsZero) {
    const Result result = process.run({"--help"});
    EXPECT_EQ(0, result.exitStatus);
    EXPECT_EQ(0u, result.out.find("Usage: vexplot [options] [MACRO_FILE ...]\n"));
    EXPECT_EQ("", result.err);
}

TEST_F(VexplotTest, UnknownOptionExitsTwoNamingIt) {
    const Result result = process.run({"--fast", "m.mcr"});
    EXPECT_EQ(2, result.exitStatus);
    EXPECT_EQ("vexplot: unknown option '--fast'\nTry 'vexplot --help' for the options.\n",
              result.err);
    EXPECT_EQ("", result.out);
}

TEST_F(VexplotTest, BadOptionValueExitsTwoNamingIt) {
    const Result result = process.run({"--size", "big"});
    EXPECT_EQ(2, result.exitStatus);
    EXPECT_EQ(0u, result.err.find("vexplot: --size needs WIDTHxHEIGHT in pixels"));
}

// ---- Loading the add-on ----

TEST_F(VexplotTest, AddOnThatCannotBeLoadedExitsOneNamingThePathAndTheReason) {
    const Result result = process.run({"--addon", "/nonexistent/libnothing.so"});
    EXPECT_EQ(1, result.exitStatus);
    EXPECT_EQ(
        "vexplot: Cannot load the add-on library \"/nonexistent/libnothing.so\": "
        "/nonexistent/libnothing.so: cannot open shared object file: No such file or "
        "directory\n",
        result.err);
}

TEST_F(VexplotTest, LibraryWithoutTheEntryPointExitsOneNamingIt) {
    const std::string path = VEXHOST_LIBRARY_PATH;
    const Result result = process.run({"--addon", path});
    EXPECT_EQ(1, result.exitStatus);
    EXPECT_EQ(0u, result.err.find("vexplot: The add-on library \"" + path +
                                  "\" has no entry point InitVexAddOn113: "))
        << result.err;
}

TEST_F(VexplotTest, DefaultAddOnIsTheKeyFrameAddOnBuiltWithTheProgram) {
    process.writeFile("m.mcr", "$!ADDON \"Key Frame Animation\" Frobnicate\n");
    const Result result = process.run({"m.mcr"});
    EXPECT_EQ(1, result.exitStatus);
    // The add-on answered: its error heading says it is loaded and got the command.
    EXPECT_EQ(0u, result.err.find("m.mcr:1: Key Frame Animation error:\n")) << result.err;
}

// ---- Running macro files ----

TEST_F(VexplotTest, MacroLinesRunAndTheRunExitsZero) {
    const Result result = runProbe("# comment\n\n$!ADDON \"Probe\" Error Shown as it stands.\n");
    EXPECT_EQ(0, result.exitStatus);
    EXPECT_EQ("Shown as it stands.\nProbe heard the shutdown.\n", result.err);
    EXPECT_EQ("", result.out);
}

TEST_F(VexplotTest, FirstFailingLineStopsTheRunNamingFileAndLine) {
    const Result result = runProbe(
        "$!ADDON \"Probe\" Error first\n"
        "\n"
        "$!ADDON \"Probe\" Fail Broken.\n"
        "$!ADDON \"Probe\" Error not reached\n");
    EXPECT_EQ(1, result.exitStatus);
    EXPECT_EQ("first\nm.mcr:3: Broken.\nProbe heard the shutdown.\n", result.err);
}

TEST_F(VexplotTest, KeepGoingReportsEveryFailingLineAndExitsOne) {
    const Result result = runProbe(
        "$!ADDON \"Probe\" Fail One.\n"
        "$!NOPE\n"
        "$!ADDON \"Probe\" Error reached\n",
        {"--keep-going"});
    EXPECT_EQ(1, result.exitStatus);
    EXPECT_EQ(
        "m.mcr:1: One.\nm.mcr:2: Unknown macro command \"$!NOPE\".\nreached\n"
        "Probe heard the shutdown.\n",
        result.err);
}

TEST_F(VexplotTest, MacroFilesRunInOrder) {
    process.writeFile("a.mcr", "$!ADDON \"Probe\" Error a\n");
    process.writeFile("b.mcr", "$!ADDON \"Probe\" Error b\n");
    const Result result =
        process.run({"--addon", VEXPLOT_PROBE_ADDON_PATH, "b.mcr", "a.mcr", "b.mcr"});
    EXPECT_EQ(0, result.exitStatus);
    EXPECT_EQ("b\na\nb\nProbe heard the shutdown.\n", result.err);
}

TEST_F(VexplotTest, MissingMacroFileExitsOneNamingIt) {
    process.writeFile("b.mcr", "$!ADDON \"Probe\" Error b\n");
    const Result result = process.run({"--addon", VEXPLOT_PROBE_ADDON_PATH, "nope.mcr", "b.mcr"});
    EXPECT_EQ(1, result.exitStatus);
    EXPECT_EQ(
        "nope.mcr: Cannot open the macro file: No such file or directory.\n"
        "Probe heard the shutdown.\n",
        result.err);
}

TEST_F(VexplotTest, MissingMacroFileWithKeepGoingRunsTheNextFile) {
    process.writeFile("b.mcr", "$!ADDON \"Probe\" Error b\n");
    const Result result =
        process.run({"--addon", VEXPLOT_PROBE_ADDON_PATH, "--keep-going", "nope.mcr", "b.mcr"});
    EXPECT_EQ(1, result.exitStatus);
    EXPECT_EQ(
        "nope.mcr: Cannot open the macro file: No such file or directory.\nb\n"
        "Probe heard the shutdown.\n",
        result.err);
}

TEST_F(VexplotTest, IdleWorkRunsAfterTheLineThatQueuedIt) {
    const Result result = runProbe(
        "$!ADDON \"Probe\" Idle queued first\n"
        "$!ADDON \"Probe\" Error second line\n");
    EXPECT_EQ(0, result.exitStatus);
    EXPECT_EQ("queued first\nsecond line\nProbe heard the shutdown.\n", result.err);
}

// ---- Answers, file names, Stop ----

TEST_F(VexplotTest, AnswersAreTakenInTheOrderGiven) {
    const Result result = runProbe(
        "$!ADDON \"Probe\" Ask Replace it?\n"
        "$!ADDON \"Probe\" Ask Really?\n",
        {"--answer", "yes", "--answer", "no"});
    EXPECT_EQ(0, result.exitStatus);
    EXPECT_EQ(
        "Replace it?\n(answered Yes)\nAnswer: Yes\nReally?\n(answered No)\nAnswer: No\n"
        "Probe heard the shutdown.\n",
        result.err);
}

TEST_F(VexplotTest, QuestionWithNoAnswerFailsTheLineNamingTheQuestion) {
    const Result result = runProbe("$!ADDON \"Probe\" Ask Replace it?\n");
    EXPECT_EQ(1, result.exitStatus);
    EXPECT_EQ(
        "Replace it?\n(answered No)\nAnswer: No\n"
        "m.mcr:1: Host error: VexUtilDialogMessageBox: no answer was queued for the "
        "question \"Replace it?\"; answered No\n"
        "Probe heard the shutdown.\n",
        result.err);
}

TEST_F(VexplotTest, FileNamesAreTakenInOrderAndNoneLeftIsCancel) {
    const Result result = runProbe(
        "$!ADDON \"Probe\" ChooseFile\n"
        "$!ADDON \"Probe\" ChooseFile\n"
        "$!ADDON \"Probe\" ChooseFile\n",
        {"--file-name", "first.txt", "--file-name", "second one.txt"});
    EXPECT_EQ(0, result.exitStatus);
    EXPECT_EQ(
        "File: first.txt\nFile: second one.txt\nFile: canceled\n"
        "Probe heard the shutdown.\n",
        result.err);
}

TEST_F(VexplotTest, StopAtPressesStopAtThatProgressCheck) {
    const Result result = runProbe("$!ADDON \"Probe\" Progress 5\n", {"--stop-at", "3"});
    EXPECT_EQ(1, result.exitStatus);
    EXPECT_EQ(
        "Working.\nWorking. 20%\nWorking. 40%\nWorking. 60%\nm.mcr:1: Stopped at check 3.\n"
        "Probe heard the shutdown.\n",
        result.err);
}

TEST_F(VexplotTest, ProgressPrintsALineOnlyWhenThePercentageChanges) {
    const Result result = runProbe("$!ADDON \"Probe\" Progress 1000\n");
    EXPECT_EQ(0, result.exitStatus);
    const std::vector<std::string> lines = linesOf(result.err);
    // The status text, 0% .. 100% once each, "Done." and the shutdown.
    ASSERT_EQ(1u + 101u + 2u, lines.size()) << result.err;
    EXPECT_EQ("Working.", lines[0]);
    EXPECT_EQ("Working. 0%", lines[1]);
    EXPECT_EQ("Working. 100%", lines[101]);
    EXPECT_EQ("Done.", lines[102]);
}

// ---- Frame, trace, export log ----

TEST_F(VexplotTest, SizeSetsTheFramesSizeInPixels) {
    const Result result = runProbe("$!ADDON \"Probe\" FrameSize\n", {"--size", "640x480"});
    EXPECT_EQ(0, result.exitStatus);
    EXPECT_EQ(0u, result.err.find("Frame: 640 x 480\n")) << result.err;
}

TEST_F(VexplotTest, FrameIsEightHundredBySixHundredPixelsByDefault) {
    const Result result = runProbe("$!ADDON \"Probe\" FrameSize\n");
    EXPECT_EQ(0u, result.err.find("Frame: 800 x 600\n")) << result.err;
}

TEST_F(VexplotTest, TraceHasEveryDrawnFrameAndTheExitLine) {
    const Result result = runProbe(
        "$!VIEW 1 2 3 40 50 0 4\n"
        "$!REDRAW\n"
        "$!SOLUTIONTIME 0.5\n"
        "$!ADDON \"Probe\" Redraw\n",
        {"--trace", "out.jsonl", "--data", "none"});
    EXPECT_EQ(0, result.exitStatus) << result.err;
    TraceFields atZero;
    atZero.view = {1, 2, 3, 40, 50, 0, 4};
    TraceFields atHalf = atZero;
    atHalf.solutionTime = 0.5;
    EXPECT_EQ(traceLine("redraw", atZero) + "\n" + traceLine("redraw", atHalf) + "\n" +
                  traceLine("exit", atHalf) + "\n",
              process.readFile("out.jsonl"));
}

TEST_F(VexplotTest, TraceGetsItsExitLineAlsoWhenTheRunFails) {
    const Result result = runProbe("$!ADDON \"Probe\" Fail No.\n", {"--trace", "out.jsonl"});
    EXPECT_EQ(1, result.exitStatus);
    const std::vector<std::string> lines = linesOf(process.readFile("out.jsonl"));
    ASSERT_EQ(1u, lines.size());
    EXPECT_EQ(0u, lines[0].find(traceLineStart("exit")));
}

TEST_F(VexplotTest, WithoutDataTheRunEndsInTheHostsDefaultState) {
    const Result result = runProbe("", {"--trace", "none.jsonl", "--data", "none"});
    EXPECT_EQ(0, result.exitStatus);
    // A frame with the default view and every style value at its default.
    vexhost::Host::instance().reset();
    vexhost::Host::instance().frames().create();
    EXPECT_EQ(
        vexhost::FrameTrace::formatLine("exit", vexhost::Host::instance().scene(false)) + "\n",
        process.readFile("none.jsonl"));
    vexhost::Host::instance().reset();
}

TEST_F(VexplotTest, DemoDataSetMovesTheViewToFrameTheData) {
    runProbe("", {"--trace", "demo.jsonl"});
    runProbe("", {"--trace", "none.jsonl", "--data", "none"});
    const std::string demo = process.readFile("demo.jsonl");
    EXPECT_EQ(0u, demo.find(traceLineStart("exit"))) << demo;
    EXPECT_NE(demo, process.readFile("none.jsonl"));
}

TEST_F(VexplotTest, TraceThatCannotBeWrittenExitsOneNamingIt) {
    const Result result = runProbe("", {"--trace", "no/such/dir/out.jsonl"});
    EXPECT_EQ(1, result.exitStatus);
    EXPECT_TRUE(contains(result.err, "no/such/dir/out.jsonl")) << result.err;
}

TEST_F(VexplotTest, ExportLogGoesToStandardError) {
    const Result result = runProbe(
        "$!EXPORTSETUP ExportFName = \"film.mp4\"\n"
        "$!ADDON \"Probe\" Export 3\n",
        {"--data", "none"});
    EXPECT_EQ(0, result.exitStatus) << result.err;
    // vexplot writes real movies.
    EXPECT_EQ(exportStartedLine(21, 800, 600, "film.mp4") + "\n" +
                  movieWrittenLine(3, 800, 600, 10, "H.264 in MP4", "film.mp4") + "\n" +
                  "Probe heard the shutdown.\n",
              result.err);
    EXPECT_TRUE(process.exists("film.mp4"));
}

TEST_F(VexplotTest, ShutdownIsSentAlsoWithoutMacroFiles) {
    const Result result = process.run({"--addon", VEXPLOT_PROBE_ADDON_PATH});
    EXPECT_EQ(0, result.exitStatus);
    EXPECT_EQ("Probe heard the shutdown.\n", result.err);
}

// ---- Recording ----

TEST_F(VexplotTest, RecordedMacroReplaysToTheSameFrameTrace) {
    const Result recorded = runProbe(
        "# a comment is not recorded\n"
        "$!VIEW 1 2 3 40 50 0 4\n"
        "$!ADDON \"Probe\" Redraw\n"
        "$!SET GlobalThreeD LightSource Intensity = 50\n"
        "$!SOLUTIONTIME 0.4\n"
        "$!REDRAW\n"
        "$!ADDON \"Probe\" Redraw\n",
        {"--trace", "first.jsonl", "--record", "recorded.mcr"});
    ASSERT_EQ(0, recorded.exitStatus) << recorded.err;
    EXPECT_EQ(
        "$!VIEW 1 2 3 40 50 0 4\n"
        "$!ADDON \"Probe\" Redraw\n"
        "$!SET GlobalThreeD LightSource Intensity = 50\n"
        "$!SOLUTIONTIME 0.4\n"
        "$!REDRAW\n"
        "$!ADDON \"Probe\" Redraw\n",
        process.readFile("recorded.mcr"));

    const Result replayed = process.run(
        {"--addon", VEXPLOT_PROBE_ADDON_PATH, "--trace", "second.jsonl", "recorded.mcr"});
    ASSERT_EQ(0, replayed.exitStatus) << replayed.err;
    EXPECT_EQ(4u, linesOf(process.readFile("first.jsonl")).size());
    EXPECT_EQ(process.readFile("first.jsonl"), process.readFile("second.jsonl"));
}

TEST_F(VexplotTest, RecordedMacroIsWrittenAlsoWhenTheRunFails) {
    const Result result =
        runProbe("$!SOLUTIONTIME 1\n$!ADDON \"Probe\" Fail No.\n$!SOLUTIONTIME 2\n",
                 {"--record", "recorded.mcr"});
    EXPECT_EQ(1, result.exitStatus);
    EXPECT_EQ("$!SOLUTIONTIME 1\n", process.readFile("recorded.mcr"));
}

TEST_F(VexplotTest, RecordedMacroIsEmptyWhenNothingRan) {
    const Result result =
        process.run({"--addon", VEXPLOT_PROBE_ADDON_PATH, "--record", "recorded.mcr"});
    EXPECT_EQ(0, result.exitStatus);
    EXPECT_TRUE(process.exists("recorded.mcr"));
    EXPECT_EQ("", process.readFile("recorded.mcr"));
}

// ---- Broken input ----

TEST_F(VexplotTest, BinaryJunkFailsTheLineWithoutACrash) {
    std::string junk = "$!ADDON \"Probe\" Error ok\n";
    for (int i = 0; i < 4096; ++i)
        junk += static_cast<char>((i * 7919) % 256);
    junk += "\n";
    const Result result = runProbe(junk, {"--keep-going"});
    EXPECT_EQ(1, result.exitStatus);
    EXPECT_EQ(0u, result.err.find("ok\nm.mcr:2: ")) << result.err;
}

}  // namespace
