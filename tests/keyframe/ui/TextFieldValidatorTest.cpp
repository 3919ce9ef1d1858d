#include "ui/TextFieldValidator.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "support/AddOnFixture.h"
#include "vexhost/GuiModel.h"
#include "vexhost/UserDialogs.h"

namespace vexplot {
namespace vexutiltools {
namespace {

using vextest::AddOnFixture;

class TextFieldValidatorTest : public AddOnFixture {
protected:
    std::vector<std::string> errors() const { return host().userDialogs().errorMessages(); }
};

struct IntCase {
    const char* name;
    bool hasMinimum;
    int minimum;
    bool hasMaximum;
    int maximum;
    std::string text;
    bool accepted;
    int value;  // the value afterwards (the starting 50 when rejected)
    std::string message;
};

void PrintTo(const IntCase& c, std::ostream* out) {
    *out << c.name;
}

class IntValidationTest : public TextFieldValidatorTest,
                          public ::testing::WithParamInterface<IntCase> {};

TEST_P(IntValidationTest, AcceptsOrReportsWithTheExactMessage) {
    const IntCase& c = GetParam();
    TextFieldValidator<int> validator(VEXGUI_BAD_ID, 50, c.hasMinimum, c.minimum, c.hasMaximum,
                                      c.maximum);
    EXPECT_EQ(validator.validate(c.text), c.accepted);
    EXPECT_EQ(validator.getValue(), c.value);
    if (c.accepted)
        EXPECT_TRUE(errors().empty());
    else
        EXPECT_EQ(errors(), std::vector<std::string>{c.message});
}

const int Max = std::numeric_limits<int>::max();
const int Lowest = std::numeric_limits<int>::lowest();

INSTANTIATE_TEST_SUITE_P(
    Cases, IntValidationTest,
    ::testing::Values(
        IntCase{"WithinBoth", true, 1, true, 100, "42", true, 42, ""},
        IntCase{"LeadingBlanksSkipped", true, 1, true, 100, "   7", true, 7, ""},
        IntCase{"BoundsInclusive", true, 1, true, 100, "100", true, 100, ""},
        // Kept on purpose: characters after a well-formed number are not examined.
        IntCase{"TrailingTextIgnoredOnPurpose", true, 1, true, 100, "12abc", true, 12, ""},
        IntCase{"NotANumber", true, 1, true, 100, "abc", false, 50,
                "Invalid input. Input must be a number between 1 and 100."},
        IntCase{"EmptyTextNamesTheBounds", true, 1, true, 100, "", false, 50,
                "Invalid input. Input must be a number between 1 and 100."},
        IntCase{"AboveMaximum", true, 1, true, 100, "101", false, 50,
                "Invalid input. Input must be a number between 1 and 100."},
        IntCase{"OnlyMinimum", true, 1, false, Max, "0", false, 50,
                "Invalid input. Input must be a number greater than or equal to 1."},
        IntCase{"OnlyMaximum", false, Lowest, true, 10, "11", false, 50,
                "Invalid input. Input must be a number less than or equal to 10."},
        IntCase{"NoBoundFlags", false, Lowest, false, Max, "x", false, 50,
                "Invalid input. Input must be a number."},
        // Both bounds are compared whatever the flags say; the flags only shape the message.
        IntCase{"UnflaggedBoundStillCompared", true, 1, false, 10, "11", false, 50,
                "Invalid input. Input must be a number greater than or equal to 1."},
        IntCase{"OverflowIsNoNumber", true, 1, true, Max, "99999999999", false, 50,
                "Invalid input. Input must be a number between 1 and 2147483647."}),
    [](const ::testing::TestParamInfo<IntCase>& info) { return std::string(info.param.name); });

TEST_F(TextFieldValidatorTest, DoubleBoundsAreWrittenAsTheStreamWritesThem) {
    TextFieldValidator<double> validator(VEXGUI_BAD_ID, 30.0, true, 0.001, true, 200.0);
    EXPECT_FALSE(validator.validate("0"));
    EXPECT_EQ(errors(), std::vector<std::string>{
                            "Invalid input. Input must be a number between 0.001 and 200."});
    EXPECT_DOUBLE_EQ(validator.getValue(), 30.0);
    EXPECT_TRUE(validator.validate("12.5 fps"));
    EXPECT_DOUBLE_EQ(validator.getValue(), 12.5);
}

TEST_F(TextFieldValidatorTest, ADoubleNaNFails) {
    TextFieldValidator<double> validator(VEXGUI_BAD_ID, 30.0, true,
                                         -std::numeric_limits<double>::infinity(), true,
                                         std::numeric_limits<double>::infinity());
    EXPECT_FALSE(validator.validate("nan"));
    EXPECT_DOUBLE_EQ(validator.getValue(), 30.0);
    EXPECT_EQ(errors().size(), 1u);
}

TEST_F(TextFieldValidatorTest, ClampBringsAValueWithinTheBounds) {
    TextFieldValidator<int> validator(VEXGUI_BAD_ID, 3, true, 2, true, 16);
    EXPECT_EQ(validator.clamp(1), 2);
    EXPECT_EQ(validator.clamp(17), 16);
    EXPECT_EQ(validator.clamp(5), 5);
}

TEST_F(TextFieldValidatorTest, ShowValueWritesTheAcceptedValueIntoTheField) {
    const int32_t dialog = VexGUIDialogCreateModeless(VEXGUI_MAIN_DIALOG_PARENT, 2000, 1000,
                                                      "Fields", nullptr, nullptr, nullptr, nullptr);
    const int32_t field = VexGUITextFieldAdd(dialog, 10, 10, 500, 145, nullptr, nullptr);
    TextFieldValidator<double> validator(field, 30.0, true, 0.001, true, 200.0);
    ASSERT_TRUE(validator.validate("0.25"));
    validator.showValue();
    EXPECT_EQ(host().guiModel().control(field)->text, "0.25");
}

}  // namespace
}  // namespace vexutiltools
}  // namespace vexplot
