// vexpath's command line: each command's options, what each needs, and the scene options read by
// vexplot's own command line.
#include "PathCommandLine.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "UsageError.h"

namespace {

using vexplot::app::RunOptions;
using vexplot::app::UsageError;
using vexplot::path::PathCommandLine;
using vexplot::path::PathOptions;
using Command = PathOptions::Command;

std::string usageError(const std::vector<std::string>& arguments) {
    try {
        PathCommandLine::parse(arguments);
    } catch (const UsageError& error) {
        return error.what();
    }
    return "(no error)";
}

TEST(PathCommandLineTest, CheckTakesAFileAndJson) {
    const PathOptions options = PathCommandLine::parse({"check", "f.keyframe", "--json"});
    EXPECT_EQ(Command::Check, options.command);
    EXPECT_EQ("f.keyframe", options.input);
    EXPECT_TRUE(options.json);
    EXPECT_EQ(RunOptions::Data::Demo, options.scene.data);
}

TEST(PathCommandLineTest, SceneOptionsAreVexplots) {
    const PathOptions options = PathCommandLine::parse(
        {"check", "--data=hill.pvd", "f.keyframe", "--size", "640x480", "--addon", "my.so"});
    EXPECT_EQ(RunOptions::Data::File, options.scene.data);
    EXPECT_EQ("hill.pvd", options.scene.dataPath);
    EXPECT_EQ(640, options.scene.width);
    EXPECT_EQ(480, options.scene.height);
    EXPECT_EQ("my.so", options.scene.addOnPath);
    EXPECT_EQ(
        "--size needs WIDTHxHEIGHT in pixels, each from 1 to 32766 (as in 800x600); found "
        "'big'",
        usageError({"check", "f", "--size", "big"}));
}

TEST(PathCommandLineTest, RetimeTakesFramesOrADurationAtARate) {
    PathOptions options =
        PathCommandLine::parse({"retime", "in.keyframe", "-o", "out.keyframe", "--frames", "120"});
    EXPECT_EQ(Command::Retime, options.command);
    EXPECT_EQ("out.keyframe", options.output);
    EXPECT_EQ(120u, options.frames);
    EXPECT_FALSE(options.ease);
    options = PathCommandLine::parse(
        {"retime", "in.keyframe", "--in-place", "--duration", "4.5", "--fps", "24", "--ease"});
    EXPECT_TRUE(options.inPlace);
    EXPECT_EQ(108u, options.frames);
    EXPECT_TRUE(options.ease);
}

TEST(PathCommandLineTest, RetimeNeedsOneOutputAndOneLength) {
    EXPECT_EQ("retime needs one of -o OUT and --in-place",
              usageError({"retime", "in", "--frames", "10"}));
    EXPECT_EQ("retime needs one of -o OUT and --in-place",
              usageError({"retime", "in", "-o", "out", "--in-place", "--frames", "10"}));
    EXPECT_EQ("retime needs either --frames N or --duration S with --fps F",
              usageError({"retime", "in", "-o", "out"}));
    EXPECT_EQ("retime needs either --frames N or --duration S with --fps F",
              usageError({"retime", "in", "-o", "out", "--frames", "9", "--fps", "30"}));
    EXPECT_EQ("--duration and --fps go together",
              usageError({"retime", "in", "-o", "out", "--duration", "3"}));
    EXPECT_EQ("--frames needs a whole number from 2 to 1000000; found '1'",
              usageError({"retime", "in", "-o", "out", "--frames", "1"}));
    EXPECT_EQ("--fps needs a number above 0; found '-3'",
              usageError({"retime", "in", "-o", "out", "--duration", "3", "--fps", "-3"}));
    EXPECT_EQ("the key frame file to read is missing",
              usageError({"retime", "-o", "out", "--frames", "9"}));
}

TEST(PathCommandLineTest, OrbitHasDefaultsAndNeedsAnOutput) {
    PathOptions options = PathCommandLine::parse({"orbit", "-o", "o.keyframe"});
    EXPECT_EQ(Command::Orbit, options.command);
    EXPECT_EQ(360, options.angle);
    EXPECT_EQ(PathCommandLine::DefaultOrbitFrames, options.frames);
    EXPECT_EQ("", options.from);
    options = PathCommandLine::parse(
        {"orbit", "-o", "o.keyframe", "--angle=-90", "--frames", "31", "--from", "a.keyframe"});
    EXPECT_EQ(-90, options.angle);
    EXPECT_EQ(31u, options.frames);
    EXPECT_EQ("a.keyframe", options.from);
    EXPECT_EQ("orbit needs -o OUT", usageError({"orbit"}));
    EXPECT_EQ("unexpected argument 'x.keyframe'", usageError({"orbit", "-o", "o", "x.keyframe"}));
    EXPECT_EQ("--angle needs a number of degrees other than 0, at most 36000 either way; found '0'",
              usageError({"orbit", "-o", "o", "--angle", "0"}));
}

TEST(PathCommandLineTest, PictureAndSheetTakeAFileAndAnOutput) {
    const PathOptions picture =
        PathCommandLine::parse({"picture", "f.keyframe", "-o", "p.png", "--size", "640x480"});
    EXPECT_EQ(Command::Picture, picture.command);
    EXPECT_EQ("f.keyframe", picture.input);
    EXPECT_EQ("p.png", picture.output);
    EXPECT_EQ(640, picture.scene.width);
    const PathOptions coloured = PathCommandLine::parse(
        {"picture", "f", "-o", "p.png", "--data", "d.vtu", "--color-by", "T", "--colormap",
         "viridis", "--streamtraces", "v", "--seed-line", "0,0,0,1,1,1,5"});
    EXPECT_EQ("T", coloured.scene.dataOptions.colourBy);
    EXPECT_EQ("v", coloured.scene.dataOptions.streamtraceArray);
    const PathOptions sheet =
        PathCommandLine::parse({"sheet", "f.keyframe", "-o", "s.png", "--columns", "2"});
    EXPECT_EQ(Command::Sheet, sheet.command);
    EXPECT_EQ(2, sheet.columns);
    EXPECT_EQ(0, PathCommandLine::parse({"sheet", "f", "-o", "s.png"}).columns);
    EXPECT_EQ("picture needs -o OUT.png", usageError({"picture", "f"}));
    EXPECT_EQ("sheet needs -o OUT.png", usageError({"sheet", "f"}));
    EXPECT_EQ("the key frame file to read is missing", usageError({"picture", "-o", "p.png"}));
    EXPECT_EQ("--columns needs a whole number from 1 to 64; found '0'",
              usageError({"sheet", "f", "-o", "s.png", "--columns", "0"}));
    EXPECT_EQ("--columns is not an option of this command",
              usageError({"picture", "f", "-o", "p.png", "--columns", "2"}));
}

TEST(PathCommandLineTest, OptionsBelongToTheirCommands) {
    EXPECT_EQ("--json is not an option of this command",
              usageError({"retime", "in", "-o", "out", "--frames", "9", "--json"}));
    EXPECT_EQ("--ease is not an option of this command", usageError({"check", "f", "--ease"}));
    EXPECT_EQ("unknown option '--speed'", usageError({"check", "f", "--speed", "2"}));
    EXPECT_EQ("--json takes no value", usageError({"check", "f", "--json=yes"}));
    EXPECT_EQ("-o needs a value", usageError({"orbit", "-o"}));
}

TEST(PathCommandLineTest, ACommandComesFirst) {
    EXPECT_EQ("a command is missing: check, retime, orbit, picture or sheet", usageError({}));
    EXPECT_EQ("unknown command 'draw'", usageError({"draw", "f"}));
    EXPECT_EQ("unknown command 'check'", usageError({"--json", "check", "f"}));
}

TEST(PathCommandLineTest, HelpNeedsNothingElse) {
    EXPECT_TRUE(PathCommandLine::parse({"--help"}).help);
    const PathOptions options = PathCommandLine::parse({"retime", "-h"});
    EXPECT_TRUE(options.help);
    EXPECT_EQ(Command::Retime, options.command);
    EXPECT_EQ(0u,
              std::string(PathCommandLine::usage(Command::Retime)).find("Usage: vexpath retime"));
    EXPECT_EQ(0u, std::string(PathCommandLine::usage(Command::None)).find("Usage: vexpath check"));
}

}  // namespace
