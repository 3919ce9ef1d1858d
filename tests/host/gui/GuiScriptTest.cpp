// $!UI lines in the macro player: every command against a small stand-in add-on that opens its
// dialog from the host's menu, the dump, the ways to name dialogs and controls, the lock a modal
// dialog holds across lines, recording, and the message of every malformed or impossible line.
#include <gtest/gtest.h>

#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include "GuiFixture.h"
#include "vexhost/GuiScript.h"
#include "vexhost/LockState.h"
#include "vexhost/MacroError.h"
#include "vexhost/MacroFileRunner.h"
#include "vexhost/MacroRecorder.h"
#include "vxappaddonuiaction.h"
#include "vxtoolbox/StringList.h"

namespace guitest {
namespace {

using vexhost::MacroError;
using vexhost::MacroFileRunner;
using Strings = std::vector<std::string>;

// A stand-in add-on: the dialog "Key Frame Animation" (opened from the host's Animate menu) and
// the modal "Time Animation Options", which holds the add-on's lock from its launch to its OK or
// Cancel. Every callback records what it saw in `events`.
struct StandIn {
    VexAddOn_pa addOn = nullptr;
    int32_t main = VEXGUI_BAD_ID;
    int32_t list = VEXGUI_BAD_ID;
    int32_t apply = VEXGUI_BAD_ID;
    int32_t options = VEXGUI_BAD_ID;
    int32_t cycles = VEXGUI_BAD_ID;
    Strings events;
};

StandIn standIn;

void record(const std::string& event) {
    standIn.events.push_back(event);
}

void* name(const char* text) {
    return const_cast<char*>(text);
}

void named(void* clientData) {
    record(static_cast<const char*>(clientData));
}

void namedValue(int32_t value, void* clientData) {
    record(std::string(static_cast<const char*>(clientData)) + " " + std::to_string(value));
}

void namedText(const char* text, void* clientData) {
    record(std::string(static_cast<const char*>(clientData)) + " \"" + text + "\"");
}

void appendView(void*) {
    const std::string line = "View " + std::to_string(VexGUIListGetItemCount(standIn.list) + 1);
    VexGUIListAppendItem(standIn.list, line.c_str());
    record("append");
}

// Apply is for one selected key frame only.
void listChanged(int32_t first, void*) {
    int32_t* lines = nullptr;
    int32_t count = 0;
    VexGUIListGetSelectedItems(standIn.list, &lines, &count);
    VexUtilArrayDealloc(reinterpret_cast<void**>(&lines));
    VexGUISetSensitivity(standIn.apply, count == 1);
    record("list " + std::to_string(first) + " of " + std::to_string(count));
}

void stepCycles(int32_t step) {
    char* text = VexGUITextFieldGetString(standIn.cycles);
    const std::string next = std::to_string(std::stoi(text) + step);
    VexUtilStringDealloc(&text);
    VexGUITextFieldSetString(standIn.cycles, next.c_str());
}

void closeOptions(const char* event) {
    record(event);
    VexUtilLockFinish(standIn.addOn);
    VexGUIDialogDrop(standIn.options);
}

void launchOptions(void*) {
    VexUtilLockStart(standIn.addOn);  // released by OK or Cancel
    if (standIn.options == VEXGUI_BAD_ID) {
        standIn.options = VexGUIDialogCreateModal(
            -1, 5357, 878, "Time Animation Options", [](void*) { record("options init"); },
            [](void*) { closeOptions("options ok"); }, [](void*) { record("options apply"); },
            [](void*) { closeOptions("options cancel"); }, [](void*) { record("options help"); },
            nullptr);
        VexGUILabelAdd(standIn.options, 2901, 159, "Num Cycles:");
        vexplot::toolbox::StringList labels{"&Forward", "&Loop", "&Bounce", "&As Captured"};
        VexGUIRadioBoxAdd(standIn.options, 587, 166, 2003, 573, labels.handle(), namedValue,
                          name("operation"));
        standIn.cycles = VexGUISpinTextFieldAdd(
            standIn.options, 2918, 333, 1329, 145, namedText, [](void*) { stepCycles(1); },
            [](void*) { stepCycles(-1); }, name("cycles"));
        VexGUITextFieldSetString(standIn.cycles, "1");
        VexGUIToggleAdd(standIn.options, 2901, 600, 1500, 123, "&Concurrently", namedValue,
                        name("concurrently"));
    }
    VexGUIDialogLaunch(standIn.options);
}

void openMain() {
    VexUtilLockStart(standIn.addOn);
    if (standIn.main == VEXGUI_BAD_ID) {
        const int32_t main = VexGUIDialogCreateModeless(
            -1, 4870, 2620, "Key Frame Animation", [](void*) { record("main init"); },
            [](void*) { VexGUIDialogDrop(standIn.main); }, [](void*) { record("main help"); },
            nullptr);
        standIn.main = main;
        VexGUIButtonAdd(main, 3160, 65, 1433, 145, "&Append     ", appendView, nullptr);
        standIn.apply =
            VexGUIButtonAdd(main, 3160, 783, 1416, 145, "A&pply        ", named, name("apply"));
        VexGUISetSensitivity(standIn.apply, false);
        VexGUIButtonAdd(main, 518, 2299, 1208, 232, "A&nimate\nAll", named, name("animate all"));
        VexGUIButtonAdd(main, 3160, 1341, 1433, 145, "&Options...", launchOptions, nullptr);
        standIn.list = VexGUIListAdd(main, 224, 65, 2745, 1414, true, listChanged, nullptr);
        VexGUILabelAdd(main, 207, 1595, "View Name:");
        const int32_t field =
            VexGUITextFieldAdd(main, 1847, 1645, 2711, 145, namedText, name("view name"));
        VexGUISetToolTip(field, "Enter the name of the selected view");
        VexGUILabelAdd(main, 207, 2016, "Destination:");
        const int32_t destination =
            VexGUIOptionMenuAdd(main, 1847, 2066, 2711, 145, namedValue, name("destination"));
        VexGUIOptionMenuAppendItem(destination, "On Screen");
        VexGUIOptionMenuAppendItem(destination, "To File");
        const int32_t bar = VexGUIMenuBarAdd(main);
        const int32_t menu = VexGUIMenuAdd(bar, "&Options");
        VexGUIMenuAddToggle(menu, "Fade &In", namedValue, name("fade in"));
        VexGUIMenuAddItem(menu, "Time &Animation Options...", launchOptions, nullptr);
    }
    VexGUIDialogLaunch(standIn.main);
    VexUtilLockFinish(standIn.addOn);
}

class GuiScriptTest : public GuiFixture {
protected:
    void SetUp() override {
        GuiFixture::SetUp();
        standIn = StandIn();
        standIn.addOn = registerAddOn("Stand-In");
        VexUtilMenuAddOption("Animate", "&Key Frame Animation...", 1, openMain);
        vexhost::GuiScript::install(runner_, user(), gui(), output_);
    }

    void run(const std::string& line) { runner_.runLine(line); }
    // The message of the line's failure, or "" when it ran.
    std::string failureOf(const std::string& line) {
        try {
            runner_.runLine(line);
        } catch (const MacroError& error) {
            return error.what();
        }
        return "";
    }
    Strings takeStandInEvents() {
        Strings taken;
        taken.swap(standIn.events);
        return taken;
    }
    std::string takeOutput() {
        const std::string text = output_.str();
        output_.str("");
        return text;
    }

    MacroFileRunner runner_{host()};
    std::ostringstream output_;
};

TEST_F(GuiScriptTest, MenuChoosesAnAddOnsItemOfTheHostsMenus) {
    run("$!UI MENU \"Animate\" \"&Key Frame Animation...\"");
    EXPECT_TRUE(dialog(standIn.main).up);
    run("$!UI CLOSE \"Key Frame Animation\"");
    run("$!UI menu animate \"key frame animation...\"");
    EXPECT_TRUE(dialog(standIn.main).up);
    EXPECT_EQ(takeStandInEvents(), (Strings{"main init", "main init"}));
}

TEST_F(GuiScriptTest, DumpWritesTheDialogsStateToTheOutput) {
    run("$!UI MENU \"Animate\" \"&Key Frame Animation...\"");
    run("$!UI PRESS \"Key Frame Animation\" \"Append\"");
    run("$!UI DUMP \"Key Frame Animation\"");
    EXPECT_EQ(takeOutput(),
              "dialog #1 \"Key Frame Animation\" modeless up size 4870 x 2620 buttons Close Help\n"
              "  menubar #11 sensitive\n"
              "    menu #12 \"&Options\" sensitive\n"
              "      menutoggle #13 \"Fade &In\" sensitive off\n"
              "      menuitem #14 \"Time &Animation Options...\" sensitive\n"
              "  button #2 \"&Append     \" at 3160, 65 size 1433 x 145 sensitive\n"
              "  button #3 \"A&pply        \" at 3160, 783 size 1416 x 145 insensitive\n"
              "  button #4 \"A&nimate\\nAll\" at 518, 2299 size 1208 x 232 sensitive\n"
              "  button #5 \"&Options...\" at 3160, 1341 size 1433 x 145 sensitive\n"
              "  list #6 at 224, 65 size 2745 x 1414 sensitive multiple selected none\n"
              "    1 \"View 1\"\n"
              "  label #7 \"View Name:\" at 207, 1595 sensitive\n"
              "  textfield #8 at 1847, 1645 size 2711 x 145 sensitive tooltip \"Enter the name of "
              "the selected view\" beside \"View Name:\" text \"\"\n"
              "  label #9 \"Destination:\" at 207, 2016 sensitive\n"
              "  optionmenu #10 at 1847, 2066 size 2711 x 145 sensitive beside \"Destination:\" "
              "choice 1\n"
              "    1 \"On Screen\"\n"
              "    2 \"To File\"\n");
}

TEST_F(GuiScriptTest, DumpOfAVexplotRunGoesToStandardOutput) {
    MacroFileRunner runner(host());
    vexhost::GuiScript::install(runner, user(), gui(), std::cout);
    addModeless("Plain");
    std::ostringstream captured;
    std::streambuf* const saved = std::cout.rdbuf(captured.rdbuf());
    std::string failure;
    try {
        runner.runLine("$!UI DUMP \"Plain\"");
    } catch (const std::exception& error) {
        failure = error.what();
    }
    std::cout.rdbuf(saved);
    EXPECT_EQ(failure, "");
    EXPECT_EQ(captured.str(),
              "dialog #1 \"Plain\" modeless down size 5000 x 3000 buttons Close Help\n");
}

TEST_F(GuiScriptTest, UserActionsFireTheAddOnsCallbacks) {
    run("$!UI MENU \"Animate\" \"&Key Frame Animation...\"");
    run("$!UI PRESS \"Key Frame Animation\" \"&Append     \"");
    run("$!UI PRESS \"Key Frame Animation\" Append");
    run("$!UI SELECT \"Key Frame Animation\" list:1 2");
    run("$!UI PRESS \"Key Frame Animation\" \"Apply\"");
    run("$!UI SELECT \"Key Frame Animation\" list:1 1 2");
    run("$!UI SELECT \"Key Frame Animation\" list:1");
    run("$!UI TYPE \"Key Frame Animation\" \"View Name:\" \"Left side\"");
    run("$!UI TYPE \"Key Frame Animation\" \"Enter the name of the selected view\" \"\"");
    run("$!UI OPTION \"Key Frame Animation\" \"Destination:\" \"to file\"");
    run("$!UI OPTION \"Key Frame Animation\" optionmenu:1 1");
    run("$!UI PRESS \"Key Frame Animation\" \"Animate All\"");
    run("$!UI PRESS \"Key Frame Animation\" \"A&nimate\\nAll\"");
    run("$!UI PRESS \"Key Frame Animation\" #4");
    run("$!UI DIALOGMENU \"Key Frame Animation\" \"&Options\" \"Fade &In\"");
    run("$!UI DIALOGMENU \"Key Frame Animation\" options \"fade in\" ON");
    run("$!UI DIALOGMENU \"Key Frame Animation\" options \"fade in\" off");
    run("$!UI HELP \"Key Frame Animation\"");
    EXPECT_EQ(takeStandInEvents(),
              (Strings{"main init", "append", "append", "list 2 of 1", "apply", "list 1 of 2",
                       "list 0 of 0", "view name \"Left side\"", "view name \"\"", "destination 2",
                       "destination 1", "animate all", "animate all", "animate all", "fade in 1",
                       "fade in 0", "main help"}))
        << "ON for a toggle that is on changes nothing";
}

TEST_F(GuiScriptTest, AModalDialogHoldsTheLockAcrossLinesUntilItsOkOrCancel) {
    run("$!UI MENU \"Animate\" \"&Key Frame Animation...\"");
    run("$!UI PRESS \"Key Frame Animation\" \"Options...\"");
    EXPECT_TRUE(host().lock().isHeld()) << "the modal dialog's lock, held across lines";
    EXPECT_EQ(failureOf("$!UI PRESS \"Key Frame Animation\" Append"),
              "$!UI PRESS: The dialog \"Key Frame Animation\" cannot be used while the modal "
              "dialog \"Time Animation Options\" is up.");
    run("$!UI RADIO \"Time Animation Options\" \"Loop\"");
    run("$!UI RADIO \"Time Animation Options\" radiobox:1 4");
    run("$!UI RADIO \"Time Animation Options\" radiobox:1 \"&Bounce\"");
    run("$!UI SPIN \"Time Animation Options\" \"Num Cycles:\" UP");
    run("$!UI SPIN \"Time Animation Options\" \"Num Cycles:\" up");
    run("$!UI SPIN \"Time Animation Options\" spintextfield:1 DOWN");
    run("$!UI TYPE \"Time Animation Options\" \"Num Cycles:\" \"7\"");
    run("$!UI TOGGLE \"Time Animation Options\" \"Concurrently\" ON");
    run("$!UI TOGGLE \"Time Animation Options\" \"Concurrently\" ON");
    run("$!UI APPLY \"Time Animation Options\"");
    run("$!UI HELP \"Time Animation Options\"");
    run("$!UI OK \"Time Animation Options\"");
    EXPECT_FALSE(host().lock().isHeld());
    run("$!UI DIALOGMENU \"Key Frame Animation\" \"Options\" \"Time Animation Options...\"");
    run("$!UI CLOSE \"Time Animation Options\"");
    EXPECT_FALSE(host().lock().isHeld());
    EXPECT_EQ(control(standIn.cycles).text, "7");
    EXPECT_EQ(takeStandInEvents(),
              (Strings{"main init", "options init", "operation 2", "operation 4", "operation 3",
                       "cycles \"7\"", "concurrently 1", "options apply", "options help",
                       "options ok", "options init", "options cancel"}));
}

TEST_F(GuiScriptTest, ALockLeftHeldWithoutAModalDialogStillFailsTheLine) {
    VexUtilMenuAddOption("Tools", "Leak", 0, [] { VexUtilLockStart(standIn.addOn); });
    EXPECT_EQ(failureOf("$!UI MENU \"Tools\" \"Leak\""),
              "The host lock is still held after the line (depth 1).");
    VexUtilLockFinish(standIn.addOn);
}

TEST_F(GuiScriptTest, UiLinesAreNotRecordedButWhatTheAddOnRecordsIs) {
    VexUtilMenuAddOption("Tools", "Record", 0, [] {
        VexUtilLockStart(standIn.addOn);
        VexUtilMacroRecordExtCommand("Stand-In", "Recorded");
        VexUtilLockFinish(standIn.addOn);
    });
    host().macro().setRecording(true);
    run("$!UI MENU \"Tools\" \"Record\"");
    run("$!UI MENU \"Animate\" \"Key Frame Animation...\"");
    EXPECT_EQ(host().macro().lines(), Strings{"$!ADDON \"Stand-In\" Recorded"});
}

TEST_F(GuiScriptTest, DialogsAndControlsCanBeNamedByIdAndTextsCarryEscapes) {
    run("$!UI MENU \"Animate\" \"&Key Frame Animation...\"");
    run("$!UI TYPE #1 #8 \"tab\\there \\\"quoted\\\" \\\\ \\x41\"");
    run("$!UI PRESS #1 button:4");
    EXPECT_EQ(takeStandInEvents(),
              (Strings{"main init", "view name \"tab\there \"quoted\" \\ A\"", "options init"}))
        << "button:4 is Options..., which launches the modal dialog";
    run("$!UI CANCEL \"Time Animation Options\"");
}

// One row per line that cannot run: its message names what was wrong.
struct BadLine {
    const char* name;
    std::string line;
    std::string message;
};

std::ostream& operator<<(std::ostream& out, const BadLine& row) {
    return out << row.name;
}

const char* const Commands =
    "MENU, PRESS, SELECT, TYPE, SPIN, OPTION, TOGGLE, RADIO, DIALOGMENU, OK, APPLY, CANCEL, CLOSE, "
    "HELP or DUMP";

const std::string Controls =
    "button #2 \"&Append     \", button #3 \"A&pply        \", button #4 \"A&nimate\\nAll\", "
    "button #5 \"&Options...\", list #6, label #7 \"View Name:\", text field #8 beside \"View "
    "Name:\", label #9 \"Destination:\" and option menu #10 beside \"Destination:\"";

class GuiScriptBadLineTest : public GuiScriptTest, public ::testing::WithParamInterface<BadLine> {};

TEST_P(GuiScriptBadLineTest, FailsNamingWhatWasWrongAndFiresNothing) {
    run("$!UI MENU \"Animate\" \"&Key Frame Animation...\"");
    run("$!UI PRESS \"Key Frame Animation\" Append");
    takeStandInEvents();
    EXPECT_EQ(failureOf(GetParam().line), GetParam().message);
    EXPECT_TRUE(takeStandInEvents().empty());
    EXPECT_EQ(takeOutput(), "");
}

INSTANTIATE_TEST_SUITE_P(
    Lines, GuiScriptBadLineTest,
    ::testing::Values(
        BadLine{"NoCommand", "$!UI", std::string("$!UI needs a command: ") + Commands + "."},
        BadLine{"UnknownCommand", "$!UI JUMP \"Key Frame Animation\"",
                std::string("$!UI: unknown command \"JUMP\"; use ") + Commands + "."},
        BadLine{"QuotedCommand", "$!UI \"PRESS\" x y",
                std::string("$!UI: unknown command \"PRESS\"; use ") + Commands + "."},
        BadLine{"PressWithoutButton", "$!UI PRESS \"Key Frame Animation\"",
                "$!UI PRESS needs a dialog and a button: $!UI PRESS \"<dialog>\" \"<button>\"."},
        BadLine{"UnknownDialog", "$!UI PRESS \"Keyframes\" Append",
                "$!UI PRESS: There is no dialog \"Keyframes\"; the dialogs are \"Key Frame "
                "Animation\" (#1, up)."},
        BadLine{"UnknownDialogId", "$!UI DUMP #2", "$!UI DUMP: There is no dialog #2."},
        BadLine{"UnknownControl", "$!UI PRESS \"Key Frame Animation\" \"Delete\"",
                "$!UI PRESS: The dialog \"Key Frame Animation\" has no control \"Delete\"; it "
                "has " +
                    Controls + "."},
        BadLine{"WrongKind", "$!UI PRESS \"Key Frame Animation\" \"View Name:\"",
                "$!UI PRESS: \"View Name:\" in the dialog \"Key Frame Animation\" names the label "
                "\"View Name:\" (#7) and the text field #8, not a button."},
        BadLine{"WrongKindById", "$!UI TOGGLE \"Key Frame Animation\" #2 ON",
                "$!UI TOGGLE: The button \"&Append     \" (#2) in the dialog \"Key Frame "
                "Animation\" is not a toggle."},
        BadLine{"NoSuchOrdinal", "$!UI SELECT \"Key Frame Animation\" list:2 1",
                "$!UI SELECT: The dialog \"Key Frame Animation\" has no list 2 (it has 1)."},
        BadLine{"Insensitive", "$!UI PRESS \"Key Frame Animation\" Apply",
                "$!UI PRESS: The button \"A&pply        \" (#3) in the dialog \"Key Frame "
                "Animation\" is insensitive."},
        BadLine{"LineZero", "$!UI SELECT \"Key Frame Animation\" list:1 0",
                "$!UI SELECT: lines are whole numbers from 1 up; found \"0\"."},
        BadLine{"LineNotANumber", "$!UI SELECT \"Key Frame Animation\" list:1 \"1\"",
                "$!UI SELECT: lines are whole numbers from 1 up; found \"1\"."},
        BadLine{"LineBeyondTheEnd", "$!UI SELECT \"Key Frame Animation\" list:1 2",
                "$!UI SELECT: The list #6 in the dialog \"Key Frame Animation\" has 1 line; there "
                "is no line 2."},
        BadLine{"TypeWithoutText", "$!UI TYPE \"Key Frame Animation\" \"View Name:\"",
                "$!UI TYPE needs a dialog, a text field and the text: $!UI TYPE \"<dialog>\" "
                "\"<field>\" \"<text>\"."},
        BadLine{"ToggleWithoutState", "$!UI TOGGLE \"Key Frame Animation\" x maybe",
                "$!UI TOGGLE needs a dialog, a toggle and ON or OFF: $!UI TOGGLE \"<dialog>\" "
                "\"<toggle>\" ON|OFF."},
        BadLine{"SpinSideways", "$!UI SPIN \"Key Frame Animation\" x LEFT",
                "$!UI SPIN needs a dialog, a spin text field and UP or DOWN: $!UI SPIN "
                "\"<dialog>\" \"<field>\" UP|DOWN."},
        BadLine{"SpinAPlainTextField", "$!UI SPIN \"Key Frame Animation\" \"View Name:\" UP",
                "$!UI SPIN: \"View Name:\" in the dialog \"Key Frame Animation\" names the label "
                "\"View Name:\" (#7) and the text field #8, not a spin text field."},
        BadLine{"UnknownOption", "$!UI OPTION \"Key Frame Animation\" \"Destination:\" Printer",
                "$!UI OPTION: The option menu #10 in the dialog \"Key Frame Animation\" has no "
                "entry \"Printer\"; its entries are \"On Screen\" and \"To File\"."},
        BadLine{"NoRadioBox", "$!UI RADIO \"Key Frame Animation\" Loop",
                "$!UI RADIO: The dialog \"Key Frame Animation\" has no radio box."},
        BadLine{"DialogMenuTooShort", "$!UI DIALOGMENU \"Key Frame Animation\" Options ON",
                "$!UI DIALOGMENU needs a dialog, a menu and an entry of it (submenus in between, "
                "ON or OFF after a toggle): $!UI DIALOGMENU \"<dialog>\" \"<menu>\" \"<entry>\" "
                "[ON|OFF]."},
        BadLine{"UnknownMenuEntry", "$!UI DIALOGMENU \"Key Frame Animation\" Options \"Fade Out\"",
                "$!UI DIALOGMENU: The menu \"&Options\" in the dialog \"Key Frame Animation\" has "
                "no entry \"Fade Out\"; it has \"Fade &In\" and \"Time &Animation Options...\"."},
        BadLine{"NoOkButton", "$!UI OK \"Key Frame Animation\"",
                "$!UI OK: The dialog \"Key Frame Animation\" has no OK button; it has Close and "
                "Help."},
        BadLine{"OkOfNoDialog", "$!UI OK", "$!UI OK needs a dialog: $!UI OK \"<dialog>\"."},
        BadLine{"DialogNotUp", "$!UI OK \"Time Animation Options\"",
                "$!UI OK: There is no dialog \"Time Animation Options\"; the dialogs are \"Key "
                "Frame Animation\" (#1, up)."},
        BadLine{"UnknownHostMenuItem", "$!UI MENU \"Animate\" \"Movie\"",
                "$!UI MENU: The host's menus have no item \"Movie\" in \"Animate\"; the add-ons' "
                "items are \"Animate\" \"&Key Frame Animation...\"."},
        BadLine{"UnclosedQuote", "$!UI PRESS \"Key Frame Animation",
                "$!UI: the text \"\\\"Key Frame Animation\" has no closing double quote."},
        BadLine{"TextRunOn", "$!UI PRESS \"Key Frame Animation\"Append",
                "$!UI: a blank must follow the text \"\\\"Key Frame Animation\\\"\"."},
        BadLine{"UnknownEscape", "$!UI TYPE #1 #8 \"a\\qb\"",
                "$!UI: unknown escape \"\\q\" in \"\\\"a\\\\qb\\\"\"; use \\\", \\\\, \\n, \\r, "
                "\\t or \\xHH."},
        BadLine{"ShortHexEscape", "$!UI TYPE #1 #8 \"\\x4\"",
                "$!UI: \\x must be followed by two hexadecimal digits in "
                "\"\\\"\\\\x4\\\"\"."}),
    [](const ::testing::TestParamInfo<BadLine>& info) { return std::string(info.param.name); });

TEST_F(GuiScriptTest, TheDocumentedExampleRuns) {
    std::vector<MacroFileRunner::Failure> failures;
    runner_.setFailureSink([&](const MacroFileRunner::Failure& f) { failures.push_back(f); });
    std::istringstream macro(
        "$!UI MENU \"Animate\" \"&Key Frame Animation...\"\n"
        "$!UI PRESS \"Key Frame Animation\" \"Append\"\n"
        "$!UI DUMP \"Key Frame Animation\"\n"
        "$!UI SELECT \"Key Frame Animation\" list:1 1\n"
        "$!UI TYPE \"Key Frame Animation\" \"View Name:\" \"Left side\"\n"
        "$!UI OPTION \"Key Frame Animation\" \"Destination:\" \"To File\"\n"
        "$!UI DIALOGMENU \"Key Frame Animation\" \"Options\" \"Fade In\" ON\n"
        "$!UI PRESS \"Key Frame Animation\" \"Animate All\"\n"
        "# The Options... button launches a modal dialog; it holds the add-on's lock until OK.\n"
        "$!UI PRESS \"Key Frame Animation\" \"Options...\"\n"
        "$!UI RADIO \"Time Animation Options\" \"Loop\"\n"
        "$!UI SPIN \"Time Animation Options\" \"Num Cycles:\" UP\n"
        "$!UI OK \"Time Animation Options\"\n"
        "$!UI CLOSE \"Key Frame Animation\"\n");
    EXPECT_TRUE(runner_.runStream(macro, "example.mcr"));
    EXPECT_TRUE(failures.empty());
    EXPECT_EQ(
        takeStandInEvents(),
        (Strings{"main init", "append", "list 1 of 1", "view name \"Left side\"", "destination 2",
                 "fade in 1", "animate all", "options init", "operation 2", "options ok"}));
    EXPECT_EQ(control(standIn.cycles).text, "2");
    EXPECT_FALSE(dialog(standIn.main).up);
    EXPECT_EQ(takeOutput().rfind("dialog #1 \"Key Frame Animation\" modeless up ", 0), 0u);
}

TEST_F(GuiScriptTest, ADialogThatIsNotUpCannotBeUsed) {
    run("$!UI MENU \"Animate\" \"&Key Frame Animation...\"");
    run("$!UI CLOSE \"Key Frame Animation\"");
    EXPECT_EQ(failureOf("$!UI PRESS \"Key Frame Animation\" Append"),
              "$!UI PRESS: The dialog \"Key Frame Animation\" is not up.");
    run("$!UI DUMP \"Key Frame Animation\"");
    EXPECT_EQ(takeOutput().rfind("dialog #1 \"Key Frame Animation\" modeless down ", 0), 0u);
}

}  // namespace
}  // namespace guitest
