// vexplot's command line: every option, both value forms, and every value it refuses.
#include "CommandLine.h"

#include <gtest/gtest.h>

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

TEST(CommandLineTest, HelpIsRecognisedInBothForms) {
    EXPECT_TRUE(CommandLine::parse({"--help"}).help);
    EXPECT_TRUE(CommandLine::parse({"-h"}).help);
}

TEST(CommandLineTest, UsageNamesEveryOption) {
    const std::string usage = CommandLine::usage();
    for (const char* option :
         {"--addon", "--data", "--demo-triangles", "--trace", "--record", "--answer", "--file-name",
          "--stop-at", "--keep-going", "--size", "--help"}) {
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
        BadCommandLine{"EmptyTrace", {"--trace="}, "--trace needs a file name"},
        BadCommandLine{"EmptyRecord", {"--record", ""}, "--record needs a file name"},
        BadCommandLine{"EmptyAddOn", {"--addon="}, "--addon needs the path of an add-on library"},
        BadCommandLine{"EmptyFileName", {"--file-name="}, "--file-name needs a file name"},
        BadCommandLine{"UnknownData", {"--data", "big"}, "--data takes demo or none; found 'big'"},
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
