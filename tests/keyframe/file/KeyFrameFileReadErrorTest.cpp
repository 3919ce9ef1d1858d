// The reader's failures, one row per case: the file's text and the exact failure. Every row also
// checks (through readFailing) that the caller's settings and list are untouched.
#include "file/KeyFrameFile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <ostream>
#include <string>

#include "KeyFrameFileFixture.h"

namespace vexplot {
namespace vexutiltools {
namespace {

struct ReadErrorCase {
    const char* name;
    std::string text;
    std::string type;
    std::string message;
};

std::ostream& operator<<(std::ostream& out, const ReadErrorCase& row) {
    return out << row.name;
}

const std::string Header = "#!KeyFrame 1\n";
// A key frame section up to, not including, its Width line (lines 2 to 5 after the header).
const std::string ViewStart = "%KeyFrameView\n Name \"v\"\n Position 1 2 3\n Angle 4 5 6\n";
const std::string ViewEnd = "%KeyFrameView\n";

ReadErrorCase bare(const char* name, const std::string& text, const std::string& message) {
    return {name, text, "KeyFrameError", message};
}

ReadErrorCase atLine(const char* name, const std::string& text, const std::string& message,
                     int lineNumber) {
    return {name, text, "KeyFrameError", lineError(message, lineNumber)};
}

ReadErrorCase outOfRange(const char* name, const std::string& text, const std::string& message) {
    return {name, text, "std::out_of_range", message};
}

const std::string BooleanMessage =
    "Invalid value for FadeIn setting.\nValue must be \"true\" or \"false\".";
const std::string NumCyclesMessage =
    "Invalid value for NumCycles setting.\nValue must be an integer greater than 1.";

std::string mismatch(int read) {
    return "Mismatch between number of expected values and number of values that could be "
           "read.\nNumber of expected values: 3\nNumber of values read: " +
           std::to_string(read);
}

std::string conversion(const std::string& token) {
    return "Error reading item from file.\nUnable to convert input to appropriate value: " + token;
}

const ReadErrorCase Cases[] = {
    // The header.
    bare("EmptyFile", "", "Invalid file header."),
    bare("BlankLinesOnly", "\n \n\t\n", "Invalid file header."),
    bare("MagicWordAlone", "#!KeyFrame\n", "Invalid file header."),
    bare("MagicWordWithALetterAdded", "#!KeyFrames 1\n", "Invalid file header."),
    bare("MagicWordTooShort", "#!KeyFram 1\n", "Invalid file header."),
    bare("NonNumericVersion", "#!KeyFrame one\n", "Invalid file header."),
    bare("OtherWord", "%Settings 1\n", "Invalid file header."),
    bare("VersionTwo", "#!KeyFrame 2\n",
         "File created with a newer version of the Key Frame add-on."),
    bare("VersionBeyond32Bits", "#!KeyFrame 99999999999\n",
         "File created with a newer version of the Key Frame add-on."),
    bare("VersionTwoInLowerCase", "#!keyframe 2\n" + ViewStart + ViewEnd,
         "File created with a newer version of the Key Frame add-on."),

    // Top level.
    atLine("UnknownSection", Header + "\n%Animation\n", "Unknown section header: %Animation", 3),
    atLine("SectionNameWithMoreText", Header + "%Settings now\n%Settings\n",
           "Unknown section header: %Settings now", 2),
    atLine("ItemOutsideASection", Header + " FadeIn true\n", "Unknown section header: FadeIn true",
           2),
    atLine("CommentsAreNotSkipped", Header + "# a comment\n", "Unknown section header: # a comment",
           2),
    atLine("ErrorOnTheFifthPhysicalLine", "\n\n#!KeyFrame 1\n\nbad line\n",
           "Unknown section header: bad line", 5),

    // The settings section.
    atLine("UnknownSetting", Header + "%Settings\n Speed 3\n%Settings\n",
           "Unrecognized setting entry.", 3),
    // The blank line at the end is the fourth physical line; the end of the file is no line.
    atLine("SettingsEndMissingAtEndOfFile", Header + "%Settings\n FadeIn true\n\n",
           "Missing end marker for Settings section.", 4),
    atLine("SettingsEndMissingRightAfterTheHeaderLine", Header + "%Settings",
           "Missing end marker for Settings section.", 2),
    atLine("KeyFrameViewInsideSettings",
           Header + "%Settings\n FadeIn true\n\n%KeyFrameView\n%Settings\n",
           "Missing end marker for Settings section.", 5),
    atLine("BooleanInUpperCase", Header + "%Settings\n FadeIn TRUE\n%Settings\n", BooleanMessage,
           3),
    atLine("BooleanAsDigit", Header + "%Settings\n FadeIn 1\n%Settings\n", BooleanMessage, 3),
    atLine("BooleanMissing", Header + "%Settings\n FadeIn\n%Settings\n", BooleanMessage, 3),
    atLine("BooleanNamedAsTheTableSpellsIt", Header + "%Settings\n fadein yes\n%Settings\n",
           BooleanMessage, 3),
    atLine("OtherBooleanSettings", Header + "%Settings\n ANIMATETIME no\n%Settings\n",
           "Invalid value for AnimateTime setting.\nValue must be \"true\" or \"false\".", 3),
    atLine("StreamtracesBoolean", Header + "%Settings\n AnimateStreamtraces 0\n%Settings\n",
           "Invalid value for AnimateStreamtraces setting.\nValue must be \"true\" or \"false\".",
           3),
    atLine("FadeOutBoolean", Header + "%Settings\n FadeOut False\n%Settings\n",
           "Invalid value for FadeOut setting.\nValue must be \"true\" or \"false\".", 3),
    atLine("NumCyclesZero", Header + "%Settings\n NumCycles 0\n%Settings\n", NumCyclesMessage, 3),
    atLine("NumCyclesNegative", Header + "%Settings\n NumCycles -4\n%Settings\n", NumCyclesMessage,
           3),
    atLine("NumCyclesNotANumber", Header + "%Settings\n NumCycles many\n%Settings\n",
           NumCyclesMessage, 3),
    atLine("NumCyclesBeyond32Bits", Header + "%Settings\n NumCycles 4294967296\n%Settings\n",
           NumCyclesMessage, 3),
    outOfRange("UnknownOperationHasNoHeadingAndNoLineNumber",
               Header + "%Settings\n TimeAnimationOperation Sideways\n%Settings\n",
               "Enumeration out of range."),
    outOfRange("MissingOperation", Header + "%Settings\n TimeAnimationOperation\n%Settings\n",
               "Enumeration out of range."),

    // The key frame section.
    atLine("UnknownKeyFrameItem", Header + ViewStart + " Zoom 3\n" + ViewEnd,
           "Unrecognized KeyFrameItem entry.", 6),
    atLine("KeyFrameViewEndMissingAtEndOfFile", Header + ViewStart,
           "Missing end marker for KeyFrameView section.", 5),
    atLine("SettingsInsideKeyFrameView", Header + ViewStart + "%settings\n" + ViewEnd,
           "Missing end marker for KeyFrameView section.", 6),
    atLine("NameWithoutQuotationMarks", Header + "%KeyFrameView\n Name view\n" + ViewEnd,
           "View name must be surrounded in quotation marks.", 3),
    atLine("NameWithoutClosingMark", Header + "%KeyFrameView\n Name \"view\n" + ViewEnd,
           "View name must be surrounded in quotation marks.", 3),
    atLine("NameOpeningMarkLast", Header + "%KeyFrameView\n Name \"\n" + ViewEnd,
           "View name must be surrounded in quotation marks.", 3),
    atLine("NameEmpty", Header + "%KeyFrameView\n Name \"\" more\n" + ViewEnd,
           "Unable to read view name.", 3),
    atLine("PositionWithTwoNumbers", Header + "%KeyFrameView\n Position 1 2\n" + ViewEnd,
           mismatch(2), 3),
    atLine("PositionWithFourNumbers", Header + "%KeyFrameView\n Position 1 2 3 4\n" + ViewEnd,
           mismatch(4), 3),
    atLine("PositionWithoutNumbers", Header + "%KeyFrameView\n Position\n" + ViewEnd, mismatch(0),
           3),
    atLine("PositionWithALetter", Header + "%KeyFrameView\n Position 1 q 3\n" + ViewEnd,
           conversion("q"), 3),
    atLine("AngleWithAWord", Header + "%KeyFrameView\n Angle 1 2 three\n" + ViewEnd,
           conversion("three"), 3),
    // A number too large for a double is named itself, not the token after it, also at the end.
    atLine("PositionWithANumberBeyondADouble",
           Header + "%KeyFrameView\n Position 1 1e400 3\n" + ViewEnd, conversion("1e400"), 3),
    atLine("AngleEndingInANumberBeyondADouble",
           Header + "%KeyFrameView\n Angle 1 2 -1e400\n" + ViewEnd, conversion("-1e400"), 3),
    atLine("AngleWithTwoNumbers", Header + "%KeyFrameView\n\n Angle 1 2\n" + ViewEnd, mismatch(2),
           4),
    atLine("WidthNotANumber", Header + ViewStart + " Width wide\n" + ViewEnd,
           "Unable to read width value.", 6),
    atLine("WidthMissing", Header + ViewStart + " Width\n" + ViewEnd, "Unable to read width value.",
           6),
    atLine("WidthTooLarge", Header + ViewStart + " Width 1.0001e150\n" + ViewEnd,
           "Invalid width value. Width must be between -1e150 and 1e150", 6),
    atLine("WidthTooSmall", Header + ViewStart + " Width -2e150\n" + ViewEnd,
           "Invalid width value. Width must be between -1e150 and 1e150", 6),
    atLine("FrameCountNotANumberSaysWidth", Header + ViewStart + " FrameCount lots\n" + ViewEnd,
           "Unable to read width value.", 6),
    atLine("FrameCountNegative", Header + ViewStart + " FrameCount -1\n" + ViewEnd,
           "Unable to read width value.", 6),
    atLine("FrameCountBeyond64Bits",
           Header + ViewStart + " FrameCount 18446744073709551616\n" + ViewEnd,
           "Unable to read width value.", 6),
    atLine("FrameCountZero", Header + ViewStart + " FrameCount 0\n" + ViewEnd,
           "Invalid frameCount value.", 6),
    atLine("SolutionTimeNotANumber", Header + ViewStart + " SolutionTime later\n" + ViewEnd,
           "Unable to read solution time value.", 6),
    atLine("ErrorInTheSecondKeyFrame",
           Header + ViewStart + ViewEnd + "\n" + ViewStart + " SolutionTime x\n" + ViewEnd,
           "Unable to read solution time value.", 12),
    outOfRange("SectionWithoutPosition",
               Header + "%KeyFrameView\n Name \"v\"\n Angle 4 5 6\n" + ViewEnd,
               "invalid vector subscript"),
    outOfRange("SectionWithoutAngle",
               Header + "%KeyFrameView\n Name \"v\"\n Position 1 2 3\n" + ViewEnd,
               "invalid vector subscript"),
    outOfRange("EmptySection", Header + "%KeyFrameView\n" + ViewEnd, "invalid vector subscript"),
    // A good key frame before a broken one is not kept either.
    outOfRange("BrokenSectionAfterAGoodOne", Header + ViewStart + ViewEnd + ViewEnd + ViewEnd,
               "invalid vector subscript"),
};

class KeyFrameFileReadErrorTest : public KeyFrameFileFixture,
                                  public ::testing::WithParamInterface<ReadErrorCase> {};

TEST_P(KeyFrameFileReadErrorTest, FailsWithTheExactTextAndChangesNothing) {
    const ReadFailure failure = readTextFailing(GetParam().text);
    EXPECT_EQ(failure.type, GetParam().type);
    EXPECT_EQ(failure.message, GetParam().message);
}

INSTANTIATE_TEST_SUITE_P(Cases, KeyFrameFileReadErrorTest, ::testing::ValuesIn(Cases),
                         [](const ::testing::TestParamInfo<ReadErrorCase>& info) {
                             return std::string(info.param.name);
                         });

using KeyFrameFileOpenTest = KeyFrameFileFixture;

TEST_F(KeyFrameFileOpenTest, AMissingFileCannotBeOpened) {
    const ReadFailure failure = readFailing(directory_.file("absent.keyframe"));
    EXPECT_EQ(failure.type, "KeyFrameError");
    EXPECT_EQ(failure.message, "Unable to open file for reading.");
}

TEST_F(KeyFrameFileOpenTest, AnEmptyNameCannotBeOpened) {
    EXPECT_EQ(readFailing("").message, "Unable to open file for reading.");
}

TEST_F(KeyFrameFileOpenTest, ADirectoryCannotBeOpened) {
    std::filesystem::create_directory(directory_.path() / "folder.keyframe");
    EXPECT_EQ(readFailing(directory_.file("folder.keyframe")).message,
              "Unable to open file for reading.");
}

}  // namespace
}  // namespace vexutiltools
}  // namespace vexplot
