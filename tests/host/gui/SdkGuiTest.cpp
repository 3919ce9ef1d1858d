// The GUI library's calls on the host's GUI model: ids, what each call stores, the call log,
// host errors for every kind of mistake (nothing changes then), host arrays and strings counted,
// and no callback fired by the add-on's own calls.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "GuiFixture.h"
#include "support/CallLogLines.h"
#include "vexhost/Bookkeeping.h"
#include "vxtoolbox/StringList.h"

namespace guitest {
namespace {

using vexhost::Bookkeeping;
using vexhost::GuiControl;
using Kind = vexhost::GuiControl::Kind;
using Strings = std::vector<std::string>;

class SdkGuiTest : public GuiFixture {};

TEST_F(SdkGuiTest, DialogsAndControlsShareUniquePositiveIdsCountedFromOneAfterAReset) {
    const int32_t main = addModeless();
    const int32_t button = VexGUIButtonAdd(main, 10, 10, 100, 50, "Go", nullptr, nullptr);
    const int32_t options = addModal();
    EXPECT_EQ(main, 1);
    EXPECT_EQ(button, 2);
    EXPECT_EQ(options, 3);
    EXPECT_EQ(control(button).kind, Kind::Button);
    EXPECT_EQ(control(button).dialogId, main);
    EXPECT_EQ(dialog(main).controls, std::vector<int32_t>{button});
    host().reset();
    EXPECT_EQ(gui().dialog(main), nullptr);
    EXPECT_EQ(addModeless(), 1);
}

TEST_F(SdkGuiTest, CallsAreLoggedWithTheirArgumentsLeavingOutCallbacksAndClientData) {
    startCallLog();
    const int32_t main = addModeless("Key Frame Animation");
    VexGUIButtonAdd(main, 3160, 65, 1433, 145, "&Append     ", onVoid, probe("append"));
    const int32_t list = VexGUIListAdd(main, 224, 65, 2745, 1414, true, onInt, probe("list"));
    VexGUIListAppendItem(list, "View 1");
    VexGUIListAppendItem(list, "View 2");
    VexGUIListAppendItem(list, "View 3");
    const int32_t lines[] = {3, 1};
    VexGUIListSetSelectedItems(list, lines, 2);
    VexGUISetSensitivity(list, false);
    VexGUIDialogLaunch(main);
    EXPECT_EQ(
        takeCallLog(),
        (Strings{vextest::callLine("VexGUIDialogCreateModeless",
                                   {-1, 5000, 3000, "Key Frame Animation"}),
                 vextest::callLine("VexGUIButtonAdd", {1, 3160, 65, 1433, 145, "&Append     "}),
                 vextest::callLine("VexGUIListAdd", {1, 224, 65, 2745, 1414, true}),
                 vextest::callLine("VexGUIListAppendItem", {3, "View 1"}),
                 vextest::callLine("VexGUIListAppendItem", {3, "View 2"}),
                 vextest::callLine("VexGUIListAppendItem", {3, "View 3"}),
                 vextest::callLine("VexGUIListSetSelectedItems",
                                   {3, vextest::CallArg::raw("[3, 1]"), 2}),
                 vextest::callLine("VexGUISetSensitivity", {3, false}),
                 vextest::callLine("VexGUIDialogLaunch", {1})}));
}

TEST_F(SdkGuiTest, LabelsTitlesAndPlacesAreKeptExactlyAsGiven) {
    const int32_t main = addModeless("Key Frame Animation");
    const int32_t button =
        VexGUIButtonAdd(main, 2884, 2299, 1243, 232, "  Animate \n&Selected", nullptr, nullptr);
    const int32_t label = VexGUILabelAdd(main, 207, 2016, "Destination:");
    const int32_t frame = VexGUIFrameAdd(main, 207, 79, 4500, 732, "Animation Operation");
    EXPECT_EQ(dialog(main).title, "Key Frame Animation");
    EXPECT_EQ(dialog(main).width, 5000);
    EXPECT_EQ(dialog(main).height, 3000);
    EXPECT_FALSE(dialog(main).modal);
    EXPECT_EQ(dialog(main).parentId, VEXGUI_MAIN_DIALOG_PARENT);
    EXPECT_EQ(control(button).label, "  Animate \n&Selected");
    EXPECT_EQ(control(button).x, 2884);
    EXPECT_EQ(control(button).y, 2299);
    EXPECT_EQ(control(button).width, 1243);
    EXPECT_EQ(control(button).height, 232);
    EXPECT_TRUE(control(button).sensitive);
    EXPECT_EQ(control(label).label, "Destination:");
    EXPECT_FALSE(control(label).hasSize());
    EXPECT_EQ(control(frame).label, "Animation Operation");
    VexGUILabelSetText(label, "Dimensions: 800 x 600");
    EXPECT_EQ(control(label).label, "Dimensions: 800 x 600");
}

TEST_F(SdkGuiTest, ControlOutsideItsDialogIsAHostErrorAndIsNotCreated) {
    const int32_t main = addModeless();
    EXPECT_EQ(VexGUIButtonAdd(main, 4000, 10, 1001, 145, "Wide", nullptr, nullptr), VEXGUI_BAD_ID);
    EXPECT_EQ(VexGUILabelAdd(main, 10, 3000, "Below"), VEXGUI_BAD_ID);
    EXPECT_EQ(takeHostErrors(),
              (Strings{"VexGUIButtonAdd: the button at (4000, 10) of size 1001 x 145 lies outside "
                       "the dialog \"Main\" of size 5000 x 3000",
                       "VexGUILabelAdd: the label at (10, 3000) lies outside the dialog \"Main\" "
                       "of size 5000 x 3000"}));
    EXPECT_TRUE(dialog(main).controls.empty());
    EXPECT_NE(VexGUIButtonAdd(main, 4000, 2855, 1000, 145, "Corner", nullptr, nullptr),
              VEXGUI_BAD_ID)
        << "a control may reach the dialog's edge";
}

TEST_F(SdkGuiTest, NegativePlaceOrEmptySizeIsAHostError) {
    const int32_t main = addModeless();
    EXPECT_EQ(VexGUIListAdd(main, -1, 0, 10, 10, false, nullptr, nullptr), VEXGUI_BAD_ID);
    EXPECT_EQ(VexGUITextFieldAdd(main, 0, 0, 0, 145, nullptr, nullptr), VEXGUI_BAD_ID);
    EXPECT_EQ(takeHostErrors(), (Strings{"VexGUIListAdd: the position (-1, 0) is negative",
                                         "VexGUITextFieldAdd: the size 0 x 145 is not positive"}));
}

TEST_F(SdkGuiTest, ControlOnAnIdThatIsNotADialogIsAHostError) {
    const int32_t main = addModeless();
    const int32_t button = VexGUIButtonAdd(main, 0, 0, 10, 10, "B", nullptr, nullptr);
    EXPECT_EQ(VexGUIToggleAdd(99, 0, 0, 10, 10, "T", nullptr, nullptr), VEXGUI_BAD_ID);
    EXPECT_EQ(VexGUIOptionMenuAdd(button, 0, 0, 10, 10, nullptr, nullptr), VEXGUI_BAD_ID);
    EXPECT_EQ(VexGUIMenuBarAdd(VEXGUI_BAD_ID), VEXGUI_BAD_ID);
    EXPECT_EQ(takeHostErrors(), (Strings{"VexGUIToggleAdd: there is no dialog 99",
                                         "VexGUIOptionMenuAdd: 2 is a button, not a dialog",
                                         "VexGUIMenuBarAdd: there is no dialog -2 "
                                         "(VEXGUI_BAD_ID: it was not created)"}));
}

TEST_F(SdkGuiTest, DialogNeedsAKnownParentAPositiveSizeAndATitle) {
    const int32_t main = addModeless();
    EXPECT_NE(VexGUIDialogCreateModal(main, 100, 100, "Child", nullptr, nullptr, nullptr, nullptr,
                                      nullptr, nullptr),
              VEXGUI_BAD_ID);
    EXPECT_EQ(VexGUIDialogCreateModal(7, 100, 100, "Orphan", nullptr, nullptr, nullptr, nullptr,
                                      nullptr, nullptr),
              VEXGUI_BAD_ID);
    EXPECT_EQ(VexGUIDialogCreateModeless(-1, 100, 0, "Flat", nullptr, nullptr, nullptr, nullptr),
              VEXGUI_BAD_ID);
    EXPECT_EQ(VexGUIDialogCreateModeless(-1, 100, 100, nullptr, nullptr, nullptr, nullptr, nullptr),
              VEXGUI_BAD_ID);
    EXPECT_EQ(takeHostErrors(),
              (Strings{"VexGUIDialogCreateModal: the parent 7 is neither a dialog nor "
                       "VEXGUI_MAIN_DIALOG_PARENT (-1)",
                       "VexGUIDialogCreateModeless: the size 100 x 0 is not positive",
                       "VexGUIDialogCreateModeless: the title is missing"}));
    EXPECT_EQ(gui().dialogs().size(), 2u);
}

// One row per call that needs a control of some kind, given a control of another kind.
struct WrongKindCase {
    const char* name;
    void (*call)(int32_t id);
    const char* error;
};

const WrongKindCase WrongKindCases[] = {
    {"ToggleGet", [](int32_t id) { VexGUIToggleGet(id); },
     "VexGUIToggleGet: 2 is a button, not a toggle"},
    {"ToggleSet", [](int32_t id) { VexGUIToggleSet(id, true); },
     "VexGUIToggleSet: 2 is a button, not a toggle"},
    {"LabelSetText", [](int32_t id) { VexGUILabelSetText(id, "x"); },
     "VexGUILabelSetText: 2 is a button, not a label"},
    {"TextFieldSetString", [](int32_t id) { VexGUITextFieldSetString(id, "x"); },
     "VexGUITextFieldSetString: 2 is a button, not a text field or a spin text field"},
    {"TextFieldGetString", [](int32_t id) { EXPECT_EQ(VexGUITextFieldGetString(id), nullptr); },
     "VexGUITextFieldGetString: 2 is a button, not a text field or a spin text field"},
    {"ListAppendItem", [](int32_t id) { VexGUIListAppendItem(id, "x"); },
     "VexGUIListAppendItem: 2 is a button, not a list"},
    {"ListReplaceItem", [](int32_t id) { VexGUIListReplaceItem(id, "x", 1); },
     "VexGUIListReplaceItem: 2 is a button, not a list"},
    {"ListDeleteItemAtPos", [](int32_t id) { VexGUIListDeleteItemAtPos(id, 1); },
     "VexGUIListDeleteItemAtPos: 2 is a button, not a list"},
    {"ListDeleteAllItems", [](int32_t id) { VexGUIListDeleteAllItems(id); },
     "VexGUIListDeleteAllItems: 2 is a button, not a list"},
    {"ListGetItemCount", [](int32_t id) { EXPECT_EQ(VexGUIListGetItemCount(id), 0); },
     "VexGUIListGetItemCount: 2 is a button, not a list"},
    {"ListGetSelectedItems",
     [](int32_t id) {
         int32_t* items = nullptr;
         int32_t count = 7;
         VexGUIListGetSelectedItems(id, &items, &count);
         EXPECT_EQ(items, nullptr);
         EXPECT_EQ(count, 0);
     },
     "VexGUIListGetSelectedItems: 2 is a button, not a list"},
    {"ListSetSelectedItem", [](int32_t id) { VexGUIListSetSelectedItem(id, 1); },
     "VexGUIListSetSelectedItem: 2 is a button, not a list"},
    {"ListSetSelectedItems", [](int32_t id) { VexGUIListSetSelectedItems(id, nullptr, 0); },
     "VexGUIListSetSelectedItems: 2 is a button, not a list"},
    {"ListDeselectAllItems", [](int32_t id) { VexGUIListDeselectAllItems(id); },
     "VexGUIListDeselectAllItems: 2 is a button, not a list"},
    {"OptionMenuAppendItem", [](int32_t id) { VexGUIOptionMenuAppendItem(id, "x"); },
     "VexGUIOptionMenuAppendItem: 2 is a button, not an option menu"},
    {"OptionMenuDeleteAllItems", [](int32_t id) { VexGUIOptionMenuDeleteAllItems(id); },
     "VexGUIOptionMenuDeleteAllItems: 2 is a button, not an option menu"},
    {"OptionMenuGet", [](int32_t id) { EXPECT_EQ(VexGUIOptionMenuGet(id), 0); },
     "VexGUIOptionMenuGet: 2 is a button, not an option menu"},
    {"OptionMenuSet", [](int32_t id) { VexGUIOptionMenuSet(id, 1); },
     "VexGUIOptionMenuSet: 2 is a button, not an option menu"},
    {"RadioBoxGetToggle", [](int32_t id) { EXPECT_EQ(VexGUIRadioBoxGetToggle(id), 0); },
     "VexGUIRadioBoxGetToggle: 2 is a button, not a radio box"},
    {"RadioBoxSetToggle", [](int32_t id) { VexGUIRadioBoxSetToggle(id, 1); },
     "VexGUIRadioBoxSetToggle: 2 is a button, not a radio box"},
    {"MenuAdd", [](int32_t id) { EXPECT_EQ(VexGUIMenuAdd(id, "x"), VEXGUI_BAD_ID); },
     "VexGUIMenuAdd: 2 is a button, not a menu bar or a menu"},
    {"MenuAddItem",
     [](int32_t id) { EXPECT_EQ(VexGUIMenuAddItem(id, "x", nullptr, nullptr), VEXGUI_BAD_ID); },
     "VexGUIMenuAddItem: 2 is a button, not a menu"},
    {"MenuAddToggle",
     [](int32_t id) { EXPECT_EQ(VexGUIMenuAddToggle(id, "x", nullptr, nullptr), VEXGUI_BAD_ID); },
     "VexGUIMenuAddToggle: 2 is a button, not a menu"},
    {"MenuSetToggle", [](int32_t id) { VexGUIMenuSetToggle(id, true); },
     "VexGUIMenuSetToggle: 2 is a button, not a menu toggle"},
    {"DialogLaunch", [](int32_t id) { VexGUIDialogLaunch(id); },
     "VexGUIDialogLaunch: 2 is a button, not a dialog"},
    {"DialogDrop", [](int32_t id) { VexGUIDialogDrop(id); },
     "VexGUIDialogDrop: 2 is a button, not a dialog"},
    {"DialogIsUp", [](int32_t id) { EXPECT_FALSE(VexGUIDialogIsUp(id)); },
     "VexGUIDialogIsUp: 2 is a button, not a dialog"},
};

TEST_F(SdkGuiTest, EveryCallOnAControlOfTheWrongKindIsAHostErrorNamingBoth) {
    const int32_t main = addModeless();
    const int32_t button = VexGUIButtonAdd(main, 0, 0, 10, 10, "B", nullptr, nullptr);
    ASSERT_EQ(button, 2);
    for (const WrongKindCase& row : WrongKindCases) {
        SCOPED_TRACE(row.name);
        row.call(button);
        EXPECT_EQ(takeHostErrors(), Strings{row.error});
    }
    EXPECT_EQ(control(button).label, "B");
}

TEST_F(SdkGuiTest, CallsOnIdsThatDoNotExistAreHostErrors) {
    const int32_t main = addModeless();
    VexGUISetSensitivity(VEXGUI_BAD_ID, false);
    VexGUISetToolTip(42, "tip");
    VexGUIListAppendItem(main, "line");
    EXPECT_FALSE(VexGUIDialogIsUp(42));
    EXPECT_EQ(takeHostErrors(),
              (Strings{"VexGUISetSensitivity: there is no control -2 (VEXGUI_BAD_ID: it was not "
                       "created)",
                       "VexGUISetToolTip: there is no control 42",
                       "VexGUIListAppendItem: 1 is the dialog \"Main\", not a list",
                       "VexGUIDialogIsUp: there is no dialog 42"}));
}

TEST_F(SdkGuiTest, MissingTextsAreHostErrors) {
    const int32_t main = addModeless();
    const int32_t field = VexGUITextFieldAdd(main, 0, 0, 100, 145, nullptr, nullptr);
    EXPECT_EQ(VexGUIButtonAdd(main, 0, 0, 10, 10, nullptr, nullptr, nullptr), VEXGUI_BAD_ID);
    VexGUITextFieldSetString(field, "kept");
    VexGUITextFieldSetString(field, nullptr);
    VexGUISetToolTip(field, nullptr);
    EXPECT_EQ(takeHostErrors(), (Strings{"VexGUIButtonAdd: the label is missing",
                                         "VexGUITextFieldSetString: the text is missing",
                                         "VexGUISetToolTip: the tool tip is missing"}));
    EXPECT_EQ(control(field).text, "kept");
}

TEST_F(SdkGuiTest, LaunchShowsTheDialogAndThenRunsItsInitCallback) {
    static bool upDuringInit = false;
    static int32_t launched = VEXGUI_BAD_ID;
    launched = VexGUIDialogCreateModeless(
        -1, 100, 100, "Main", [](void*) { upDuringInit = VexGUIDialogIsUp(launched); }, nullptr,
        nullptr, nullptr);
    EXPECT_FALSE(VexGUIDialogIsUp(launched));
    VexGUIDialogLaunch(launched);
    EXPECT_TRUE(upDuringInit);
    EXPECT_TRUE(VexGUIDialogIsUp(launched));
    EXPECT_EQ(dialog(launched).launchCount, 1u);
}

TEST_F(SdkGuiTest, LaunchingAModelessDialogThatIsUpRunsNothingAgain) {
    const int32_t main = addModeless();
    VexGUIDialogLaunch(main);
    VexGUIDialogLaunch(main);
    EXPECT_EQ(takeEvents(), Strings{"Main init"});
    VexGUIDialogDrop(main);
    VexGUIDialogLaunch(main);
    EXPECT_EQ(takeEvents(), Strings{"Main init"}) << "shown again, it is initialised again";
    EXPECT_EQ(dialog(main).launchCount, 2u);
}

TEST_F(SdkGuiTest, LaunchingAModalDialogThatIsUpIsAHostError) {
    const int32_t options = addModal();
    VexGUIDialogLaunch(options);
    VexGUIDialogLaunch(options);
    EXPECT_EQ(takeHostErrors(),
              Strings{"VexGUIDialogLaunch: the modal dialog \"Options\" is up already"});
    EXPECT_EQ(takeEvents(), Strings{"Options init"});
    VexGUIDialogDrop(options);
}

TEST_F(SdkGuiTest, ModalLaunchDoesNotBlockAndKeepsTheDialogUpUntilItIsDropped) {
    const int32_t options = addModal();
    VexGUIDialogLaunch(options);
    EXPECT_TRUE(VexGUIDialogIsUp(options));
    EXPECT_EQ(gui().modalDialogsUp(), std::vector<int32_t>{options});
    VexGUIDialogDrop(options);
    EXPECT_FALSE(VexGUIDialogIsUp(options));
    EXPECT_FALSE(gui().isModalDialogUp());
}

TEST_F(SdkGuiTest, DropHidesTheDialogWithoutCallbacksAndMayBeRepeated) {
    const int32_t main = addModeless();
    VexGUIDialogDrop(main);
    VexGUIDialogLaunch(main);
    VexGUIDialogDrop(main);
    VexGUIDialogDrop(main);
    EXPECT_FALSE(VexGUIDialogIsUp(main));
    EXPECT_EQ(takeEvents(), Strings{"Main init"});
}

TEST_F(SdkGuiTest, TogglesStartOffAndSettingThemFiresNothing) {
    const int32_t main = addModeless();
    const int32_t toggle =
        VexGUIToggleAdd(main, 293, 1334, 2055, 123, "&Antialiasing", onInt, probe("aa"));
    EXPECT_FALSE(VexGUIToggleGet(toggle));
    VexGUIToggleSet(toggle, true);
    EXPECT_TRUE(VexGUIToggleGet(toggle));
    EXPECT_TRUE(takeEvents().empty());
}

TEST_F(SdkGuiTest, TextFieldsHandOutTheirTextAsCountedHostStringsAndFireNothingWhenSet) {
    const int32_t main = addModeless();
    const int32_t field = VexGUITextFieldAdd(main, 0, 0, 100, 145, onText, probe("name"));
    const int32_t spin =
        VexGUISpinTextFieldAdd(main, 0, 200, 100, 145, onText, onVoid, onVoid, probe("cycles"));
    char* empty = VexGUITextFieldGetString(field);
    EXPECT_STREQ(empty, "");
    VexGUITextFieldSetString(field, "View 1");
    VexGUITextFieldSetString(spin, "3");
    char* name = VexGUITextFieldGetString(field);
    char* cycles = VexGUITextFieldGetString(spin);
    EXPECT_STREQ(name, "View 1");
    EXPECT_STREQ(cycles, "3");
    EXPECT_EQ(host().bookkeeping().outstanding(Bookkeeping::Kind::String), 3u);
    VexUtilStringDealloc(&empty);
    VexUtilStringDealloc(&name);
    VexUtilStringDealloc(&cycles);
    EXPECT_TRUE(takeEvents().empty());
}

TEST_F(SdkGuiTest, TextFieldGetStringAnswersNullWhenTheHostIsOutOfMemory) {
    const int32_t main = addModeless();
    const int32_t field = VexGUITextFieldAdd(main, 0, 0, 100, 145, nullptr, nullptr);
    host().bookkeeping().failStringAllocation(1);
    EXPECT_EQ(VexGUITextFieldGetString(field), nullptr);
}

class SdkGuiListTest : public SdkGuiTest {
protected:
    void SetUp() override {
        SdkGuiTest::SetUp();
        main_ = addModeless();
        list_ = VexGUIListAdd(main_, 224, 65, 2745, 1414, true, onInt, probe("list"));
        single_ = VexGUIListAdd(main_, 224, 1500, 2745, 500, false, onInt, probe("single"));
        for (const char* line : {"View 1", "View 2", "View 3", "View 4"}) {
            VexGUIListAppendItem(list_, line);
            VexGUIListAppendItem(single_, line);
        }
    }
    std::vector<int32_t> selected(int32_t list) {
        int32_t* items = nullptr;
        int32_t count = -1;
        VexGUIListGetSelectedItems(list, &items, &count);
        std::vector<int32_t> lines(items, items + count);
        VexUtilArrayDealloc(reinterpret_cast<void**>(&items));
        return lines;
    }
    void select(int32_t list, std::vector<int32_t> lines) {
        VexGUIListSetSelectedItems(list, lines.data(), static_cast<int32_t>(lines.size()));
    }

    int32_t main_ = VEXGUI_BAD_ID;
    int32_t list_ = VEXGUI_BAD_ID;
    int32_t single_ = VEXGUI_BAD_ID;
};

TEST_F(SdkGuiListTest, LinesAreAppendedReplacedAndCounted) {
    EXPECT_EQ(VexGUIListGetItemCount(list_), 4);
    VexGUIListReplaceItem(list_, "Renamed", 2);
    EXPECT_EQ(control(list_).items, (Strings{"View 1", "Renamed", "View 3", "View 4"}));
    EXPECT_TRUE(control(list_).multiSelection);
    EXPECT_FALSE(control(single_).multiSelection);
}

TEST_F(SdkGuiListTest, SelectedLinesComeAsACountedHostArrayInAscendingOrder) {
    select(list_, {4, 2});
    int32_t* items = nullptr;
    int32_t count = 0;
    VexGUIListGetSelectedItems(list_, &items, &count);
    ASSERT_EQ(count, 2);
    EXPECT_EQ(items[0], 2);
    EXPECT_EQ(items[1], 4);
    EXPECT_EQ(host().bookkeeping().outstanding(Bookkeeping::Kind::Array), 1u);
    VexUtilArrayDealloc(reinterpret_cast<void**>(&items));
    EXPECT_EQ(items, nullptr);
}

TEST_F(SdkGuiListTest, NothingSelectedGivesNullAndACountOfZero) {
    int32_t* items = reinterpret_cast<int32_t*>(&main_);
    int32_t count = 5;
    VexGUIListGetSelectedItems(list_, &items, &count);
    EXPECT_EQ(items, nullptr);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(host().bookkeeping().handedOut(Bookkeeping::Kind::Array), 0u);
}

TEST_F(SdkGuiListTest, GettingTheSelectionWithoutPlacesForItIsAHostError) {
    int32_t count = 0;
    VexGUIListGetSelectedItems(list_, nullptr, &count);
    EXPECT_EQ(takeHostErrors(), Strings{"VexGUIListGetSelectedItems: no place for the selected "
                                        "lines or their count was given"});
}

TEST_F(SdkGuiListTest, SetSelectedItemSelectsThatLineAloneEvenInAMultipleSelectionList) {
    select(list_, {1, 3});
    VexGUIListSetSelectedItem(list_, 2);
    EXPECT_EQ(selected(list_), std::vector<int32_t>{2});
    EXPECT_TRUE(takeEvents().empty()) << "the add-on's selection fires nothing";
}

TEST_F(SdkGuiListTest, ReplacingALineKeepsTheSelection) {
    select(list_, {2, 3});
    VexGUIListReplaceItem(list_, "New 2", 2);
    EXPECT_EQ(selected(list_), (std::vector<int32_t>{2, 3}));
}

TEST_F(SdkGuiListTest, DeletingALineTakesItOutOfTheSelectionAndMovesTheLinesBelowUp) {
    select(list_, {1, 2, 4});
    VexGUIListDeleteItemAtPos(list_, 2);
    EXPECT_EQ(control(list_).items, (Strings{"View 1", "View 3", "View 4"}));
    EXPECT_EQ(selected(list_), (std::vector<int32_t>{1, 3}));
    VexGUIListDeleteAllItems(list_);
    EXPECT_EQ(VexGUIListGetItemCount(list_), 0);
    EXPECT_TRUE(selected(list_).empty());
}

TEST_F(SdkGuiListTest, SingleSelectionListTakesOneLineAndIsLeftAsItWasOtherwise) {
    select(single_, {3});
    select(single_, {1, 2});
    EXPECT_EQ(takeHostErrors(), Strings{"VexGUIListSetSelectedItems: the list 3 takes one "
                                        "selected line, not 2"});
    EXPECT_EQ(selected(single_), std::vector<int32_t>{3});
    select(single_, {2, 2});
    EXPECT_EQ(selected(single_), std::vector<int32_t>{2}) << "a line named twice is one line";
}

TEST_F(SdkGuiListTest, LinesOutOfRangeAreHostErrorsAndChangeNothing) {
    select(list_, {1});
    select(list_, {2, 5});
    VexGUIListSetSelectedItem(list_, 0);
    VexGUIListReplaceItem(list_, "x", 5);
    VexGUIListDeleteItemAtPos(list_, -1);
    const int32_t lines[] = {1};
    VexGUIListSetSelectedItems(list_, lines, -1);
    VexGUIListSetSelectedItems(list_, nullptr, 2);
    EXPECT_EQ(takeHostErrors(),
              (Strings{"VexGUIListSetSelectedItems: the list 2 has no line 5 (it has 4)",
                       "VexGUIListSetSelectedItem: the list 2 has no line 0 (it has 4)",
                       "VexGUIListReplaceItem: the list 2 has no line 5 (it has 4)",
                       "VexGUIListDeleteItemAtPos: the list 2 has no line -1 (it has 4)",
                       "VexGUIListSetSelectedItems: the count -1 is negative",
                       "VexGUIListSetSelectedItems: the lines are missing (NULL for 2 lines)"}));
    EXPECT_EQ(selected(list_), std::vector<int32_t>{1});
    EXPECT_EQ(VexGUIListGetItemCount(list_), 4);
}

TEST_F(SdkGuiListTest, NoLinesGivenDeselectsEveryLine) {
    select(list_, {1, 2});
    VexGUIListSetSelectedItems(list_, nullptr, 0);
    EXPECT_TRUE(selected(list_).empty());
    select(list_, {3});
    VexGUIListDeselectAllItems(list_);
    EXPECT_TRUE(selected(list_).empty());
    EXPECT_TRUE(takeEvents().empty());
}

TEST_F(SdkGuiTest, OptionMenuShowsItsFirstEntryOnceItHasOne) {
    const int32_t main = addModeless();
    const int32_t menu = VexGUIOptionMenuAdd(main, 1847, 2066, 2711, 145, onInt, probe("dest"));
    EXPECT_EQ(VexGUIOptionMenuGet(menu), 0);
    VexGUIOptionMenuAppendItem(menu, "On Screen");
    VexGUIOptionMenuAppendItem(menu, "To File");
    EXPECT_EQ(VexGUIOptionMenuGet(menu), 1);
    VexGUIOptionMenuSet(menu, 2);
    EXPECT_EQ(VexGUIOptionMenuGet(menu), 2);
    VexGUIOptionMenuSet(menu, 3);
    EXPECT_EQ(takeHostErrors(),
              Strings{"VexGUIOptionMenuSet: the option menu 2 has no entry 3 (it has 2)"});
    EXPECT_EQ(VexGUIOptionMenuGet(menu), 2);
    VexGUIOptionMenuDeleteAllItems(menu);
    EXPECT_EQ(VexGUIOptionMenuGet(menu), 0);
    EXPECT_TRUE(control(menu).items.empty());
    EXPECT_TRUE(takeEvents().empty());
}

TEST_F(SdkGuiTest, RadioBoxTakesItsButtonsFromTheStringListAndStartsWithNoneOn) {
    const int32_t main = addModeless();
    int32_t box = VEXGUI_BAD_ID;
    {
        vexplot::toolbox::StringList labels{"&Forward", "&Loop", "&Bounce", "&As Captured"};
        box = VexGUIRadioBoxAdd(main, 587, 166, 2003, 573, labels.handle(), onInt, probe("op"));
    }
    EXPECT_EQ(control(box).items, (Strings{"&Forward", "&Loop", "&Bounce", "&As Captured"}));
    EXPECT_EQ(VexGUIRadioBoxGetToggle(box), 0);
    VexGUIRadioBoxSetToggle(box, 4);
    EXPECT_EQ(VexGUIRadioBoxGetToggle(box), 4);
    VexGUIRadioBoxSetToggle(box, 5);
    VexGUIRadioBoxSetToggle(box, 0);
    EXPECT_EQ(takeHostErrors(),
              (Strings{"VexGUIRadioBoxSetToggle: the radio box 2 has no button 5 (it has 4)",
                       "VexGUIRadioBoxSetToggle: the radio box 2 has no button 0 (it has 4)"}));
    EXPECT_EQ(VexGUIRadioBoxGetToggle(box), 4);
    EXPECT_TRUE(takeEvents().empty());
}

TEST_F(SdkGuiTest, RadioBoxNeedsALiveNonEmptyHostStringList) {
    const int32_t main = addModeless();
    vexplot::toolbox::StringList empty;
    EXPECT_EQ(VexGUIRadioBoxAdd(main, 0, 0, 100, 100, empty.handle(), nullptr, nullptr),
              VEXGUI_BAD_ID);
    EXPECT_EQ(VexGUIRadioBoxAdd(main, 0, 0, 100, 100, nullptr, nullptr, nullptr), VEXGUI_BAD_ID);
    EXPECT_EQ(takeHostErrors(),
              (Strings{"VexGUIRadioBoxAdd: the label list is empty: a radio box needs at least "
                       "one button",
                       "VexGUIRadioBoxAdd: the labels are not a host string list "
                       "(VexUtilStringListAlloc)"}));
}

TEST_F(SdkGuiTest, MenuBarHoldsMenusWithItemsTogglesAndSubmenus) {
    const int32_t main = addModeless();
    const int32_t bar = VexGUIMenuBarAdd(main);
    const int32_t file = VexGUIMenuAdd(bar, "&File");
    const int32_t open = VexGUIMenuAddItem(file, "&Open Animation File...", onVoid, probe("open"));
    const int32_t options = VexGUIMenuAdd(bar, "&Options");
    const int32_t fadeIn = VexGUIMenuAddToggle(options, "Fade &In", onInt, probe("fade in"));
    const int32_t more = VexGUIMenuAdd(options, "More");
    EXPECT_EQ(dialog(main).menuBarId, bar);
    EXPECT_EQ(control(bar).children, (std::vector<int32_t>{file, options}));
    EXPECT_EQ(control(file).children, std::vector<int32_t>{open});
    EXPECT_EQ(control(options).children, (std::vector<int32_t>{fadeIn, more}));
    EXPECT_EQ(control(fadeIn).parentId, options);
    EXPECT_EQ(control(fadeIn).dialogId, main);
    EXPECT_FALSE(control(fadeIn).isOn);
    VexGUIMenuSetToggle(fadeIn, true);
    EXPECT_TRUE(control(fadeIn).isOn);
    EXPECT_TRUE(takeEvents().empty());
}

TEST_F(SdkGuiTest, MenuBarMistakesAreHostErrors) {
    const int32_t main = addModeless();
    const int32_t bar = VexGUIMenuBarAdd(main);
    const int32_t file = VexGUIMenuAdd(bar, "&File");
    const int32_t open = VexGUIMenuAddItem(file, "&Open", nullptr, nullptr);
    EXPECT_EQ(VexGUIMenuBarAdd(main), VEXGUI_BAD_ID);
    EXPECT_EQ(VexGUIMenuAddItem(bar, "Loose", nullptr, nullptr), VEXGUI_BAD_ID);
    EXPECT_EQ(VexGUIMenuAdd(open, "Under an item"), VEXGUI_BAD_ID);
    EXPECT_EQ(VexGUIMenuAdd(file, nullptr), VEXGUI_BAD_ID);
    EXPECT_EQ(takeHostErrors(),
              (Strings{"VexGUIMenuBarAdd: the dialog \"Main\" has a menu bar already (2)",
                       "VexGUIMenuAddItem: 2 is a menu bar, not a menu",
                       "VexGUIMenuAdd: 4 is a menu item, not a menu bar or a menu",
                       "VexGUIMenuAdd: the label is missing"}));
}

TEST_F(SdkGuiTest, SensitivityAndToolTipsApplyToEveryKindOfControl) {
    const int32_t main = addModeless();
    const int32_t label = VexGUILabelAdd(main, 0, 0, "View Name:");
    const int32_t bar = VexGUIMenuBarAdd(main);
    const int32_t menu = VexGUIMenuAdd(bar, "&File");
    for (int32_t id : {label, bar, menu}) {
        VexGUISetSensitivity(id, false);
        VexGUISetToolTip(id, "tip");
        EXPECT_FALSE(control(id).sensitive);
        EXPECT_EQ(control(id).toolTip, "tip");
    }
    VexGUISetSensitivity(main, false);
    EXPECT_EQ(takeHostErrors(),
              Strings{"VexGUISetSensitivity: 1 is the dialog \"Main\", not a control"});
}

}  // namespace
}  // namespace guitest
