#include "vexhost/GuiUser.h"

#include <algorithm>
#include <ostream>

#include "core/Text.h"
#include "gui/GuiFinder.h"
#include "gui/GuiWording.h"
#include "gui/TieredMatch.h"
#include "script/MacroText.h"
#include "vexhost/AddOnRegistry.h"
#include "vexhost/GuiError.h"
#include "vexhost/GuiModel.h"
#include "vexhost/Host.h"

namespace vexhost {

using Kind = GuiControl::Kind;

GuiUser::GuiUser(Host& host) : model_(host.guiModel()), addOns_(host.addOns()) {}

std::string GuiUser::plainText(std::string_view text) {
    return TieredMatch::plainText(text);
}

std::string GuiUser::describe(const GuiControl& control) {
    return GuiWording::describe(control);
}

// ---- Finding ------------------------------------------------------------------------------------

const GuiDialog& GuiUser::findDialog(const std::string& title) const {
    return GuiFinder(model_).dialog(title);
}

const GuiDialog& GuiUser::findDialogById(int32_t id) const {
    return GuiFinder(model_).dialogById(id);
}

const GuiControl& GuiUser::findControl(const GuiDialog& dialog, const std::string& text,
                                       const std::vector<Kind>& kinds) const {
    return GuiFinder(model_).control(dialog, text, kinds);
}

const GuiControl& GuiUser::findControlById(const GuiDialog& dialog, int32_t id) const {
    return GuiFinder(model_).controlById(dialog, id);
}

const GuiControl& GuiUser::findControlOfKind(const GuiDialog& dialog, Kind kind,
                                             int32_t ordinal) const {
    return GuiFinder(model_).controlOfKind(dialog, kind, ordinal);
}

const GuiControl& GuiUser::findMenuEntry(const GuiDialog& dialog,
                                         const std::vector<std::string>& path) const {
    return GuiFinder(model_).menuEntry(dialog, path);
}

int32_t GuiUser::findRadioButton(const GuiControl& radioBox, const std::string& label) const {
    return GuiFinder(model_).radioButton(radioBox, label);
}

std::pair<const GuiControl*, int32_t> GuiUser::findRadioButton(const GuiDialog& dialog,
                                                               const std::string& label) const {
    return GuiFinder(model_).radioButton(dialog, label);
}

int32_t GuiUser::findOptionEntry(const GuiControl& optionMenu, const std::string& text) const {
    return GuiFinder(model_).optionEntry(optionMenu, text);
}

// ---- Acting -------------------------------------------------------------------------------------

void GuiUser::checkUsable(const GuiDialog& dialog) const {
    if (!dialog.up)
        throw GuiWording(model_).dialogNotUp(dialog);
    // A modal dialog keeps the user's hands off everything else until it is closed.
    if (model_.isModalDialogUp() && model_.modalDialogsUp().back() != dialog.id)
        throw GuiWording(model_).behindModalDialog(dialog);
}

GuiDialog& GuiUser::usableDialog(int32_t id) {
    GuiDialog* dialog = model_.dialog(id);
    if (dialog == nullptr)
        throw GuiWording(model_).noDialog(id);
    checkUsable(*dialog);
    return *dialog;
}

GuiControl& GuiUser::usableControl(int32_t id, const std::vector<Kind>& kinds) {
    GuiControl* control = model_.control(id);
    if (control == nullptr)
        throw GuiWording(model_).noControl(id);
    if (std::find(kinds.begin(), kinds.end(), control->kind) == kinds.end())
        throw GuiWording(model_).notOfKinds(*control, kinds);
    checkUsable(*model_.dialog(control->dialogId));
    // A menu entry is out of reach while a menu above it, or the menu bar, is insensitive.
    for (const GuiControl* reached = control; reached != nullptr;
         reached = reached->isMenuEntry() && reached->kind != Kind::MenuBar
                       ? model_.control(reached->parentId)
                       : nullptr) {
        if (!reached->sensitive)
            throw GuiWording(model_).insensitive(*reached);
    }
    return *control;
}

void GuiUser::chooseHostMenuItem(const std::string& menuPath, const std::string& label) {
    if (model_.isModalDialogUp())
        throw GuiWording(model_).hostMenusBehindModalDialog();
    const AddOnRegistry::MenuOption& item =
        GuiFinder(model_).hostMenuItem(addOns_.menuOptions(), menuPath, label);
    // Copied first: the item's callback may add items. Then the same path as the host's menus.
    const std::string path = item.menuPath;
    const std::string registered = item.label;
    addOns_.chooseMenuOption(path, registered);
}

void GuiUser::press(int32_t buttonId) {
    const GuiControl& button = usableControl(buttonId, {Kind::Button});
    if (button.voidCallback != nullptr)
        button.voidCallback(button.clientData);
}

void GuiUser::selectLines(int32_t listId, std::vector<int32_t> lines) {
    GuiControl& list = usableControl(listId, {Kind::List});
    for (int32_t line : lines) {
        if (line < 1 || static_cast<std::size_t>(line) > list.items.size())
            throw GuiWording(model_).noPosition(list, line);
    }
    std::sort(lines.begin(), lines.end());
    const auto twice = std::adjacent_find(lines.begin(), lines.end());
    if (twice != lines.end())
        throw GuiWording(model_).lineGivenTwice(*twice);
    if (!list.multiSelection && lines.size() > 1)
        throw GuiWording(model_).oneLineAtATime(list, lines.size());
    if (lines == list.selection)
        return;
    list.selection = std::move(lines);
    if (list.intCallback != nullptr)
        list.intCallback(list.selection.empty() ? 0 : list.selection.front(), list.clientData);
}

void GuiUser::enterText(int32_t fieldId, const std::string& text) {
    GuiControl& field = usableControl(fieldId, {Kind::TextField, Kind::SpinTextField});
    field.text = text;
    // The callback gets its own copy: it may set the field's text while it reads this one.
    const std::string entered = text;
    if (field.textCallback != nullptr)
        field.textCallback(entered.c_str(), field.clientData);
}

void GuiUser::spin(int32_t spinFieldId, bool up) {
    const GuiControl& field = usableControl(spinFieldId, {Kind::SpinTextField});
    const VexGUIVoidCallback_pf callback = up ? field.upCallback : field.downCallback;
    if (callback != nullptr)
        callback(field.clientData);
}

void GuiUser::chooseOption(int32_t optionMenuId, int32_t entry) {
    GuiControl& menu = usableControl(optionMenuId, {Kind::OptionMenu});
    if (entry < 1 || static_cast<std::size_t>(entry) > menu.items.size())
        throw GuiWording(model_).noPosition(menu, entry);
    if (entry == menu.choice)
        return;
    menu.choice = entry;
    if (menu.intCallback != nullptr)
        menu.intCallback(entry, menu.clientData);
}

void GuiUser::setToggle(int32_t toggleId, bool on) {
    GuiControl& toggle = usableControl(toggleId, {Kind::Toggle});
    if (toggle.isOn == on)
        return;
    toggle.isOn = on;
    if (toggle.intCallback != nullptr)
        toggle.intCallback(on ? 1 : 0, toggle.clientData);
}

void GuiUser::chooseRadioButton(int32_t radioBoxId, int32_t button) {
    GuiControl& box = usableControl(radioBoxId, {Kind::RadioBox});
    if (button < 1 || static_cast<std::size_t>(button) > box.items.size())
        throw GuiWording(model_).noPosition(box, button);
    if (button == box.choice)
        return;
    box.choice = button;
    if (box.intCallback != nullptr)
        box.intCallback(button, box.clientData);
}

void GuiUser::chooseMenuEntry(int32_t entryId, std::optional<bool> state) {
    GuiControl& entry = usableControl(entryId, {Kind::MenuItem, Kind::MenuToggle});
    if (entry.kind == Kind::MenuItem) {
        if (state)
            throw GuiWording(model_).notAMenuToggle(entry);
        if (entry.voidCallback != nullptr)
            entry.voidCallback(entry.clientData);
        return;
    }
    const bool on = state.value_or(!entry.isOn);
    if (on == entry.isOn)
        return;
    entry.isOn = on;
    if (entry.intCallback != nullptr)
        entry.intCallback(on ? 1 : 0, entry.clientData);
}

void GuiUser::pressDialogButton(int32_t dialogId, DialogButton button) {
    GuiDialog& dialog = usableDialog(dialogId);
    // A modal dialog's window close is its Cancel.
    if (button == DialogButton::Close && dialog.modal)
        button = DialogButton::Cancel;
    bool present = false;
    VexGUIVoidCallback_pf callback = nullptr;
    bool dropsWithoutCallback = false;
    switch (button) {
        case DialogButton::Ok:
            present = dialog.modal;
            callback = dialog.ok;
            dropsWithoutCallback = true;
            break;
        case DialogButton::Apply:
            present = dialog.hasApply();
            callback = dialog.apply;
            break;
        case DialogButton::Cancel:
            present = dialog.modal;
            callback = dialog.cancel;
            dropsWithoutCallback = true;
            break;
        case DialogButton::Close:
            present = !dialog.modal;
            callback = dialog.close;
            dropsWithoutCallback = true;
            break;
        case DialogButton::Help:
            present = dialog.hasHelp();
            callback = dialog.help;
            break;
    }
    if (!present)
        throw GuiWording(model_).noDialogButton(dialog, button);
    if (callback != nullptr)
        callback(dialog.clientData);
    else if (dropsWithoutCallback)
        model_.drop(dialog);
}

std::ostream& operator<<(std::ostream& out, GuiUser::DialogButton button) {
    switch (button) {
        case GuiUser::DialogButton::Ok:
            return out << "OK";
        case GuiUser::DialogButton::Apply:
            return out << "Apply";
        case GuiUser::DialogButton::Cancel:
            return out << "Cancel";
        case GuiUser::DialogButton::Close:
            return out << "Close";
        case GuiUser::DialogButton::Help:
            return out << "Help";
    }
    return out << "?";
}

}  // namespace vexhost
