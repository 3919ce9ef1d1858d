#include "vexhost/GuiControl.h"

#include <ostream>

#include "core/Text.h"

namespace vexhost {

namespace {

struct KindNames {
    GuiControl::Kind kind;
    const char* word;
    const char* name;
};

const KindNames Names[] = {
    {GuiControl::Kind::Button, "button", "button"},
    {GuiControl::Kind::Label, "label", "label"},
    {GuiControl::Kind::Frame, "frame", "frame"},
    {GuiControl::Kind::Toggle, "toggle", "toggle"},
    {GuiControl::Kind::TextField, "textfield", "text field"},
    {GuiControl::Kind::SpinTextField, "spintextfield", "spin text field"},
    {GuiControl::Kind::List, "list", "list"},
    {GuiControl::Kind::OptionMenu, "optionmenu", "option menu"},
    {GuiControl::Kind::RadioBox, "radiobox", "radio box"},
    {GuiControl::Kind::MenuBar, "menubar", "menu bar"},
    {GuiControl::Kind::Menu, "menu", "menu"},
    {GuiControl::Kind::MenuItem, "menuitem", "menu item"},
    {GuiControl::Kind::MenuToggle, "menutoggle", "menu toggle"},
};

const KindNames& namesOf(GuiControl::Kind kind) {
    for (const KindNames& names : Names) {
        if (names.kind == kind)
            return names;
    }
    return Names[0];  // unreachable: every kind is in the table
}

}  // namespace

const char* GuiControl::kindWord(Kind kind) {
    return namesOf(kind).word;
}

const char* GuiControl::kindName(Kind kind) {
    return namesOf(kind).name;
}

std::optional<GuiControl::Kind> GuiControl::kindOfWord(std::string_view word) {
    for (const KindNames& names : Names) {
        if (text::equalsIgnoringCase(names.word, word))
            return names.kind;
    }
    return std::nullopt;
}

const std::vector<GuiControl::Kind>& GuiControl::allKinds() {
    static const std::vector<Kind> kinds = [] {
        std::vector<Kind> all;
        for (const KindNames& names : Names)
            all.push_back(names.kind);
        return all;
    }();
    return kinds;
}

bool GuiControl::hasLabel() const {
    switch (kind) {
        case Kind::Button:
        case Kind::Label:
        case Kind::Frame:
        case Kind::Toggle:
        case Kind::Menu:
        case Kind::MenuItem:
        case Kind::MenuToggle:
            return true;
        default:
            return false;
    }
}

bool GuiControl::hasPosition() const {
    return !isMenuEntry();
}

bool GuiControl::isMenuEntry() const {
    return kind == Kind::MenuBar || kind == Kind::Menu || kind == Kind::MenuItem ||
           kind == Kind::MenuToggle;
}

std::ostream& operator<<(std::ostream& out, GuiControl::Kind kind) {
    return out << GuiControl::kindWord(kind);
}

}  // namespace vexhost
