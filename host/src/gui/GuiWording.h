// The wording of the user's GuiError messages (GuiUser): what was looked for or tried, where, and,
// where it helps, what there is instead. Texts of the model (titles, labels) are quoted in full as
// the dump shows them; texts the user gave are quoted and cut short when long. A control is named
// with its kind, then its label or id (describe), followed by the dialog it is in.
#ifndef VEXHOST_GUI_GUIWORDING_H
#define VEXHOST_GUI_GUIWORDING_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "vexhost/AddOnRegistry.h"
#include "vexhost/GuiControl.h"
#include "vexhost/GuiDialog.h"
#include "vexhost/GuiError.h"
#include "vexhost/GuiUser.h"

namespace vexhost {

class GuiModel;

class GuiWording {
public:
    explicit GuiWording(const GuiModel& model) : model_(model) {}

    // "the button \"&Apply\" (#6)", "the text field #14"
    static std::string describe(const GuiControl& control);

    // ---- Finding: nothing, or more than one thing, fits ----
    // The notOne... errors word both cases, told apart by what fits (found, count).
    GuiError notOneDialog(const std::string& title,
                          const std::vector<const GuiDialog*>& found) const;
    GuiError noDialog(int32_t id) const;
    GuiError noControl(const GuiDialog& dialog, const std::string& text) const;
    GuiError severalControls(const GuiDialog& dialog, const std::string& text,
                             const std::vector<const GuiControl*>& found) const;
    // The text names controls, but none of the kinds wanted.
    GuiError controlsOfOtherKinds(const GuiDialog& dialog, const std::string& text,
                                  const std::vector<const GuiControl*>& named,
                                  const std::vector<GuiControl::Kind>& kinds) const;
    GuiError noControl(const GuiDialog& dialog, int32_t id) const;
    GuiError noControlOfKind(const GuiDialog& dialog, GuiControl::Kind kind, int32_t ordinal,
                             int32_t count) const;
    GuiError noMenuBar(const GuiDialog& dialog) const;
    GuiError noMenuPath(const GuiDialog& dialog) const;
    GuiError notAMenu(const GuiControl& entry, const std::string& text) const;
    // menu: the menu bar or a menu, whose entries have the labels.
    GuiError notOneMenuEntry(const GuiControl& menu, const std::string& text,
                             const std::vector<std::string>& labels, std::size_t count) const;
    GuiError notOneRadioButton(const GuiControl& radioBox, const std::string& label,
                               std::size_t count) const;
    GuiError noRadioBox(const GuiDialog& dialog) const;
    // labels: those of every radio button of the dialog.
    GuiError notOneRadioButton(const GuiDialog& dialog, const std::string& label,
                               const std::vector<std::string>& labels, std::size_t count) const;
    GuiError notOneOptionEntry(const GuiControl& optionMenu, const std::string& text,
                               std::size_t count) const;
    GuiError notOneHostMenuItem(const std::string& menuPath, const std::string& label,
                                const std::vector<AddOnRegistry::MenuOption>& options,
                                std::size_t count) const;

    // ---- Acting: what a user could not do ----
    GuiError dialogNotUp(const GuiDialog& dialog) const;
    // The last modal dialog launched, which is up, takes all input.
    GuiError behindModalDialog(const GuiDialog& dialog) const;
    GuiError hostMenusBehindModalDialog() const;
    GuiError noControl(int32_t id) const;
    GuiError notOfKinds(const GuiControl& control,
                        const std::vector<GuiControl::Kind>& kinds) const;
    GuiError insensitive(const GuiControl& control) const;
    // A list line, option menu entry or radio button by number that the control does not have.
    GuiError noPosition(const GuiControl& control, int32_t position) const;
    GuiError lineGivenTwice(int32_t line) const;
    GuiError oneLineAtATime(const GuiControl& list, std::size_t count) const;
    GuiError notAMenuToggle(const GuiControl& entry) const;
    GuiError noDialogButton(const GuiDialog& dialog, GuiUser::DialogButton button) const;

private:
    // "The list #12 in the dialog \"Key Frames\"", to begin a sentence.
    std::string inItsDialog(const GuiControl& control) const;
    // "The menu bar of the dialog ..." or "The menu \"File\" in the dialog ...".
    std::string menuInItsDialog(const GuiControl& menu) const;
    std::string modalDialogTitle() const;

    const GuiModel& model_;
};

}  // namespace vexhost

#endif
