// The text of $!UI DUMP: one line per control in a fixed order of fields, byte for byte.
#include <gtest/gtest.h>

#include <stdexcept>

#include "GuiFixture.h"
#include "vexhost/GuiDump.h"
#include "vxtoolbox/StringList.h"

namespace guitest {
namespace {

using vexhost::GuiDump;

class GuiDumpTest : public GuiFixture {};

TEST_F(GuiDumpTest, ShowsEveryControlWithItsStateInCreationOrderAfterTheMenuBar) {
    const int32_t main = addModeless("Key Frame Animation");
    const int32_t append =
        VexGUIButtonAdd(main, 3160, 65, 1433, 145, "&Append     ", nullptr, nullptr);
    VexGUISetToolTip(append, "Append the current view");
    const int32_t animate =
        VexGUIButtonAdd(main, 518, 2299, 1208, 232, "A&nimate\nAll", nullptr, nullptr);
    VexGUISetSensitivity(animate, false);
    VexGUILabelAdd(main, 207, 1595, "View Name:");
    const int32_t name = VexGUITextFieldAdd(main, 1847, 1645, 2711, 145, nullptr, nullptr);
    VexGUITextFieldSetString(name, "Say \"hi\"");
    const int32_t list = VexGUIListAdd(main, 224, 65, 2745, 1414, true, nullptr, nullptr);
    VexGUIListAppendItem(list, "View 1");
    VexGUIListAppendItem(list, "View 2");
    VexGUIListAppendItem(list, "View 3");
    const int32_t lines[] = {1, 3};
    VexGUIListSetSelectedItems(list, lines, 2);
    const int32_t empty = VexGUIListAdd(main, 224, 2700, 100, 100, false, nullptr, nullptr);
    VexGUISetSensitivity(empty, false);
    const int32_t destination = VexGUIOptionMenuAdd(main, 1847, 2066, 2711, 145, nullptr, nullptr);
    VexGUIOptionMenuAppendItem(destination, "On Screen");
    VexGUIOptionMenuAppendItem(destination, "To File");
    VexGUIOptionMenuSet(destination, 2);
    const int32_t toggle =
        VexGUIToggleAdd(main, 293, 2500, 2055, 123, "&Antialiasing", nullptr, nullptr);
    VexGUIToggleSet(toggle, true);
    VexGUIFrameAdd(main, 10, 10, 100, 100, "Box");
    VexGUISpinTextFieldAdd(main, 4000, 333, 900, 145, nullptr, nullptr, nullptr, nullptr);
    {
        vexplot::toolbox::StringList labels{"&Forward", "&Loop"};
        VexGUIRadioBoxAdd(main, 4000, 600, 900, 573, labels.handle(), nullptr, nullptr);
    }
    const int32_t bar = VexGUIMenuBarAdd(main);
    const int32_t file = VexGUIMenuAdd(bar, "&File");
    VexGUIMenuAddItem(file, "&Open Animation File...", nullptr, nullptr);
    const int32_t options = VexGUIMenuAdd(bar, "&Options");
    const int32_t fade = VexGUIMenuAddToggle(options, "Fade &In", nullptr, nullptr);
    VexGUIMenuSetToggle(fade, true);
    VexGUIMenuAddToggle(options, "Fade &Out", nullptr, nullptr);
    VexGUIDialogLaunch(main);

    EXPECT_EQ(GuiDump::dialog(gui(), main),
              "dialog #1 \"Key Frame Animation\" modeless up size 5000 x 3000 buttons Close Help\n"
              "  menubar #13 sensitive\n"
              "    menu #14 \"&File\" sensitive\n"
              "      menuitem #15 \"&Open Animation File...\" sensitive\n"
              "    menu #16 \"&Options\" sensitive\n"
              "      menutoggle #17 \"Fade &In\" sensitive on\n"
              "      menutoggle #18 \"Fade &Out\" sensitive off\n"
              "  button #2 \"&Append     \" at 3160, 65 size 1433 x 145 sensitive tooltip \"Append "
              "the current view\"\n"
              "  button #3 \"A&nimate\\nAll\" at 518, 2299 size 1208 x 232 insensitive\n"
              "  label #4 \"View Name:\" at 207, 1595 sensitive\n"
              "  textfield #5 at 1847, 1645 size 2711 x 145 sensitive beside \"View Name:\" text "
              "\"Say \\\"hi\\\"\"\n"
              "  list #6 at 224, 65 size 2745 x 1414 sensitive multiple selected 1 3\n"
              "    1 \"View 1\"\n"
              "    2 \"View 2\"\n"
              "    3 \"View 3\"\n"
              "  list #7 at 224, 2700 size 100 x 100 insensitive single selected none\n"
              "  optionmenu #8 at 1847, 2066 size 2711 x 145 sensitive choice 2\n"
              "    1 \"On Screen\"\n"
              "    2 \"To File\"\n"
              "  toggle #9 \"&Antialiasing\" at 293, 2500 size 2055 x 123 sensitive on\n"
              "  frame #10 \"Box\" at 10, 10 size 100 x 100 sensitive\n"
              "  spintextfield #11 at 4000, 333 size 900 x 145 sensitive text \"\"\n"
              "  radiobox #12 at 4000, 600 size 900 x 573 sensitive toggle 0\n"
              "    1 \"&Forward\"\n"
              "    2 \"&Loop\"\n");
}

TEST_F(GuiDumpTest, ModalDialogShowsItsButtonsAndWhetherItIsUp) {
    const int32_t withApply = addModal("Export Options", true);
    const int32_t bare = VexGUIDialogCreateModal(-1, 100, 50, "Bare", nullptr, nullptr, nullptr,
                                                 nullptr, nullptr, nullptr);
    EXPECT_EQ(GuiDump::dialog(gui(), withApply),
              "dialog #1 \"Export Options\" modal down size 5000 x 3000 buttons OK Apply Cancel "
              "Help\n");
    EXPECT_EQ(GuiDump::dialog(gui(), bare),
              "dialog #2 \"Bare\" modal down size 100 x 50 buttons OK Cancel\n");
}

TEST_F(GuiDumpTest, AnIdThatIsNotADialogsIsAProgrammingError) {
    const int32_t main = addModeless();
    const int32_t button = VexGUIButtonAdd(main, 0, 0, 10, 10, "B", nullptr, nullptr);
    EXPECT_THROW(GuiDump::dialog(gui(), button), std::out_of_range);
}

}  // namespace
}  // namespace guitest
