// The user at the dialogs: finding dialogs and controls the way a person reads the screen, acting
// on them, the callbacks fired (state first, then the callback, only on a change where a click on
// what is chosen changes nothing) and every refusal a user would meet.
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "GuiFixture.h"
#include "vexhost/GuiError.h"
#include "vxappaddonuiaction.h"
#include "vxtoolbox/StringList.h"

namespace guitest {
namespace {

using vexhost::GuiControl;
using vexhost::GuiError;
using vexhost::GuiUser;
using Kind = vexhost::GuiControl::Kind;
using Strings = std::vector<std::string>;

// "#12"
std::string id(int32_t value) {
    return "#" + std::to_string(value);
}

// The message of the GuiError that `action` throws ("" when it throws none).
template <typename Action>
std::string errorOf(Action action) {
    try {
        action();
    } catch (const GuiError& error) {
        return error.what();
    }
    return "";
}

struct PlainTextCase {
    const char* text;
    const char* plain;
};

const PlainTextCase PlainTextCases[] = {
    {"&Append     ", "append"},
    {"A&nimate\nAll", "animate all"},
    {"  Animate \n&Selected", "animate selected"},
    {"Fade &In", "fade in"},
    {"Save && Quit", "save & quit"},
    {"Trailing&", "trailing"},
    {"\tTab\t\tSeparated ", "tab separated"},
    {"", ""},
};

TEST(GuiUserPlainTextTest, DropsMarkersJoinsBlanksTrimsAndIgnoresCase) {
    for (const PlainTextCase& row : PlainTextCases) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(GuiUser::plainText(row.text), row.plain);
    }
}

class GuiUserTest : public GuiFixture {
protected:
    void SetUp() override {
        GuiFixture::SetUp();
        main_ = addModeless("Main");
        append_ =
            VexGUIButtonAdd(main_, 3160, 65, 1433, 145, "&Append     ", onVoid, probe("append"));
        VexGUISetToolTip(append_, "Append the current view");
        animateAll_ = VexGUIButtonAdd(main_, 518, 2299, 1208, 232, "A&nimate\nAll", onVoid,
                                      probe("animate all"));
        apply_ =
            VexGUIButtonAdd(main_, 3160, 783, 1416, 145, "A&pply        ", onVoid, probe("apply"));
        nameLabel_ = VexGUILabelAdd(main_, 207, 1595, "View Name:");
        name_ = VexGUITextFieldAdd(main_, 1847, 1645, 2711, 145, onText, probe("name"));
        VexGUISetToolTip(name_, "Enter the name of the selected view");
        VexGUILabelAdd(main_, 189, 1806, "Frame Count:");
        count_ = VexGUITextFieldAdd(main_, 1847, 1856, 2711, 145, onText, probe("count"));
        list_ = VexGUIListAdd(main_, 224, 65, 2745, 1414, true, onInt, probe("list"));
        for (const char* line : {"View 1", "View 2", "View 3"})
            VexGUIListAppendItem(list_, line);
        VexGUILabelAdd(main_, 207, 2016, "Destination:");
        destination_ = VexGUIOptionMenuAdd(main_, 1847, 2066, 2711, 145, onInt, probe("dest"));
        VexGUIOptionMenuAppendItem(destination_, "On Screen");
        VexGUIOptionMenuAppendItem(destination_, "To File");
        antialiasing_ =
            VexGUIToggleAdd(main_, 293, 2600, 2055, 123, "&Antialiasing", onInt, probe("aa"));
        VexGUILabelAdd(main_, 3901, 1159, "Num Cycles:");
        cycles_ = VexGUISpinTextFieldAdd(main_, 3918, 1333, 1000, 145, onText, onUp, onDown,
                                         probe("cycles"));
        vexplot::toolbox::StringList labels{"&Forward", "&Loop", "&Bounce"};
        operation_ =
            VexGUIRadioBoxAdd(main_, 3000, 2000, 1900, 573, labels.handle(), onInt, probe("op"));
        const int32_t bar = VexGUIMenuBarAdd(main_);
        const int32_t file = VexGUIMenuAdd(bar, "&File");
        save_ = VexGUIMenuAddItem(file, "&Save Animation File", onVoid, probe("save"));
        options_ = VexGUIMenuAdd(bar, "&Options");
        fadeIn_ = VexGUIMenuAddToggle(options_, "Fade &In", onInt, probe("fade in"));
        const int32_t more = VexGUIMenuAdd(options_, "More");
        deep_ = VexGUIMenuAddItem(more, "Deep", onVoid, probe("deep"));
        ASSERT_TRUE(takeHostErrors().empty());
        VexGUIDialogLaunch(main_);
        ASSERT_EQ(takeEvents(), Strings{"Main init"});
    }

    static void onUp(void* clientData) { onInt(1, clientData); }
    static void onDown(void* clientData) { onInt(-1, clientData); }

    const vexhost::GuiDialog& main() const { return dialog(main_); }

    int32_t main_ = VEXGUI_BAD_ID;
    int32_t append_ = VEXGUI_BAD_ID;
    int32_t animateAll_ = VEXGUI_BAD_ID;
    int32_t apply_ = VEXGUI_BAD_ID;
    int32_t nameLabel_ = VEXGUI_BAD_ID;
    int32_t name_ = VEXGUI_BAD_ID;
    int32_t count_ = VEXGUI_BAD_ID;
    int32_t list_ = VEXGUI_BAD_ID;
    int32_t destination_ = VEXGUI_BAD_ID;
    int32_t antialiasing_ = VEXGUI_BAD_ID;
    int32_t cycles_ = VEXGUI_BAD_ID;
    int32_t operation_ = VEXGUI_BAD_ID;
    int32_t save_ = VEXGUI_BAD_ID;
    int32_t options_ = VEXGUI_BAD_ID;
    int32_t fadeIn_ = VEXGUI_BAD_ID;
    int32_t deep_ = VEXGUI_BAD_ID;
};

// ---- Finding ------------------------------------------------------------------------------------

TEST_F(GuiUserTest, FindsADialogByItsTitleExactlyOrAsPlainText) {
    const int32_t options = addModal("Time Animation Options");
    EXPECT_EQ(user().findDialog("Main").id, main_);
    EXPECT_EQ(user().findDialog("time animation OPTIONS").id, options);
    EXPECT_EQ(user().findDialogById(options).id, options);
}

TEST_F(GuiUserTest, UnknownDialogListsTheDialogsThereAre) {
    const int32_t exportOptions = addModal("Export Options");
    EXPECT_EQ(errorOf([&] { user().findDialog("Exports"); }),
              "There is no dialog \"Exports\"; the dialogs are \"Main\" (#1, up) and \"Export "
              "Options\" (" +
                  id(exportOptions) + ", not up).");
    EXPECT_EQ(errorOf([&] { user().findDialogById(append_); }), "There is no dialog #2.");
    host().reset();
    EXPECT_EQ(errorOf([&] { user().findDialog("Main"); }),
              "There is no dialog \"Main\"; no dialog has been created.");
}

TEST_F(GuiUserTest, TwoDialogsWithTheSameTitleMustBeNamedById) {
    const int32_t second = addModeless("Main");
    EXPECT_EQ(errorOf([&] { user().findDialog("Main"); }),
              "Several dialogs are titled \"Main\": \"Main\" (#1, up) and \"Main\" (" + id(second) +
                  ", not up); name one by its id (#<id>).");
}

TEST_F(GuiUserTest, FindsAControlByItsLabelExactlyAsGivenTrailingBlanksIncluded) {
    EXPECT_EQ(user().findControl(main(), "&Append     ").id, append_);
}

TEST_F(GuiUserTest, FindsAControlByItsLabelAsPlainText) {
    EXPECT_EQ(user().findControl(main(), "Append").id, append_);
    EXPECT_EQ(user().findControl(main(), "animate all").id, animateAll_);
    EXPECT_EQ(user().findControl(main(), " APPLY ").id, apply_);
}

TEST_F(GuiUserTest, AnExactLabelWinsOverLabelsThatOnlyMatchAsPlainText) {
    const int32_t exact = VexGUIButtonAdd(main_, 0, 2800, 100, 100, "Apply", nullptr, nullptr);
    EXPECT_EQ(user().findControl(main(), "Apply").id, exact);
    EXPECT_EQ(user().findControl(main(), "A&pply        ").id, apply_);
    EXPECT_EQ(errorOf([&] { user().findControl(main(), "apply"); }),
              "\"apply\" in the dialog \"Main\" names the button \"A&pply        \" (#4) and the "
              "button \"Apply\" (" +
                  id(exact) + "); name one by its id (#<id>) or by kind and number (<kind>:<n>).");
}

TEST_F(GuiUserTest, FindsAControlByItsToolTip) {
    EXPECT_EQ(user().findControl(main(), "enter the name of the selected view").id, name_);
    EXPECT_EQ(user().findControl(main(), "Append the current view").id, append_);
}

TEST_F(GuiUserTest, FindsAnUnlabelledControlByTheLabelBesideIt) {
    const std::vector<Kind> fields = {Kind::TextField, Kind::SpinTextField};
    EXPECT_EQ(user().findControl(main(), "View Name:", fields).id, name_);
    EXPECT_EQ(user().findControl(main(), "frame count:", fields).id, count_);
    EXPECT_EQ(user().findControl(main(), "Destination:", {Kind::OptionMenu}).id, destination_);
    EXPECT_EQ(user().findControl(main(), "Num Cycles:", fields).id, cycles_)
        << "the label just above the field";
}

TEST_F(GuiUserTest, WithoutKindsALabelsTextFindsTheLabelItself) {
    EXPECT_EQ(user().findControl(main(), "View Name:").id, nameLabel_);
}

TEST_F(GuiUserTest, ATextThatNamesOnlyControlsOfOtherKindsSaysWhatItNames) {
    EXPECT_EQ(errorOf([&] {
                  user().findControl(main(), "Append", {Kind::TextField, Kind::SpinTextField});
              }),
              "\"Append\" in the dialog \"Main\" names the button \"&Append     \" (#2), not a "
              "text field or a spin text field.");
}

TEST_F(GuiUserTest, UnknownControlListsTheControlsOfTheDialog) {
    const int32_t small = addModeless("Small");
    const int32_t first = VexGUIButtonAdd(small, 0, 0, 100, 100, "&OK", nullptr, nullptr);
    VexGUILabelAdd(small, 0, 200, "Width:");
    VexGUITextFieldAdd(small, 500, 200, 100, 145, nullptr, nullptr);
    const int32_t list = VexGUIListAdd(small, 0, 1000, 100, 100, false, nullptr, nullptr);
    VexGUISetToolTip(list, "The lines");
    VexGUIListAdd(small, 0, 2000, 100, 100, false, nullptr, nullptr);
    VexGUIMenuBarAdd(small);
    EXPECT_EQ(errorOf([&] { user().findControl(dialog(small), "Height"); }),
              "The dialog \"Small\" has no control \"Height\"; it has button " + id(first) +
                  " \"&OK\", label " + id(first + 1) + " \"Width:\", text field " + id(first + 2) +
                  " beside \"Width:\", list " + id(first + 3) +
                  " with the tool tip \"The lines\" and list " + id(first + 4) + ".");
    EXPECT_EQ(errorOf([&] { user().findControl(dialog(addModeless("Empty")), "Any"); }),
              "The dialog \"Empty\" has no control \"Any\"; it has no controls.");
}

TEST_F(GuiUserTest, FindsAControlByKindAndNumberOrById) {
    EXPECT_EQ(user().findControlOfKind(main(), Kind::TextField, 2).id, count_);
    EXPECT_EQ(user().findControlOfKind(main(), Kind::List, 1).id, list_);
    EXPECT_EQ(user().findControlById(main(), cycles_).id, cycles_);
    EXPECT_EQ(errorOf([&] { user().findControlOfKind(main(), Kind::TextField, 3); }),
              "The dialog \"Main\" has no text field 3 (it has 2).");
    const int32_t other = addModeless("Other");
    const int32_t elsewhere = VexGUIButtonAdd(other, 0, 0, 10, 10, "B", nullptr, nullptr);
    EXPECT_EQ(errorOf([&] { user().findControlById(main(), elsewhere); }),
              "The dialog \"Main\" has no control " + id(elsewhere) + ".");
}

TEST_F(GuiUserTest, MenuBarEntriesAreFoundThroughTheirMenusOnly) {
    EXPECT_EQ(user().findMenuEntry(main(), {"&Options", "Fade &In"}).id, fadeIn_);
    EXPECT_EQ(user().findMenuEntry(main(), {"options", "more", "deep"}).id, deep_);
    EXPECT_EQ(errorOf([&] { user().findControl(main(), "Fade In"); }).rfind("The dialog", 0), 0u);
    EXPECT_EQ(errorOf([&] {
                  user().findMenuEntry(main(), {"Options", "Fade Out"});
              }),
              "The menu \"&Options\" in the dialog \"Main\" has no entry \"Fade Out\"; it has "
              "\"Fade &In\" and \"More\".");
    EXPECT_EQ(errorOf([&] {
                  user().findMenuEntry(main(), {"Edit", "Undo"});
              }),
              "The menu bar of the dialog \"Main\" has no entry \"Edit\"; it has \"&File\" and "
              "\"&Options\".");
    EXPECT_EQ(errorOf([&] {
                  user().findMenuEntry(main(), {"File", "Save Animation File", "x"});
              }),
              "The menu item \"&Save Animation File\" (" + id(save_) +
                  ") in the dialog \"Main\" is not a menu: \"x\" cannot be in it.");
    EXPECT_EQ(errorOf([&] { user().findMenuEntry(dialog(addModal()), {"File"}); }),
              "The dialog \"Options\" has no menu bar.");
}

TEST_F(GuiUserTest, RadioButtonsAndOptionEntriesAreFoundByTheirText) {
    const std::pair<const GuiControl*, int32_t> loop = user().findRadioButton(main(), "loop");
    EXPECT_EQ(loop.first->id, operation_);
    EXPECT_EQ(loop.second, 2);
    EXPECT_EQ(user().findRadioButton(control(operation_), "&Bounce"), 3);
    EXPECT_EQ(user().findOptionEntry(control(destination_), "to file"), 2);
    EXPECT_EQ(errorOf([&] { user().findRadioButton(main(), "Backward"); }),
              "The dialog \"Main\" has no radio button \"Backward\"; its radio buttons are "
              "\"&Forward\", \"&Loop\" and \"&Bounce\".");
    EXPECT_EQ(errorOf([&] { user().findOptionEntry(control(destination_), "Printer"); }),
              "The option menu " + id(destination_) +
                  " in the dialog \"Main\" has no entry \"Printer\"; its entries are \"On "
                  "Screen\" and \"To File\".");
}

// ---- Acting -------------------------------------------------------------------------------------

TEST_F(GuiUserTest, PressingAButtonFiresItsCallback) {
    user().press(append_);
    user().press(animateAll_);
    EXPECT_EQ(takeEvents(), (Strings{"append", "animate all"}));
}

TEST_F(GuiUserTest, AnInsensitiveControlRefusesTheUserAndFiresNothing) {
    VexGUISetSensitivity(apply_, false);
    VexGUISetSensitivity(list_, false);
    EXPECT_EQ(errorOf([&] { user().press(apply_); }),
              "The button \"A&pply        \" (#4) in the dialog \"Main\" is insensitive.");
    EXPECT_EQ(errorOf([&] { user().selectLines(list_, {1}); }),
              "The list " + id(list_) + " in the dialog \"Main\" is insensitive.");
    EXPECT_TRUE(control(list_).selection.empty());
    EXPECT_TRUE(takeEvents().empty());
}

TEST_F(GuiUserTest, ActingOnADialogThatIsNotUpFails) {
    VexGUIDialogDrop(main_);
    EXPECT_EQ(errorOf([&] { user().press(append_); }), "The dialog \"Main\" is not up.");
    EXPECT_EQ(errorOf([&] { user().pressDialogButton(main_, GuiUser::DialogButton::Close); }),
              "The dialog \"Main\" is not up.");
    EXPECT_TRUE(takeEvents().empty());
}

TEST_F(GuiUserTest, ActingOnSomethingOfTheWrongKindOrThatDoesNotExistFails) {
    EXPECT_EQ(errorOf([&] { user().press(nameLabel_); }),
              "The label \"View Name:\" (#5) in the dialog \"Main\" is not a button.");
    EXPECT_EQ(errorOf([&] { user().spin(name_, true); }),
              "The text field #6 in the dialog \"Main\" is not a spin text field.");
    EXPECT_EQ(errorOf([&] { user().press(999); }), "There is no control #999.");
    EXPECT_EQ(errorOf([&] { user().pressDialogButton(999, GuiUser::DialogButton::Ok); }),
              "There is no dialog #999.");
}

TEST_F(GuiUserTest, AModalDialogTakesTheInputOfEveryOtherDialogUntilItIsDropped) {
    const int32_t options = addModal();
    VexGUIDialogLaunch(options);
    EXPECT_EQ(errorOf([&] { user().press(append_); }),
              "The dialog \"Main\" cannot be used while the modal dialog \"Options\" is up.");
    user().pressDialogButton(options, GuiUser::DialogButton::Help);
    VexGUIDialogDrop(options);
    user().press(append_);
    EXPECT_EQ(takeEvents(), (Strings{"Options init", "Options help", "append"}));
}

TEST_F(GuiUserTest, SelectingLinesSetsTheSelectionThenFiresWithTheFirstLine) {
    user().selectLines(list_, {3, 1});
    EXPECT_EQ(control(list_).selection, (std::vector<int32_t>{1, 3}));
    user().selectLines(list_, {1, 3});
    user().selectLines(list_, {});
    EXPECT_TRUE(control(list_).selection.empty());
    EXPECT_EQ(takeEvents(), (Strings{"list 1", "list 0"}))
        << "the same selection again changes nothing; none deselects";
}

TEST_F(GuiUserTest, SelectingLinesThatAreNotThereOrTwiceOrTooManyFails) {
    const int32_t single = VexGUIListAdd(main_, 0, 2800, 100, 100, false, onInt, probe("single"));
    VexGUIListAppendItem(single, "only");
    VexGUIListAppendItem(single, "other");
    EXPECT_EQ(errorOf([&] {
                  user().selectLines(list_, {1, 4});
              }),
              "The list " + id(list_) + " in the dialog \"Main\" has 3 lines; there is no line 4.");
    EXPECT_EQ(errorOf([&] { user().selectLines(list_, {2, 2}); }), "Line 2 is given twice.");
    EXPECT_EQ(errorOf([&] {
                  user().selectLines(single, {1, 2});
              }),
              "The list " + id(single) +
                  " in the dialog \"Main\" selects one line at a time; 2 were given.");
    user().selectLines(single, {2});
    EXPECT_EQ(takeEvents(), Strings{"single 2"});
}

TEST_F(GuiUserTest, EnteringTextSetsItThenFiresEvenWhenItIsTheSameText) {
    user().enterText(name_, "Left side");
    user().enterText(name_, "Left side");
    user().enterText(cycles_, "4");
    EXPECT_EQ(control(name_).text, "Left side");
    EXPECT_EQ(takeEvents(), (Strings{"name \"Left side\"", "name \"Left side\"", "cycles \"4\""}));
}

TEST_F(GuiUserTest, TheAddOnSettingTheTextFiresNothing) {
    VexGUITextFieldSetString(name_, "View 1");
    EXPECT_TRUE(takeEvents().empty());
}

TEST_F(GuiUserTest, SpinArrowsFireTheirCallbacks) {
    user().spin(cycles_, true);
    user().spin(cycles_, false);
    EXPECT_EQ(takeEvents(), (Strings{"cycles 1", "cycles -1"}));
}

TEST_F(GuiUserTest, ChoosingAnOptionSetsItThenFiresOnlyOnAChange) {
    user().chooseOption(destination_, 2);
    user().chooseOption(destination_, 2);
    EXPECT_EQ(control(destination_).choice, 2);
    EXPECT_EQ(errorOf([&] { user().chooseOption(destination_, 3); }),
              "The option menu " + id(destination_) +
                  " in the dialog \"Main\" has 2 entries; there is no entry 3.");
    EXPECT_EQ(takeEvents(), Strings{"dest 2"});
}

TEST_F(GuiUserTest, SettingAToggleFiresOnlyOnAChange) {
    user().setToggle(antialiasing_, true);
    user().setToggle(antialiasing_, true);
    user().setToggle(antialiasing_, false);
    EXPECT_EQ(takeEvents(), (Strings{"aa 1", "aa 0"}));
}

TEST_F(GuiUserTest, ChoosingARadioButtonFiresOnlyOnAChange) {
    user().chooseRadioButton(operation_, 2);
    user().chooseRadioButton(operation_, 2);
    EXPECT_EQ(control(operation_).choice, 2);
    EXPECT_EQ(errorOf([&] { user().chooseRadioButton(operation_, 4); }),
              "The radio box " + id(operation_) +
                  " in the dialog \"Main\" has 3 buttons; there is no button 4.");
    EXPECT_EQ(takeEvents(), Strings{"op 2"});
}

TEST_F(GuiUserTest, MenuItemsFireAndMenuTogglesFlipOrTakeTheStateGiven) {
    user().chooseMenuEntry(save_);
    user().chooseMenuEntry(fadeIn_);
    user().chooseMenuEntry(fadeIn_, true);
    user().chooseMenuEntry(fadeIn_);
    user().chooseMenuEntry(deep_);
    EXPECT_FALSE(control(fadeIn_).isOn);
    EXPECT_EQ(takeEvents(), (Strings{"save", "fade in 1", "fade in 0", "deep"}));
    EXPECT_EQ(errorOf([&] { user().chooseMenuEntry(save_, true); }),
              "The menu item \"&Save Animation File\" (" + id(save_) +
                  ") in the dialog \"Main\" is not a menu toggle: it cannot be set on or off.");
}

TEST_F(GuiUserTest, AnInsensitiveMenuKeepsItsEntriesOutOfReach) {
    VexGUISetSensitivity(options_, false);
    EXPECT_EQ(
        errorOf([&] { user().chooseMenuEntry(deep_); }),
        "The menu \"&Options\" (" + id(options_) + ") in the dialog \"Main\" is insensitive.");
    VexGUISetSensitivity(options_, true);
    VexGUISetSensitivity(dialog(main_).menuBarId, false);
    EXPECT_EQ(
        errorOf([&] { user().chooseMenuEntry(save_); }),
        "The menu bar " + id(dialog(main_).menuBarId) + " in the dialog \"Main\" is insensitive.");
    EXPECT_TRUE(takeEvents().empty());
}

TEST_F(GuiUserTest, StateIsSetBeforeTheCallbackRuns) {
    static std::vector<std::string> seen;
    seen.clear();
    const int32_t dialogId = addModeless("Reader");
    static int32_t list = VEXGUI_BAD_ID;
    static int32_t field = VEXGUI_BAD_ID;
    list = VexGUIListAdd(
        dialogId, 0, 0, 100, 100, true,
        [](int32_t, void*) {
            int32_t* items = nullptr;
            int32_t count = 0;
            VexGUIListGetSelectedItems(list, &items, &count);
            seen.push_back("selected " + std::to_string(count));
            VexUtilArrayDealloc(reinterpret_cast<void**>(&items));
        },
        nullptr);
    VexGUIListAppendItem(list, "a");
    VexGUIListAppendItem(list, "b");
    field = VexGUITextFieldAdd(
        dialogId, 0, 200, 100, 145,
        [](const char* text, void*) {
            char* shown = VexGUITextFieldGetString(field);
            seen.push_back(std::string(text) + " shown as " + shown);
            VexUtilStringDealloc(&shown);
            VexGUITextFieldSetString(field, "corrected");
        },
        nullptr);
    VexGUIDialogLaunch(dialogId);
    user().selectLines(list, {1, 2});
    user().enterText(field, "typed");
    EXPECT_EQ(seen, (Strings{"selected 2", "typed shown as typed"}));
    EXPECT_EQ(control(field).text, "corrected") << "the callback may set the text it was given";
}

TEST_F(GuiUserTest, ModelessDialogHasCloseAndHelpButtons) {
    user().pressDialogButton(main_, GuiUser::DialogButton::Help);
    user().pressDialogButton(main_, GuiUser::DialogButton::Close);
    EXPECT_EQ(takeEvents(), (Strings{"Main help", "Main close"}));
    EXPECT_TRUE(dialog(main_).up) << "the close callback decides whether the dialog goes";
    EXPECT_EQ(errorOf([&] { user().pressDialogButton(main_, GuiUser::DialogButton::Ok); }),
              "The dialog \"Main\" has no OK button; it has Close and Help.");
}

TEST_F(GuiUserTest, ModalDialogHasOkApplyCancelAndHelpAndItsCloseIsCancel) {
    const int32_t options = addModal("Options", true);
    VexGUIDialogLaunch(options);
    for (GuiUser::DialogButton button :
         {GuiUser::DialogButton::Apply, GuiUser::DialogButton::Help, GuiUser::DialogButton::Ok,
          GuiUser::DialogButton::Cancel, GuiUser::DialogButton::Close})
        user().pressDialogButton(options, button);
    EXPECT_EQ(takeEvents(), (Strings{"Options init", "Options apply", "Options help", "Options ok",
                                     "Options cancel", "Options cancel"}));
    VexGUIDialogDrop(options);
}

TEST_F(GuiUserTest, ModalDialogWithoutApplyCallbackHasNoApplyButton) {
    const int32_t options = addModal("Options", false);
    VexGUIDialogLaunch(options);
    EXPECT_EQ(errorOf([&] { user().pressDialogButton(options, GuiUser::DialogButton::Apply); }),
              "The dialog \"Options\" has no Apply button; it has OK, Cancel and Help.");
    VexGUIDialogDrop(options);
}

TEST_F(GuiUserTest, DialogWithoutOkCancelOrCloseCallbacksIsDroppedByTheHost) {
    const int32_t bare = VexGUIDialogCreateModal(-1, 100, 100, "Bare", nullptr, nullptr, nullptr,
                                                 nullptr, nullptr, nullptr);
    VexGUIDialogLaunch(bare);
    user().pressDialogButton(bare, GuiUser::DialogButton::Ok);
    EXPECT_FALSE(dialog(bare).up);
    VexGUIDialogLaunch(bare);
    user().pressDialogButton(bare, GuiUser::DialogButton::Close);
    EXPECT_FALSE(dialog(bare).up);
    EXPECT_EQ(errorOf([&] {
                  VexGUIDialogLaunch(bare);
                  user().pressDialogButton(bare, GuiUser::DialogButton::Help);
              }),
              "The dialog \"Bare\" has no Help button; it has OK and Cancel.");
    VexGUIDialogDrop(bare);
}

// ---- The host's menus ---------------------------------------------------------------------------

int32_t launchedFromMenu = VEXGUI_BAD_ID;

TEST_F(GuiUserTest, HostMenuItemIsChosenThroughTheHostsMenus) {
    launchedFromMenu = addModal("From Menu");
    VexUtilMenuAddOption("Animate", "&Key Frame Animation...", 1,
                         [] { VexGUIDialogLaunch(launchedFromMenu); });
    user().chooseHostMenuItem("animate", "key frame animation...");
    EXPECT_TRUE(dialog(launchedFromMenu).up);
    EXPECT_EQ(errorOf([&] { user().chooseHostMenuItem("Animate", "&Key Frame Animation..."); }),
              "The host's menus cannot be used while the modal dialog \"From Menu\" is up.");
    VexGUIDialogDrop(launchedFromMenu);
    EXPECT_EQ(takeEvents(), Strings{"From Menu init"});
}

TEST_F(GuiUserTest, UnknownHostMenuItemListsTheItemsTheAddOnsAdded) {
    EXPECT_EQ(errorOf([&] { user().chooseHostMenuItem("Animate", "Movie"); }),
              "The host's menus have no item \"Movie\" in \"Animate\"; no add-on has added a menu "
              "item.");
    VexUtilMenuAddOption("Animate", "&Key Frame Animation...", 1, [] {});
    VexUtilMenuAddOption("Tools", "Probe", 0, [] {});
    EXPECT_EQ(errorOf([&] { user().chooseHostMenuItem("Animate", "Movie"); }),
              "The host's menus have no item \"Movie\" in \"Animate\"; the add-ons' items are "
              "\"Animate\" \"&Key Frame Animation...\" and \"Tools\" \"Probe\".");
}

}  // namespace
}  // namespace guitest
