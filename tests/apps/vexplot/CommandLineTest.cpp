// vexplot's command line: every option, both value forms, and every value it refuses.
#include "CommandLine.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "UsageError.h"

namespace vexplot {
namespace app {

void PrintTo(RunOptions::Data data, std::ostream* out) {
    *out << (data == RunOptions::Data::Demo ? "Demo" : "None");
}

}  // namespace app
}  // namespace vexplot

namespace {

using vexplot::app::CommandLine;
using vexplot::app::RunOptions;
using vexplot::app::UsageError;

TEST(CommandLineTest, NoArgumentsGiveTheDefaults) {
    const RunOptions options = CommandLine::parse({});
    EXPECT_FALSE(options.help);
    EXPECT_EQ("", options.addOnPath);
    EXPECT_EQ(RunOptions::Data::Demo, options.data);
    EXPECT_EQ(20000, options.demoTriangles);
    EXPECT_EQ("", options.tracePath);
    EXPECT_EQ("", options.recordPath);
    EXPECT_TRUE(options.answers.empty());
    EXPECT_TRUE(options.fileNames.empty());
    EXPECT_EQ(0u, options.stopAt);
    EXPECT_FALSE(options.keepGoing);
    EXPECT_EQ(800, options.width);
    EXPECT_EQ(600, options.height);
    EXPECT_TRUE(options.macroFiles.empty());
}

TEST(CommandLineTest, EveryOptionIsRead) {
    const RunOptions options = CommandLine::parse(
        {"--addon",      "lib/x.so",   "--data",      "none",    "--trace",   "t.jsonl",
         "--record",     "r.mcr",      "--answer",    "yes",     "--answer",  "NO",
         "--file-name",  "a.keyframe", "--file-name", "b c.mp4", "--stop-at", "12",
         "--keep-going", "--size",     "640x480",     "one.mcr", "two.mcr",   "--demo-triangles",
         "100000"});
    EXPECT_EQ("lib/x.so", options.addOnPath);
    EXPECT_EQ(RunOptions::Data::None, options.data);
    EXPECT_EQ(100000, options.demoTriangles);
    EXPECT_EQ("t.jsonl", options.tracePath);
    EXPECT_EQ("r.mcr", options.recordPath);
    EXPECT_EQ((std::vector<bool>{true, false}), options.answers);
    EXPECT_EQ((std::vector<std::string>{"a.keyframe", "b c.mp4"}), options.fileNames);
    EXPECT_EQ(12u, options.stopAt);
    EXPECT_TRUE(options.keepGoing);
    EXPECT_EQ(640, options.width);
    EXPECT_EQ(480, options.height);
    EXPECT_EQ((std::vector<std::string>{"one.mcr", "two.mcr"}), options.macroFiles);
}

TEST(CommandLineTest, ValuesMayFollowAnEqualsSign) {
    const RunOptions options =
        CommandLine::parse({"--trace=a=b.jsonl", "--size=3X2", "--answer=yes", "--data=demo"});
    EXPECT_EQ("a=b.jsonl", options.tracePath);
    EXPECT_EQ(3, options.width);
    EXPECT_EQ(2, options.height);
    EXPECT_EQ(std::vector<bool>{true}, options.answers);
    EXPECT_EQ(RunOptions::Data::Demo, options.data);
}

TEST(CommandLineTest, MacroFilesMayComeBetweenOptions) {
    const RunOptions options = CommandLine::parse({"a.mcr", "--keep-going", "b.mcr"});
    EXPECT_EQ((std::vector<std::string>{"a.mcr", "b.mcr"}), options.macroFiles);
    EXPECT_TRUE(options.keepGoing);
}

TEST(CommandLineTest, DoubleDashEndsTheOptions) {
    const RunOptions options = CommandLine::parse({"--", "--help", "-"});
    EXPECT_FALSE(options.help);
    EXPECT_EQ((std::vector<std::string>{"--help", "-"}), options.macroFiles);
}

TEST(CommandLineTest, LaterValueOfAnOptionWins) {
    const RunOptions options = CommandLine::parse({"--trace", "a", "--trace", "b"});
    EXPECT_EQ("b", options.tracePath);
}

TEST(CommandLineTest, ReadsADataFileWithItsColourBlocksAndSeeds) {
    const RunOptions line = CommandLine::parse(
        {"--data", "out/flow_*.vtu", "--color-by=velocity:X", "--hide-block", "air", "--hide-block",
         "inlet", "--streamtraces", "velocity", "--seed-line", "0,-1.5,2e-1,1,1.5,0.2,12"});
    EXPECT_EQ(RunOptions::Data::File, line.data);
    EXPECT_EQ("out/flow_*.vtu", line.dataPath);
    EXPECT_EQ("velocity:X", line.dataOptions.colourBy);
    EXPECT_EQ(vexhost::ColourMap::Rainbow, line.dataOptions.colourMap);
    EXPECT_EQ((std::vector<std::string>{"air", "inlet"}), line.dataOptions.hiddenBlocks);
    EXPECT_EQ("velocity", line.dataOptions.streamtraceArray);
    const vexhost::DataFileOptions::Seed& seed = line.dataOptions.seed;
    EXPECT_EQ(vexhost::DataFileOptions::Seed::Kind::Line, seed.kind);
    EXPECT_EQ((std::array<double, 3>{0, -1.5, 0.2}), seed.start);
    EXPECT_EQ((std::array<double, 3>{1, 1.5, 0.2}), seed.end);
    EXPECT_EQ(12, seed.count);

    const RunOptions plane =
        CommandLine::parse({"--data=case.vtm", "--colormap", "CoolWarm", "--streamtraces", "U",
                            "--seed-plane", "0,0,0,1,0,0,0,2,0,4,5"});
    EXPECT_EQ(vexhost::ColourMap::CoolWarm, plane.dataOptions.colourMap);
    EXPECT_EQ(vexhost::ColourMap::Viridis,
              CommandLine::parse({"--colormap=viridis"}).dataOptions.colourMap);
    EXPECT_EQ(vexhost::DataFileOptions::Seed::Kind::Plane, plane.dataOptions.seed.kind);
    EXPECT_EQ((std::array<double, 3>{0, 2, 0}), plane.dataOptions.seed.across);
    EXPECT_EQ(4, plane.dataOptions.seed.count);
    EXPECT_EQ(5, plane.dataOptions.seed.countAcross);
}

TEST(CommandLineTest, ServeTakesAPortAndAnAddress) {
    RunOptions options = CommandLine::parse({"--serve", "8080", "setup.mcr"});
    EXPECT_TRUE(options.serve);
    EXPECT_EQ("127.0.0.1", options.serveAddress);
    EXPECT_EQ(8080, options.servePort);
    EXPECT_EQ(std::vector<std::string>{"setup.mcr"}, options.macroFiles);
    options = CommandLine::parse({"--serve=0.0.0.0:0", "--root", "a", "--root=b", "--web", "w"});
    EXPECT_EQ("0.0.0.0", options.serveAddress);
    EXPECT_EQ(0, options.servePort);
    EXPECT_EQ((std::vector<std::string>{"a", "b"}), options.roots);
    EXPECT_EQ("w", options.webDirectory);
    EXPECT_EQ("::1", CommandLine::parse({"--serve", "[::1]:9000"}).serveAddress);
    EXPECT_EQ("127.0.0.1", CommandLine::parse({"--serve", "localhost:9000"}).serveAddress);
    EXPECT_FALSE(CommandLine::parse({}).serve);
}

TEST(CommandLineTest, ParallelExportIsASwitch) {
    EXPECT_FALSE(CommandLine::parse({"film.mcr"}).parallelExport);
    EXPECT_TRUE(CommandLine::parse({"--parallel-export", "film.mcr"}).parallelExport);
}

TEST(CommandLineTest, HelpIsRecognisedInBothForms) {
    EXPECT_TRUE(CommandLine::parse({"--help"}).help);
    EXPECT_TRUE(CommandLine::parse({"-h"}).help);
}

TEST(CommandLineTest, UsageNamesEveryOption) {
    const std::string usage = CommandLine::usage();
    for (const char* option :
         {"--addon",          "--data",         "--demo-triangles", "--color-by",   "--colormap",
          "--hide-block",     "--streamtraces", "--seed-line",      "--seed-plane", "--trace",
          "--record",         "--answer",       "--file-name",      "--stop-at",    "--keep-going",
          "--size",           "--serve",        "--root",           "--web",        "--help",
          "--parallel-export"}) {
        EXPECT_NE(std::string::npos, usage.find(option)) << option;
    }
    EXPECT_EQ(0u, usage.find("Usage: vexplot [options] [MACRO_FILE ...]\n"));
}

struct BadCommandLine {
    const char* name;
    std::vector<std::string> arguments;
    const char* message;
};

std::ostream& operator<<(std::ostream& out, const BadCommandLine& row) {
    return out << row.name;
}

class BadCommandLineTest : public ::testing::TestWithParam<BadCommandLine> {};

TEST_P(BadCommandLineTest, IsRefusedNamingWhatWasWrong) {
    try {
        CommandLine::parse(GetParam().arguments);
        FAIL() << "accepted";
    } catch (const UsageError& error) {
        EXPECT_STREQ(GetParam().message, error.what());
    }
}

INSTANTIATE_TEST_SUITE_P(
    EveryOption, BadCommandLineTest,
    ::testing::Values(
        BadCommandLine{"UnknownOption", {"--fast"}, "unknown option '--fast'"},
        BadCommandLine{"UnknownShortOption", {"-x"}, "unknown option '-x'"},
        BadCommandLine{"UnknownOptionWithValue", {"--fast=yes"}, "unknown option '--fast'"},
        BadCommandLine{"MissingValue", {"--trace"}, "--trace needs a value"},
        BadCommandLine{"ServeWord",
                       {"--serve", "web"},
                       "--serve needs [HOST:]PORT, PORT from 0 (any free port) to 65535 (as in "
                       "8080 or 127.0.0.1:8080); found 'web'"},
        BadCommandLine{"ServePortTooLarge",
                       {"--serve", "127.0.0.1:65536"},
                       "--serve needs [HOST:]PORT, PORT from 0 (any free port) to 65535 (as in "
                       "8080 or 127.0.0.1:8080); found '127.0.0.1:65536'"},
        BadCommandLine{"ServeNoHost",
                       {"--serve", ":80"},
                       "--serve needs [HOST:]PORT, PORT from 0 (any free port) to 65535 (as in "
                       "8080 or 127.0.0.1:8080); found ':80'"},
        BadCommandLine{"RootWithoutServe", {"--root", "."}, "--root needs --serve"},
        BadCommandLine{"ParallelExportServing",
                       {"--parallel-export", "--serve", "0"},
                       "--parallel-export cannot be used with --serve"},
        BadCommandLine{
            "ParallelExportWithValue", {"--parallel-export=4"}, "--parallel-export takes no value"},
        BadCommandLine{"WebWithoutServe", {"--web", "w"}, "--web needs --serve"},
        BadCommandLine{"EmptyRoot", {"--serve", "0", "--root="}, "--root needs a folder"},
        BadCommandLine{"EmptyTrace", {"--trace="}, "--trace needs a file name"},
        BadCommandLine{"EmptyRecord", {"--record", ""}, "--record needs a file name"},
        BadCommandLine{"EmptyAddOn", {"--addon="}, "--addon needs the path of an add-on library"},
        BadCommandLine{"EmptyFileName", {"--file-name="}, "--file-name needs a file name"},
        BadCommandLine{"EmptyData", {"--data="}, "--data takes demo, none or a data file"},
        BadCommandLine{"EmptyColourBy", {"--color-by="}, "--color-by needs the name of an array"},
        BadCommandLine{"UnknownColourMap",
                       {"--colormap", "jet"},
                       "--colormap takes rainbow, viridis, coolwarm; found 'jet'"},
        BadCommandLine{"ColourByWithoutFile",
                       {"--color-by", "p"},
                       "--color-by needs a data file (--data FILE)"},
        BadCommandLine{"HideBlockOfTheDemo",
                       {"--data", "demo", "--hide-block", "air"},
                       "--hide-block needs a data file (--data FILE)"},
        BadCommandLine{"StreamtracesWithoutSeed",
                       {"--data", "f.vtu", "--streamtraces", "U"},
                       "--streamtraces needs a seed: --seed-line or --seed-plane"},
        BadCommandLine{"SeedWithoutStreamtraces",
                       {"--data", "f.vtu", "--seed-line", "0,0,0,1,1,1,4"},
                       "a seed needs --streamtraces ARRAY"},
        BadCommandLine{"SeedLineShort",
                       {"--data", "f.vtu", "--streamtraces", "U", "--seed-line", "0,0,0,1,1,1"},
                       "--seed-line needs X1,Y1,Z1,X2,Y2,Z2,COUNT: two points and the number of "
                       "seeds between them (2 to 10000); found '0,0,0,1,1,1'"},
        BadCommandLine{"SeedLineOneSeed",
                       {"--data", "f.vtu", "--streamtraces", "U", "--seed-line", "0,0,0,1,1,1,1"},
                       "--seed-line needs X1,Y1,Z1,X2,Y2,Z2,COUNT: two points and the number of "
                       "seeds between them (2 to 10000); found '0,0,0,1,1,1,1'"},
        BadCommandLine{
            "SeedPlaneWord",
            {"--data", "f.vtu", "--streamtraces", "U", "--seed-plane", "0,0,0,1,0,0,0,1,x,3,3"},
            "--seed-plane needs OX,OY,OZ,AX,AY,AZ,BX,BY,BZ,NA,NB: a corner, the corners "
            "at the ends of its two edges and the number of seeds along each (2 to "
            "10000); found '0,0,0,1,0,0,0,1,x,3,3'"},
        BadCommandLine{"DemoTrianglesTooFew",
                       {"--demo-triangles", "1"},
                       "--demo-triangles needs a whole number from 2 to 1000000; found '1'"},
        BadCommandLine{"DemoTrianglesTooMany",
                       {"--demo-triangles=1000001"},
                       "--demo-triangles needs a whole number from 2 to 1000000; found '1000001'"},
        BadCommandLine{"DemoTrianglesWord",
                       {"--demo-triangles", "many"},
                       "--demo-triangles needs a whole number from 2 to 1000000; found 'many'"},
        BadCommandLine{
            "UnknownAnswer", {"--answer", "maybe"}, "--answer takes yes or no; found 'maybe'"},
        BadCommandLine{"StopAtZero",
                       {"--stop-at", "0"},
                       "--stop-at needs a whole number from 1 up; found '0'"},
        BadCommandLine{"StopAtWord",
                       {"--stop-at", "ten"},
                       "--stop-at needs a whole number from 1 up; found 'ten'"},
        BadCommandLine{"StopAtNegative",
                       {"--stop-at=-3"},
                       "--stop-at needs a whole number from 1 up; found '-3'"},
        BadCommandLine{"SizeWithoutHeight",
                       {"--size", "800"},
                       "--size needs WIDTHxHEIGHT in pixels, each from 1 to 32766 (as in "
                       "800x600); found '800'"},
        BadCommandLine{"SizeZero",
                       {"--size", "0x600"},
                       "--size needs WIDTHxHEIGHT in pixels, each from 1 to 32766 (as in "
                       "800x600); found '0x600'"},
        BadCommandLine{"SizeTooLarge",
                       {"--size", "800x40000"},
                       "--size needs WIDTHxHEIGHT in pixels, each from 1 to 32766 (as in "
                       "800x600); found '800x40000'"},
        BadCommandLine{"SizeWithJunk",
                       {"--size", "800x600px"},
                       "--size needs WIDTHxHEIGHT in pixels, each from 1 to 32766 (as in "
                       "800x600); found '800x600px'"},
        BadCommandLine{"HelpWithValue", {"--help=yes"}, "--help takes no value"},
        BadCommandLine{"KeepGoingWithValue", {"--keep-going=1"}, "--keep-going takes no value"}),
    [](const ::testing::TestParamInfo<BadCommandLine>& info) { return info.param.name; });

}  // namespace
