// One control of a host dialog, as the GUI model holds it: what the add-on created through the SDK
// (VexGUI...Add), what it set since, and the callbacks the host fires when the user acts on it.
//
// Controls are never destroyed while the host runs (the SDK has no call for it), so a control's
// address and id stay valid until the host is reset. Every control belongs to one dialog; the
// entries of a dialog's menu bar (menus, items, toggles) also name the menu bar or menu they hang
// from. Positions count from 1 everywhere (list lines, option menu entries, radio buttons), as the
// SDK counts them.
#ifndef VEXHOST_GUICONTROL_H
#define VEXHOST_GUICONTROL_H

#include <cstdint>
#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "vexgui.h"

namespace vexhost {

struct GuiControl {
    enum class Kind {
        Button,
        Label,
        Frame,
        Toggle,
        TextField,
        SpinTextField,
        List,
        OptionMenu,
        RadioBox,
        MenuBar,
        Menu,
        MenuItem,
        MenuToggle
    };

    // The kind as a script and a dump write it: "button", "textfield", "optionmenu", ...
    static const char* kindWord(Kind kind);
    // The kind as a message names it: "button", "text field", "option menu", ...
    static const char* kindName(Kind kind);
    // The kind of a script word, any case; nullopt for an unknown word.
    static std::optional<Kind> kindOfWord(std::string_view word);
    // Every kind, in the order above.
    static const std::vector<Kind>& allKinds();

    // Whether the control carries a label of its own (buttons, labels, frames, toggles and the
    // menu bar's entries); the others are found by tool tip or by the label beside them.
    bool hasLabel() const;
    // Whether it has a place in the dialog (all but the menu bar and its entries).
    bool hasPosition() const;
    // Whether the place comes with a size (all placed controls but labels).
    bool hasSize() const { return hasPosition() && kind != Kind::Label; }
    // A menu bar or one of its entries.
    bool isMenuEntry() const;

    int32_t id = VEXGUI_BAD_ID;
    Kind kind = Kind::Button;
    int32_t dialogId = VEXGUI_BAD_ID;
    // The menu bar or menu an entry hangs from; the dialog for every other control.
    int32_t parentId = VEXGUI_BAD_ID;

    int32_t x = 0;
    int32_t y = 0;
    int32_t width = 0;
    int32_t height = 0;

    std::string label;  // exactly as given, trailing blanks and '&' markers kept
    std::string toolTip;
    bool sensitive = true;

    bool isOn = false;               // toggles and menu toggles
    std::string text;                // text and spin text fields
    std::vector<std::string> items;  // list lines, option menu entries, radio button labels
    bool multiSelection = false;     // lists
    std::vector<int32_t> selection;  // lists: selected lines, ascending
    int32_t choice = 0;              // option menus and radio boxes: the entry or button on, 0 none
    std::vector<int32_t> children;   // menu bars and menus: their entries in creation order

    // Buttons (pressed) and menu items (activated).
    VexGUIVoidCallback_pf voidCallback = nullptr;
    // Toggles and menu toggles (1 on, 0 off), lists (the first selected line, 0 none), option
    // menus (the entry) and radio boxes (the button).
    VexGUIIntCallback_pf intCallback = nullptr;
    // Text and spin text fields: the text entered.
    VexGUITextCallback_pf textCallback = nullptr;
    // Spin text fields' arrows.
    VexGUIVoidCallback_pf upCallback = nullptr;
    VexGUIVoidCallback_pf downCallback = nullptr;
    void* clientData = nullptr;
};

std::ostream& operator<<(std::ostream& out, GuiControl::Kind kind);

}  // namespace vexhost

#endif
