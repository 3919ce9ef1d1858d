// The GUI model's own rules: which label names an unlabelled control, and the reset.
#include <gtest/gtest.h>

#include "GuiFixture.h"

namespace guitest {
namespace {

using vexhost::GuiControl;
using vexhost::GuiModel;

class GuiModelTest : public GuiFixture {
protected:
    void SetUp() override {
        GuiFixture::SetUp();
        main_ = addModeless();
    }
    // The label's text, "" for none.
    std::string besideText(int32_t controlId) const {
        const GuiControl* label = gui().neighbourLabel(control(controlId));
        return label != nullptr ? label->label : "";
    }
    int32_t field(int32_t x, int32_t y) {
        return VexGUITextFieldAdd(main_, x, y, 1000, 145, nullptr, nullptr);
    }

    int32_t main_ = VEXGUI_BAD_ID;
};

TEST_F(GuiModelTest, TheNearestLabelLeftOfAControlOnItsRowNamesIt) {
    VexGUILabelAdd(main_, 100, 1000, "Far:");
    VexGUILabelAdd(main_, 900, 1050, "Near:");
    VexGUILabelAdd(main_, 3500, 1000, "Right of it:");
    const int32_t f = field(2000, 1000);
    EXPECT_EQ(besideText(f), "Near:");
}

TEST_F(GuiModelTest, ALabelStandsOnTheRowsItsLinesCover) {
    // Labels sit a little above the middle of their field's row, as the add-on places them.
    VexGUILabelAdd(main_, 207, 1595, "View Name:");
    const int32_t name = field(1847, 1645);
    VexGUILabelAdd(main_, 100, 0, "One line");
    const int32_t low = field(2000, GuiModel::LabelLineHeight);
    VexGUILabelAdd(main_, 100, 2000, "Two\nlines");
    const int32_t second = field(2000, 2000 + GuiModel::LabelLineHeight);
    EXPECT_EQ(besideText(name), "View Name:");
    EXPECT_EQ(besideText(low), "") << "a one-line label ends where the next row starts";
    EXPECT_EQ(besideText(second), "Two\nlines");
}

TEST_F(GuiModelTest, WithoutALabelLeftOfItTheLabelJustAboveNamesTheControl) {
    VexGUILabelAdd(main_, 2901, 159, "Num Cycles:");
    const int32_t cycles =
        VexGUISpinTextFieldAdd(main_, 2918, 333, 1329, 145, nullptr, nullptr, nullptr, nullptr);
    VexGUILabelAdd(main_, 100, 1000, "Too far up:");
    const int32_t farBelow = field(100, 1000 + 2 * GuiModel::LabelLineHeight);
    VexGUILabelAdd(main_, 100, 2000, "Too far left:");
    const int32_t shifted = field(1000, 2000 + GuiModel::LabelLineHeight);
    EXPECT_EQ(besideText(cycles), "Num Cycles:");
    EXPECT_EQ(besideText(farBelow), "");
    EXPECT_EQ(besideText(shifted), "");
}

TEST_F(GuiModelTest, OnlyLabelsOfTheSameDialogNameAControlAndMenuEntriesHaveNone) {
    const int32_t other = addModeless("Other");
    VexGUILabelAdd(other, 100, 1000, "Elsewhere:");
    const int32_t f = field(2000, 1000);
    const int32_t bar = VexGUIMenuBarAdd(main_);
    EXPECT_EQ(besideText(f), "");
    EXPECT_EQ(besideText(bar), "");
}

TEST_F(GuiModelTest, ResetForgetsEveryDialogAndWhichModalDialogIsUp) {
    const int32_t modal = addModal();
    VexGUIDialogLaunch(modal);
    ASSERT_TRUE(gui().isModalDialogUp());
    host().reset();
    EXPECT_FALSE(gui().isModalDialogUp());
    EXPECT_TRUE(gui().dialogs().empty());
    EXPECT_EQ(gui().control(2), nullptr);
    EXPECT_EQ(addModal(), 1);
}

}  // namespace
}  // namespace guitest
