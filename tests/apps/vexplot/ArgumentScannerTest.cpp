// The shape of the programs' command lines: values after '=' or as the next argument, "--", "-".
#include "ArgumentScanner.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "UsageError.h"

namespace {

using vexplot::app::ArgumentScanner;

// "--flag" takes no value, "--value" takes one; every other option is unknown.
std::vector<std::string> scanned(const std::vector<std::string>& arguments) {
    std::vector<std::string> seen;
    ArgumentScanner::scan(
        arguments,
        [](const std::string& option) -> std::optional<bool> {
            if (option == "--flag" || option == "--value")
                return option == "--value";
            return std::nullopt;
        },
        [&seen](const std::string& option, const std::string& value) {
            seen.push_back(option + "(" + value + ")");
        },
        [&seen](const std::string& argument) { seen.push_back(argument); });
    return seen;
}

std::string failure(const std::vector<std::string>& arguments) {
    try {
        scanned(arguments);
    } catch (const vexplot::app::UsageError& error) {
        return error.what();
    }
    return "(no error)";
}

TEST(ArgumentScannerTest, TakesValuesEitherWayAndArgumentsInOrder) {
    EXPECT_EQ((std::vector<std::string>{"a", "--value(1)", "--flag()", "--value(x=y)", "-", "b"}),
              scanned({"a", "--value", "1", "--flag", "--value=x=y", "-", "b"}));
}

TEST(ArgumentScannerTest, AfterTwoDashesEverythingIsAnArgument) {
    EXPECT_EQ((std::vector<std::string>{"--flag()", "--value", "--"}),
              scanned({"--flag", "--", "--value", "--"}));
}

TEST(ArgumentScannerTest, SaysWhatIsWrong) {
    EXPECT_EQ("unknown option '--other'", failure({"--other=1"}));
    EXPECT_EQ("--flag takes no value", failure({"--flag=1"}));
    EXPECT_EQ("--value needs a value", failure({"--value"}));
}

TEST(ArgumentScannerTest, WholeNumbersAreWrittenInFullWithinTheirRange) {
    EXPECT_EQ(12, ArgumentScanner::wholeNumber("12", 0, 20));
    EXPECT_FALSE(ArgumentScanner::wholeNumber("12x", 0, 20));
    EXPECT_FALSE(ArgumentScanner::wholeNumber("21", 0, 20));
    EXPECT_FALSE(ArgumentScanner::wholeNumber("", 0, 20));
}

}  // namespace
