// The main dialog as the user finds it: its frame, every control in creation order with place,
// label and tool tip, the menu bar, and how it is opened from the host's Animate menu.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "MainDialogFixture.h"
#include "support/CallLogLines.h"
#include "vexhost/FrameStack.h"
#include "vexhost/GuiDump.h"
#include "vexhost/GuiModel.h"
#include "vexhost/UserDialogs.h"

namespace vextest {
namespace {

using vexhost::GuiControl;
using Kind = vexhost::GuiControl::Kind;

struct ExpectedControl {
    Kind kind;
    int32_t x, y, width, height;
    std::string label;
    std::string toolTip;
};

TEST_F(MainDialogTest, OpensAsTheModelessKeyFrameAnimationDialog) {
    openMainDialog();
    const vexhost::GuiDialog& dialog = dialogNamed(Title);
    EXPECT_FALSE(dialog.modal);
    EXPECT_TRUE(dialog.up);
    EXPECT_EQ(dialog.parentId, VEXGUI_MAIN_DIALOG_PARENT);
    EXPECT_EQ(dialog.width, 4870);
    EXPECT_EQ(dialog.height, 2620);
    EXPECT_EQ(dialog.title, "Key Frame Animation");
    EXPECT_TRUE(dialog.hasHelp());
    EXPECT_NE(dialog.close, nullptr);
}

TEST_F(MainDialogTest, EveryControlInCreationOrderWithPlaceLabelAndToolTip) {
    openMainDialog();
    const std::vector<ExpectedControl> expected = {
        {Kind::Button, 3160, 65, 1433, 145, "&Append     ",
         "Append the current Vexplot view as a key frame to the end of the list"},
        {Kind::OptionMenu, 1847, 2066, 2711, 145, "", ""},
        {Kind::Label, 207, 2016, 0, 0, "Destination:", ""},
        {Kind::Button, 518, 2299, 1208, 232, "A&nimate\nAll",
         "Animate through the list of all key frames"},
        {Kind::Button, 3160, 1341, 1433, 145, "&Clear         ",
         "Delete all key frame views from the list"},
        {Kind::Button, 3160, 783, 1416, 145, "A&pply        ",
         "Apply the selected key frame as the view in Vexplot"},
        {Kind::List, 224, 65, 2745, 1414, "", ""},
        {Kind::Button, 3160, 1138, 1416, 145, "&Delete       ", "Delete the selected key frame"},
        {Kind::Button, 2884, 2299, 1243, 232, "  Animate \n&Selected",
         "Animate between the selected and next key frames"},
        {Kind::Button, 3160, 580, 1433, 145, "&Update      ",
         "Update the selected key frame with the current view in Vexplot"},
        {Kind::Label, 207, 1595, 0, 0, "View Name:", ""},
        {Kind::TextField, 1847, 1645, 2711, 145, "", "Enter the name of the selected view"},
        {Kind::Label, 189, 1806, 0, 0, "Frame Count:", ""},
        {Kind::TextField, 1847, 1856, 2711, 145, "",
         "Enter the number of frames between the selected and next key frame views"},
        {Kind::Button, 3160, 261, 1467, 145, "&Insert         ",
         "Add the current Vexplot view as a key frame below the selected item(s) in the list"},
    };
    std::vector<const GuiControl*> placed;
    for (int32_t id : dialogNamed(Title).controls) {
        const GuiControl& control = controlById(id);
        if (!control.isMenuEntry())
            placed.push_back(&control);
    }
    ASSERT_EQ(placed.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        SCOPED_TRACE("control " + std::to_string(i + 1) + " " + expected[i].label);
        const GuiControl& control = *placed[i];
        EXPECT_EQ(control.kind, expected[i].kind);
        EXPECT_EQ(control.x, expected[i].x);
        EXPECT_EQ(control.y, expected[i].y);
        if (control.hasSize()) {
            EXPECT_EQ(control.width, expected[i].width);
            EXPECT_EQ(control.height, expected[i].height);
        }
        EXPECT_EQ(control.label, expected[i].label);
        EXPECT_EQ(control.toolTip, expected[i].toolTip);
    }
    EXPECT_TRUE(placed[6]->multiSelection);
    EXPECT_EQ(placed[1]->items, (std::vector<std::string>{"On Screen", "To File"}));
}

TEST_F(MainDialogTest, TheMenuBarHasTheFileAndOptionsMenus) {
    openMainDialog();
    const vexhost::GuiDialog& dialog = dialogNamed(Title);
    ASSERT_NE(dialog.menuBarId, VEXGUI_BAD_ID);
    std::vector<std::string> menus;
    std::vector<std::vector<std::pair<Kind, std::string>>> entries;
    for (int32_t menuId : controlById(dialog.menuBarId).children) {
        menus.push_back(controlById(menuId).label);
        entries.emplace_back();
        for (int32_t entryId : controlById(menuId).children)
            entries.back().emplace_back(controlById(entryId).kind, controlById(entryId).label);
    }
    EXPECT_EQ(menus, (std::vector<std::string>{"&File", "&Options"}));
    using Entries = std::vector<std::pair<Kind, std::string>>;
    EXPECT_EQ(entries[0], (Entries{{Kind::MenuItem, "&Open Animation File..."},
                                   {Kind::MenuItem, "&Save Animation File"},
                                   {Kind::MenuItem, "Save Animation File &As..."}}));
    EXPECT_EQ(entries[1], (Entries{{Kind::MenuToggle, "Animate &Time Concurrently"},
                                   {Kind::MenuToggle, "Animate &Streamtraces Concurrently"},
                                   {Kind::MenuToggle, "Fade &In"},
                                   {Kind::MenuToggle, "Fade &Out"},
                                   {Kind::MenuItem, "Time &Animation Options..."}}));
}

TEST_F(MainDialogTest, ChoosingTheMenuItemTwiceCreatesTheDialogOnceAndLaunchesItAgain) {
    openMainDialog();
    pressDialogButton(Title, vexhost::GuiUser::DialogButton::Close);
    EXPECT_FALSE(dialogNamed(Title).up);
    startCallLog();
    openMainDialog();
    const std::vector<std::string> log = takeCallLog();
    EXPECT_TRUE(dialogNamed(Title).up);
    EXPECT_EQ(dialogNamed(Title).launchCount, 2u);
    EXPECT_EQ(host().guiModel().dialogs().size(), 1u);
    for (const std::string& call : log) {
        EXPECT_EQ(call.find("VexGUIDialogCreate"), std::string::npos) << call;
        EXPECT_EQ(call.find("VexGUIMenuBarAdd"), std::string::npos) << call;
    }
    EXPECT_NE(std::find(log.begin(), log.end(), vextest::callLine("VexGUIDialogLaunch", {1})),
              log.end());
}

TEST_F(MainDialogTest, AnEmptyListShowsThePlaceholderWithOnlyAppendAndTheDestinationEnabled) {
    openMainDialog();
    EXPECT_EQ(listLines(), std::vector<std::string>{"No Key Frames established."});
    std::vector<std::string> sensitive;
    for (int32_t id : dialogNamed(Title).controls) {
        const GuiControl& control = controlById(id);
        if (control.hasPosition() && control.kind != Kind::Label && control.sensitive)
            sensitive.push_back(vexhost::GuiUser::describe(control));
    }
    EXPECT_EQ(sensitive.size(), 2u) << ::testing::PrintToString(sensitive);
    EXPECT_TRUE(isSensitive("Append"));
    EXPECT_TRUE(control(Title, "Destination:", {Kind::OptionMenu}).sensitive);
}

TEST_F(MainDialogTest, HelpShowsTheKeyFramePageAndCloseDropsTheDialog) {
    openMainDialog();
    pressDialogButton(Title, vexhost::GuiUser::DialogButton::Help);
    EXPECT_EQ(host().userDialogs().helpPages(),
              std::vector<std::string>{"addons.html#addons/working-with/keyframe"});
    startCallLog();
    pressDialogButton(Title, vexhost::GuiUser::DialogButton::Close);
    EXPECT_FALSE(dialogNamed(Title).up);
    const std::vector<std::string> log = takeCallLog();
    const std::vector<std::string> expected = {vextest::addOnLockStart(),
                                               vextest::callLine("VexGUIDialogDrop", {1}),
                                               vextest::addOnLockFinish()};
    EXPECT_EQ(log, expected);
}

TEST_F(MainDialogTest, WithoutA3DPlotTheMenuItemShowsTheErrorAndCreatesNoDialog) {
    host().frames().setPlotType(host().frames().active()->uniqueId(), VexPlotType_Cartesian2D);
    user().chooseHostMenuItem("Animate", "&Key Frame Animation...");
    EXPECT_EQ(errorMessages(),
              std::vector<std::string>{"Keyframe animation is only allowed with 3D plots."});
    EXPECT_TRUE(host().guiModel().dialogs().empty());
    EXPECT_EQ(lockDepth(), 0);
}

}  // namespace
}  // namespace vextest
