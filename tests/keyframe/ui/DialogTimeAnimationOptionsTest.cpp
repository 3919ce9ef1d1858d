#include "ui/DialogTimeAnimationOptions.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "MainDialogFixture.h"
#include "vexhost/GuiError.h"
#include "vexhost/UserDialogs.h"

namespace vextest {
namespace {

using vexhost::GuiUser;
using vexplot::vexutiltools::AnimationSettings_s;
using vexplot::vexutiltools::TimeAnimationOperation_e;
using Kind = vexhost::GuiControl::Kind;

constexpr const char* Options = "Time Animation Options";

// The dialog opened from the main dialog's Options menu, editing the main dialog's settings.
class DialogTimeAnimationOptionsTest : public MainDialogFixture {
protected:
    void SetUp() override {
        MainDialogFixture::SetUp();
        openMainDialog();
    }
    void openOptions(TimeAnimationOperation_e operation, uint64_t numCycles) {
        dialog().getSettings().TimeAnimationOperation = operation;
        dialog().getSettings().NumCycles = numCycles;
        chooseMenu(Title, {"Options", "Time Animation Options..."}, 1);
        ASSERT_TRUE(dialogNamed(Options).up);
    }
    const vexhost::GuiControl& cycles() {
        return control(Options, "Num Cycles:", {Kind::SpinTextField});
    }
    const vexhost::GuiControl& cyclesLabel() {
        return control(Options, "Num Cycles:", {Kind::Label});
    }
    const vexhost::GuiControl& radioBox() {
        return user().findControlOfKind(dialogNamed(Options), Kind::RadioBox, 1);
    }
    void chooseOperation(const std::string& label) {
        user().chooseRadioButton(radioBox().id, user().findRadioButton(radioBox(), label));
        EXPECT_EQ(lockDepth(), 1);
    }
    void spin(bool up) {
        user().spin(cycles().id, up);
        EXPECT_EQ(lockDepth(), 1);
    }
};

TEST_F(DialogTimeAnimationOptionsTest, TheModalDialogAndItsControls) {
    openOptions(TimeAnimationOperation_e::Forward, 1);
    const vexhost::GuiDialog& options = dialogNamed(Options);
    EXPECT_TRUE(options.modal);
    EXPECT_EQ(options.parentId, VEXGUI_MAIN_DIALOG_PARENT);
    EXPECT_EQ(options.width, 5357);
    EXPECT_EQ(options.height, 878);
    EXPECT_FALSE(options.hasApply());
    EXPECT_TRUE(options.hasHelp());
    ASSERT_EQ(options.controls.size(), 4u);
    const vexhost::GuiControl& label = controlById(options.controls[0]);
    EXPECT_EQ(label.label, "Num Cycles:");
    EXPECT_EQ(std::make_pair(label.x, label.y), std::make_pair(2901, 159));
    const vexhost::GuiControl& frame = controlById(options.controls[1]);
    EXPECT_EQ(frame.label, "Animation Operation");
    EXPECT_EQ((std::vector<int32_t>{frame.x, frame.y, frame.width, frame.height}),
              (std::vector<int32_t>{207, 79, 4956, 732}));
    const vexhost::GuiControl& radio = controlById(options.controls[2]);
    EXPECT_EQ(radio.items,
              (std::vector<std::string>{"&Forward", "&Loop", "&Bounce", "&As Captured"}));
    EXPECT_EQ((std::vector<int32_t>{radio.x, radio.y, radio.width, radio.height}),
              (std::vector<int32_t>{587, 166, 2003, 573}));
    const vexhost::GuiControl& spinField = controlById(options.controls[3]);
    EXPECT_EQ(spinField.kind, Kind::SpinTextField);
    EXPECT_EQ((std::vector<int32_t>{spinField.x, spinField.y, spinField.width, spinField.height}),
              (std::vector<int32_t>{2918, 333, 1329, 145}));
    pressDialogButton(Options, GuiUser::DialogButton::Cancel);
}

TEST_F(DialogTimeAnimationOptionsTest, ForwardAndAsCapturedDisableTheCyclesAndLoopEnablesThem) {
    openOptions(TimeAnimationOperation_e::Forward, 1);
    EXPECT_EQ(radioBox().choice, 1);
    EXPECT_FALSE(cycles().sensitive);
    EXPECT_FALSE(cyclesLabel().sensitive);
    chooseOperation("Loop");
    EXPECT_TRUE(cycles().sensitive);
    EXPECT_TRUE(cyclesLabel().sensitive);
    chooseOperation("As Captured");
    EXPECT_FALSE(cycles().sensitive);
    chooseOperation("Bounce");
    EXPECT_TRUE(cycles().sensitive);
    pressDialogButton(Options, GuiUser::DialogButton::Cancel);

    openOptions(TimeAnimationOperation_e::AsCaptured, 1);
    EXPECT_EQ(radioBox().choice, 4);
    EXPECT_FALSE(cycles().sensitive);
    pressDialogButton(Options, GuiUser::DialogButton::Cancel);
}

TEST_F(DialogTimeAnimationOptionsTest, AStoredZeroIsShownAsOneAndDownStaysAtOne) {
    openOptions(TimeAnimationOperation_e::Loop, 0);
    EXPECT_EQ(cycles().text, "1");
    spin(false);
    EXPECT_EQ(cycles().text, "1");
    spin(true);
    spin(true);
    EXPECT_EQ(cycles().text, "3");
    spin(false);
    EXPECT_EQ(cycles().text, "2");
    pressDialogButton(Options, GuiUser::DialogButton::Ok);
    EXPECT_EQ(dialog().getSettings().NumCycles, 2u);
}

TEST_F(DialogTimeAnimationOptionsTest, OkWithForwardStillTurnsTimeAnimationOn) {
    openOptions(TimeAnimationOperation_e::Loop, 4);
    chooseOperation("Forward");
    pressDialogButton(Options, GuiUser::DialogButton::Ok);
    const AnimationSettings_s& settings = dialog().getSettings();
    EXPECT_TRUE(settings.AnimateTime);
    EXPECT_EQ(settings.TimeAnimationOperation, TimeAnimationOperation_e::Forward);
    EXPECT_EQ(settings.NumCycles, 4u);
    EXPECT_FALSE(dialogNamed(Options).up);
    // The main dialog's toggle shows it.
    EXPECT_TRUE(
        user().findMenuEntry(dialogNamed(Title), {"Options", "Animate Time Concurrently"}).isOn);
}

TEST_F(DialogTimeAnimationOptionsTest, CancelLeavesEverySettingUnchanged) {
    openOptions(TimeAnimationOperation_e::Bounce, 3);
    const AnimationSettings_s before = dialog().getSettings();
    chooseOperation("Loop");
    type(Options, "Num Cycles:", "9", 1);
    pressDialogButton(Options, GuiUser::DialogButton::Cancel);
    EXPECT_EQ(dialog().getSettings(), before);
    EXPECT_FALSE(dialogNamed(Options).up);
}

TEST_F(DialogTimeAnimationOptionsTest, TheLockIsHeldForTheModalLifeAndReleasedByOkOrCancel) {
    openOptions(TimeAnimationOperation_e::Forward, 1);
    EXPECT_EQ(lockDepth(), 1);
    pressDialogButton(Options, GuiUser::DialogButton::Cancel, 0);
    openOptions(TimeAnimationOperation_e::Forward, 1);
    EXPECT_EQ(lockDepth(), 1);
    pressDialogButton(Options, GuiUser::DialogButton::Ok, 0);
}

TEST_F(DialogTimeAnimationOptionsTest, ABadCycleCountShowsTheMinimumAndKeepsTheCount) {
    openOptions(TimeAnimationOperation_e::Loop, 5);
    type(Options, "Num Cycles:", "0", 1);
    EXPECT_EQ(errorMessages(),
              std::vector<std::string>{
                  "Invalid input. Input must be a number greater than or equal to 1."});
    EXPECT_EQ(cycles().text, "5");
    type(Options, "Num Cycles:", "8", 1);
    pressDialogButton(Options, GuiUser::DialogButton::Ok);
    EXPECT_EQ(dialog().getSettings().NumCycles, 8u);
}

TEST_F(DialogTimeAnimationOptionsTest, HelpShowsTheOptionsPage) {
    openOptions(TimeAnimationOperation_e::Forward, 1);
    pressDialogButton(Options, GuiUser::DialogButton::Help, 1);
    EXPECT_EQ(host().userDialogs().helpPages(),
              std::vector<std::string>{"addons.html#addons/working-with/keyframe/options"});
    pressDialogButton(Options, GuiUser::DialogButton::Cancel);
}

TEST_F(DialogTimeAnimationOptionsTest, TheMainDialogRefusesTheUserWhileTheOptionsAreUp) {
    openOptions(TimeAnimationOperation_e::Forward, 1);
    EXPECT_THROW(user().press(control(Title, "Append").id), vexhost::GuiError);
    pressDialogButton(Options, GuiUser::DialogButton::Close);
    EXPECT_FALSE(dialogNamed(Options).up);
}

TEST_F(DialogTimeAnimationOptionsTest, TheFixtureFailsATestThatLeavesTheDialogUp) {
    openOptions(TimeAnimationOperation_e::Forward, 1);
    ::testing::TestPartResultArray failures;
    {
        ::testing::ScopedFakeTestPartResultReporter reporter(
            ::testing::ScopedFakeTestPartResultReporter::INTERCEPT_ONLY_CURRENT_THREAD, &failures);
        HostFixture::TearDown();
    }
    std::vector<std::string> messages;
    for (int i = 0; i < failures.size(); ++i)
        messages.push_back(failures.GetTestPartResult(i).message());
    EXPECT_NE(std::find(messages.begin(), messages.end(),
                        "Failed\nthe modal dialog \"Time Animation Options\" is still up"),
              messages.end())
        << ::testing::PrintToString(messages);
    // The TearDown above dropped the add-on's state, the dialog that Cancel would call back with
    // it: the dialog left up goes with a reset of the host instead.
    host().reset();
}

TEST_F(DialogTimeAnimationOptionsTest, TheToggleMapNamesTheFourOperations) {
    const auto& map = dialog().getTimeAnimationOptions().getToggleMap();
    EXPECT_EQ(map.size(), 4u);
    EXPECT_EQ(map.at(1), TimeAnimationOperation_e::Forward);
    EXPECT_EQ(map.at(2), TimeAnimationOperation_e::Loop);
    EXPECT_EQ(map.at(3), TimeAnimationOperation_e::Bounce);
    EXPECT_EQ(map.at(4), TimeAnimationOperation_e::AsCaptured);
    const auto& validator = dialog().getTimeAnimationOptions().getNumCyclesValidator();
    EXPECT_TRUE(validator.hasMinimum());
    EXPECT_FALSE(validator.hasMaximum());
    EXPECT_EQ(validator.getMaximum(), 2147483647);
    EXPECT_EQ(validator.getValue(), 1);
}

}  // namespace
}  // namespace vextest
