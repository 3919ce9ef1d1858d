// The user at the dialogs: finds dialogs and controls as a person reading the screen would, and
// acts on them as a person does, firing the add-on's callbacks as the host fires them. Tests and
// the macro player's $!UI commands drive the add-on's dialogs through it.
//
// Finding (GuiError, naming what was looked for and listing what there is, when nothing or more
// than one thing fits):
// - a dialog by its title, or by id;
// - a control of a dialog by id, by kind and ordinal (the n-th list, in creation order), or by a
//   text, tried in tiers, the first tier with a match deciding: the control's label exactly as
//   given; its label as plain text; its tool tip as plain text; the label beside it
//   (GuiModel::neighbourLabel) as plain text. Plain text drops the '&' mnemonic markers ("&&"
//   stands for one '&'), turns every run of blanks and line feeds into one blank, trims blanks at
//   both ends and ignores case, so "Animate All" finds the button "A&nimate\nAll".
//
// Acting: each action first checks that a user could do it, and changes nothing otherwise
// (GuiError): the control exists and is of the kind the action needs; its dialog is up; no modal
// dialog other than its own is up (the last modal dialog launched takes all input); the control is
// sensitive (for a menu entry, also the menus above it and the menu bar). Then the action sets the
// control's state and fires its callback:
// - press: the button's callback;
// - selectLines: sets the selection, then the list's callback with the first selected line (0 for
//   none), only when the selection changed;
// - enterText: sets the text, then the field's value-changed callback, always (as Return does);
// - spin: the spin field's up or down callback (the add-on updates the text);
// - chooseOption, setToggle, chooseRadioButton: set, then the callback, only on a change (a click
//   on what is already chosen changes nothing);
// - chooseMenuEntry: an item's callback; a menu toggle flips (or takes the state given), then its
//   callback, only on a change;
// - pressDialogButton: OK, Apply, Cancel (modal), Close (modeless; on a modal dialog the same as
//   Cancel) and Help run the dialog's callback. OK, Cancel and Close without a callback drop the
//   dialog, as the host does for an add-on that leaves it to the host.
// Nothing runs the idle queue: the macro player runs it after each line, tests when they like.
#ifndef VEXHOST_GUIUSER_H
#define VEXHOST_GUIUSER_H

#include <cstdint>
#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "vexhost/GuiControl.h"
#include "vexhost/GuiDialog.h"

namespace vexhost {

class AddOnRegistry;
class Host;
class GuiModel;

class GuiUser {
public:
    enum class DialogButton { Ok, Apply, Cancel, Close, Help };

    explicit GuiUser(Host& host);
    GuiUser(const GuiUser&) = delete;
    GuiUser& operator=(const GuiUser&) = delete;

    // The text as plain-text matching compares it (see above).
    static std::string plainText(std::string_view text);

    // ---- Finding ----
    const GuiDialog& findDialog(const std::string& title) const;
    const GuiDialog& findDialogById(int32_t id) const;
    // Only controls of the given kinds are candidates (every kind when the list is empty); a
    // text that names only controls of other kinds says so.
    const GuiControl& findControl(const GuiDialog& dialog, const std::string& text,
                                  const std::vector<GuiControl::Kind>& kinds = {}) const;
    const GuiControl& findControlById(const GuiDialog& dialog, int32_t id) const;
    // ordinal counts from 1 among the dialog's controls of that kind, in creation order.
    const GuiControl& findControlOfKind(const GuiDialog& dialog, GuiControl::Kind kind,
                                        int32_t ordinal) const;
    // A menu bar entry by the labels on the way to it: a menu of the menu bar, then submenus,
    // then the entry (each label exactly, else as plain text).
    const GuiControl& findMenuEntry(const GuiDialog& dialog,
                                    const std::vector<std::string>& path) const;
    // The 1-based button of a radio box whose label is the text (exactly, else as plain text).
    int32_t findRadioButton(const GuiControl& radioBox, const std::string& label) const;
    // The radio box and button among all radio boxes of the dialog.
    std::pair<const GuiControl*, int32_t> findRadioButton(const GuiDialog& dialog,
                                                          const std::string& label) const;
    // The 1-based entry of an option menu whose text is the text (exactly, else as plain text).
    int32_t findOptionEntry(const GuiControl& optionMenu, const std::string& text) const;

    // ---- Acting ----
    // Chooses an item an add-on added to the host's menus (VexUtilMenuAddOption), the path and
    // label matched exactly, else as plain text; through the same path as the host's menus.
    void chooseHostMenuItem(const std::string& menuPath, const std::string& label);
    void press(int32_t buttonId);
    // Lines count from 1, in any order; none deselects every line.
    void selectLines(int32_t listId, std::vector<int32_t> lines);
    // Text fields and spin text fields.
    void enterText(int32_t fieldId, const std::string& text);
    void spin(int32_t spinFieldId, bool up);
    void chooseOption(int32_t optionMenuId, int32_t entry);
    void setToggle(int32_t toggleId, bool on);
    void chooseRadioButton(int32_t radioBoxId, int32_t button);
    // Menu items and menu toggles; state only for toggles (nullopt flips it).
    void chooseMenuEntry(int32_t entryId, std::optional<bool> state = std::nullopt);
    void pressDialogButton(int32_t dialogId, DialogButton button);

    // How messages name a control: its kind, then its label in quotes or, without one, its
    // id ("the button \"&Apply\" (#6)", "the text field #14").
    static std::string describe(const GuiControl& control);

private:
    // The control, if the user can act on it (see above); GuiError otherwise.
    GuiControl& usableControl(int32_t id, const std::vector<GuiControl::Kind>& kinds);
    GuiDialog& usableDialog(int32_t id);
    void checkUsable(const GuiDialog& dialog) const;

    GuiModel& model_;
    AddOnRegistry& addOns_;
};

std::ostream& operator<<(std::ostream& out, GuiUser::DialogButton button);

}  // namespace vexhost

#endif
