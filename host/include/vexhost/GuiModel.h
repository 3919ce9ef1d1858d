// The host's dialogs and their controls: a live model of what the add-on built through the GUI
// library (vexgui.h), what is on screen, and which modal dialog has the user's attention.
//
// Ids are unique positive numbers shared by dialogs and controls, counted from 1 after each reset;
// nothing is ever destroyed before the reset, so ids, references and pointers handed out stay
// valid until then. The SDK layer checks every argument (and records host errors) before it
// changes the model; GuiUser acts on it as the user does; GuiDump writes its state.
//
// Launching a modal dialog does not block: the dialog stays up, and takes the user's input away
// from every other dialog and from the host's menus, until the add-on drops it (from its OK or
// Cancel callback). No callback runs because the add-on changed a control: only launching (init)
// and the user's actions fire callbacks.
#ifndef VEXHOST_GUIMODEL_H
#define VEXHOST_GUIMODEL_H

#include <cstdint>
#include <memory>
#include <vector>

#include "vexhost/GuiControl.h"
#include "vexhost/GuiDialog.h"

namespace vexhost {

class GuiModel {
public:
    // The height of one line of a label, in dialog units (that of the single-line controls the
    // add-on places): a label stands on the rows its lines cover.
    static constexpr int32_t LabelLineHeight = 145;

    GuiModel() = default;
    GuiModel(const GuiModel&) = delete;
    GuiModel& operator=(const GuiModel&) = delete;

    // ---- Reading ----
    // Every dialog, in creation order.
    std::vector<const GuiDialog*> dialogs() const;
    // nullptr when no dialog has that id.
    const GuiDialog* dialog(int32_t id) const;
    GuiDialog* dialog(int32_t id);
    // nullptr when no control has that id (a dialog's id included).
    const GuiControl* control(int32_t id) const;
    GuiControl* control(int32_t id);
    // The modal dialogs that are up, in the order they were launched: the last one has the
    // user's attention.
    const std::vector<int32_t>& modalDialogsUp() const { return modalUp_; }
    bool isModalDialogUp() const { return !modalUp_.empty(); }
    // The label that names a control without a label of its own: among the labels of its dialog
    // on the control's rows (a label's lines span LabelLineHeight each) and left of it, the
    // nearest; without one, a label just above it (its last line ends less than a line above the
    // control's top, and it starts within a line's height left of the control or over it).
    // nullptr when there is none, and for controls without a place.
    const GuiControl* neighbourLabel(const GuiControl& control) const;

    // ---- Host side (the SDK layer has checked the arguments) ----
    // Stores the dialog under a new id and returns it.
    GuiDialog& addDialog(GuiDialog dialog);
    // Stores the control under a new id in its dialog (and, for a menu bar entry, in its parent's
    // entries; a menu bar becomes its dialog's) and returns it.
    GuiControl& addControl(GuiControl control);
    // Shows the dialog, then runs its init callback. Nothing when it is up already.
    void launch(GuiDialog& dialog);
    // Hides the dialog; nothing when it is not up. No callback runs.
    void drop(GuiDialog& dialog);

    // No dialogs or controls; ids from 1 again.
    void reset();

private:
    struct Entry {
        GuiDialog* dialog = nullptr;
        GuiControl* control = nullptr;
    };

    int32_t nextId() const { return static_cast<int32_t>(ids_.size()) + 1; }
    const Entry* entry(int32_t id) const;

    std::vector<std::unique_ptr<GuiDialog>> dialogs_;
    std::vector<std::unique_ptr<GuiControl>> controls_;
    std::vector<Entry> ids_;  // ids_[id - 1]
    std::vector<int32_t> modalUp_;
};

}  // namespace vexhost

#endif
