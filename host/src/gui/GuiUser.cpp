#include "vexhost/GuiUser.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <ostream>
#include <sstream>

#include "core/Text.h"
#include "script/MacroText.h"
#include "vexhost/AddOnRegistry.h"
#include "vexhost/GuiError.h"
#include "vexhost/GuiModel.h"
#include "vexhost/Host.h"

namespace vexhost {

using Kind = GuiControl::Kind;

namespace {

[[noreturn]] void fail(const std::string& message) {
    throw GuiError(message);
}

// A text of the model (a label, a title), quoted in full as the dump shows it.
std::string quoted(const std::string& text) {
    std::string out;
    text::appendQuoted(out, text.c_str());
    return out;
}

// A text the user gave, quoted and cut short when it is long.
std::string given(const std::string& text) {
    return script::quoteForMessage(text);
}

std::string capitalized(std::string text) {
    if (!text.empty())
        text[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(text[0])));
    return text;
}

std::string withArticle(const char* name) {
    return (std::string(std::strchr("aeiou", name[0]) != nullptr ? "an " : "a ") + name);
}

// "a text field or a spin text field"
std::string kindsText(const std::vector<Kind>& kinds) {
    std::string text;
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        if (i > 0)
            text += i + 1 == kinds.size() ? " or " : ", ";
        text += withArticle(GuiControl::kindName(kinds[i]));
    }
    return text;
}

// "A", "A and B", "A, B and C"
std::string joined(const std::vector<std::string>& items) {
    std::string text;
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (i > 0)
            text += i + 1 == items.size() ? " and " : ", ";
        text += items[i];
    }
    return text;
}

std::string quotedList(const std::vector<std::string>& items) {
    std::vector<std::string> quotedItems;
    for (const std::string& item : items)
        quotedItems.push_back(quoted(item));
    return joined(quotedItems);
}

std::string inDialog(const GuiDialog& dialog) {
    return " in the dialog " + quoted(dialog.title);
}

bool hasKind(const std::vector<Kind>& kinds, Kind kind) {
    return kinds.empty() || std::find(kinds.begin(), kinds.end(), kind) != kinds.end();
}

// Positions (from 1) of the texts equal to `text`: exactly, else as plain text.
std::vector<int32_t> matchingEntries(const std::vector<std::string>& texts,
                                     const std::string& text) {
    std::vector<int32_t> found;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (texts[i] == text)
            found.push_back(static_cast<int32_t>(i) + 1);
    }
    if (!found.empty())
        return found;
    const std::string plain = GuiUser::plainText(text);
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (GuiUser::plainText(texts[i]) == plain)
            found.push_back(static_cast<int32_t>(i) + 1);
    }
    return found;
}

}  // namespace

GuiUser::GuiUser(Host& host) : host_(host), model_(host.guiModel()) {}

std::string GuiUser::plainText(std::string_view text) {
    std::string plain;
    bool blankPending = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c == '&') {
            if (i + 1 >= text.size() || text[i + 1] != '&')
                continue;  // a mnemonic marker
            ++i;           // "&&" is one literal '&'
        }
        if (c == ' ' || c == '\t' || c == '\n' || c == '\r') {
            blankPending = !plain.empty();
            continue;
        }
        if (blankPending)
            plain += ' ';
        blankPending = false;
        plain += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
    return plain;
}

std::string GuiUser::describe(const GuiControl& control) {
    std::string text = std::string("the ") + GuiControl::kindName(control.kind);
    if (control.hasLabel())
        return text + " " + quoted(control.label) + " (#" + std::to_string(control.id) + ")";
    return text + " #" + std::to_string(control.id);
}

// ---- Finding ------------------------------------------------------------------------------------

const GuiDialog& GuiUser::findDialog(const std::string& title) const {
    const std::vector<const GuiDialog*> dialogs = model_.dialogs();
    std::vector<const GuiDialog*> found;
    for (const GuiDialog* dialog : dialogs) {
        if (dialog->title == title)
            found.push_back(dialog);
    }
    if (found.empty()) {
        const std::string plain = plainText(title);
        for (const GuiDialog* dialog : dialogs) {
            if (plainText(dialog->title) == plain)
                found.push_back(dialog);
        }
    }
    auto listing = [](const std::vector<const GuiDialog*>& list) {
        std::vector<std::string> items;
        for (const GuiDialog* dialog : list)
            items.push_back(quoted(dialog->title) + " (#" + std::to_string(dialog->id) + ", " +
                            (dialog->up ? "up" : "not up") + ")");
        return joined(items);
    };
    if (found.size() == 1)
        return *found.front();
    if (found.size() > 1)
        fail("Several dialogs are titled " + given(title) + ": " + listing(found) +
             "; name one by its id (#<id>).");
    if (dialogs.empty())
        fail("There is no dialog " + given(title) + "; no dialog has been created.");
    fail("There is no dialog " + given(title) + "; the dialogs are " + listing(dialogs) + ".");
}

const GuiDialog& GuiUser::findDialogById(int32_t id) const {
    const GuiDialog* dialog = model_.dialog(id);
    if (dialog == nullptr)
        fail("There is no dialog #" + std::to_string(id) + ".");
    return *dialog;
}

const GuiControl& GuiUser::findControl(const GuiDialog& dialog, const std::string& text,
                                       const std::vector<Kind>& kinds) const {
    // The tiers, strongest first: the label as given, the label as plain text, the tool tip as
    // plain text, the label beside the control as plain text.
    const std::string plain = plainText(text);
    auto matches = [&](const GuiControl& control, int tier) {
        switch (tier) {
            case 0:
                return control.hasLabel() && control.label == text;
            case 1:
                return control.hasLabel() && plainText(control.label) == plain;
            case 2:
                return !control.toolTip.empty() && plainText(control.toolTip) == plain;
            default: {
                if (control.hasLabel())
                    return false;
                const GuiControl* beside = model_.neighbourLabel(control);
                return beside != nullptr && plainText(beside->label) == plain;
            }
        }
    };
    // Menu bar entries are reached through their menus (findMenuEntry), never by text.
    // The matches of the first tier that has any or, with allTiers, of every tier.
    auto matching = [&](bool ofKinds, bool allTiers) {
        std::vector<const GuiControl*> found;
        for (int tier = 0; tier < 4 && (allTiers || found.empty()); ++tier) {
            for (int32_t id : dialog.controls) {
                const GuiControl* control = model_.control(id);
                if (control->isMenuEntry() || (ofKinds && !hasKind(kinds, control->kind)) ||
                    std::find(found.begin(), found.end(), control) != found.end())
                    continue;
                if (matches(*control, tier))
                    found.push_back(control);
            }
        }
        return found;
    };
    auto describeAll = [](const std::vector<const GuiControl*>& controls) {
        std::vector<std::string> items;
        for (const GuiControl* control : controls)
            items.push_back(describe(*control));
        return joined(items);
    };

    const std::vector<const GuiControl*> found = matching(true, false);
    if (found.size() == 1)
        return *found.front();
    if (found.size() > 1)
        fail(capitalized(given(text)) + inDialog(dialog) + " names " + describeAll(found) +
             "; name one by its id (#<id>) or by kind and number (<kind>:<n>).");
    if (!kinds.empty()) {
        // Everything the text names, so the message shows the control the user meant.
        const std::vector<const GuiControl*> others = matching(false, true);
        if (!others.empty())
            fail(given(text) + inDialog(dialog) + " names " + describeAll(others) + ", not " +
                 kindsText(kinds) + ".");
    }
    std::vector<std::string> listing;
    for (int32_t id : dialog.controls) {
        const GuiControl& control = *model_.control(id);
        if (control.isMenuEntry())
            continue;
        std::string item =
            std::string(GuiControl::kindName(control.kind)) + " #" + std::to_string(control.id);
        if (control.hasLabel()) {
            item += " " + quoted(control.label);
        } else if (const GuiControl* beside = model_.neighbourLabel(control)) {
            item += " beside " + quoted(beside->label);
        } else if (!control.toolTip.empty()) {
            item += " with the tool tip " + quoted(control.toolTip);
        }
        listing.push_back(item);
    }
    if (listing.empty())
        fail("The dialog " + quoted(dialog.title) + " has no control " + given(text) +
             "; it has no controls.");
    fail("The dialog " + quoted(dialog.title) + " has no control " + given(text) + "; it has " +
         joined(listing) + ".");
}

const GuiControl& GuiUser::findControlById(const GuiDialog& dialog, int32_t id) const {
    const GuiControl* control = model_.control(id);
    if (control == nullptr || control->dialogId != dialog.id)
        fail("The dialog " + quoted(dialog.title) + " has no control #" + std::to_string(id) + ".");
    return *control;
}

const GuiControl& GuiUser::findControlOfKind(const GuiDialog& dialog, Kind kind,
                                             int32_t ordinal) const {
    int32_t seen = 0;
    for (int32_t id : dialog.controls) {
        const GuiControl* control = model_.control(id);
        if (control->kind == kind && ++seen == ordinal)
            return *control;
    }
    fail("The dialog " + quoted(dialog.title) + " has no " + GuiControl::kindName(kind) + " " +
         std::to_string(ordinal) + " (it has " + std::to_string(seen) + ").");
}

const GuiControl& GuiUser::findMenuEntry(const GuiDialog& dialog,
                                         const std::vector<std::string>& path) const {
    const GuiControl* current = model_.control(dialog.menuBarId);
    if (current == nullptr)
        fail("The dialog " + quoted(dialog.title) + " has no menu bar.");
    if (path.empty())
        fail("Name a menu of the dialog " + quoted(dialog.title) + " and an entry of it.");
    for (std::size_t step = 0; step < path.size(); ++step) {
        const std::string where = current->kind == Kind::MenuBar
                                      ? "The menu bar of the dialog " + quoted(dialog.title)
                                      : "The menu " + quoted(current->label) + inDialog(dialog);
        if (current->kind != Kind::MenuBar && current->kind != Kind::Menu)
            fail(capitalized(describe(*current)) + inDialog(dialog) +
                 " is not a menu: " + given(path[step]) + " cannot be in it.");
        std::vector<std::string> labels;
        for (int32_t id : current->children)
            labels.push_back(model_.control(id)->label);
        const std::vector<int32_t> found = matchingEntries(labels, path[step]);
        if (found.empty())
            fail(where + " has no entry " + given(path[step]) +
                 (labels.empty() ? "; it is empty." : "; it has " + quotedList(labels) + "."));
        if (found.size() > 1)
            fail(where + " has " + std::to_string(found.size()) + " entries " + given(path[step]) +
                 "; name the one meant by its id (#<id>).");
        current = model_.control(current->children[static_cast<std::size_t>(found.front()) - 1]);
    }
    return *current;
}

int32_t GuiUser::findRadioButton(const GuiControl& radioBox, const std::string& label) const {
    const GuiDialog& dialog = *model_.dialog(radioBox.dialogId);
    const std::vector<int32_t> found = matchingEntries(radioBox.items, label);
    if (found.size() == 1)
        return found.front();
    if (found.empty())
        fail(capitalized(describe(radioBox)) + inDialog(dialog) + " has no button " + given(label) +
             "; its buttons are " + quotedList(radioBox.items) + ".");
    fail(capitalized(describe(radioBox)) + inDialog(dialog) + " has " +
         std::to_string(found.size()) + " buttons " + given(label) + "; name one by number.");
}

std::pair<const GuiControl*, int32_t> GuiUser::findRadioButton(const GuiDialog& dialog,
                                                               const std::string& label) const {
    std::vector<const GuiControl*> boxes;
    for (int32_t id : dialog.controls) {
        const GuiControl* control = model_.control(id);
        if (control->kind == Kind::RadioBox)
            boxes.push_back(control);
    }
    if (boxes.empty())
        fail("The dialog " + quoted(dialog.title) + " has no radio box.");
    // The exact labels of every box first, then the plain ones: "&Loop" never loses to "Loop".
    std::vector<std::pair<const GuiControl*, int32_t>> found;
    for (int tier = 0; tier < 2 && found.empty(); ++tier) {
        for (const GuiControl* box : boxes) {
            for (std::size_t i = 0; i < box->items.size(); ++i) {
                const bool match = tier == 0 ? box->items[i] == label
                                             : plainText(box->items[i]) == plainText(label);
                if (match)
                    found.emplace_back(box, static_cast<int32_t>(i) + 1);
            }
        }
    }
    if (found.size() == 1)
        return found.front();
    if (found.empty()) {
        std::vector<std::string> labels;
        for (const GuiControl* box : boxes)
            labels.insert(labels.end(), box->items.begin(), box->items.end());
        fail("The dialog " + quoted(dialog.title) + " has no radio button " + given(label) +
             "; its radio buttons are " + quotedList(labels) + ".");
    }
    fail("The dialog " + quoted(dialog.title) + " has " + std::to_string(found.size()) +
         " radio buttons " + given(label) + "; name the radio box too.");
}

int32_t GuiUser::findOptionEntry(const GuiControl& optionMenu, const std::string& text) const {
    const GuiDialog& dialog = *model_.dialog(optionMenu.dialogId);
    const std::vector<int32_t> found = matchingEntries(optionMenu.items, text);
    if (found.size() == 1)
        return found.front();
    if (found.empty())
        fail(capitalized(describe(optionMenu)) + inDialog(dialog) + " has no entry " + given(text) +
             (optionMenu.items.empty()
                  ? "; it is empty."
                  : "; its entries are " + quotedList(optionMenu.items) + "."));
    fail(capitalized(describe(optionMenu)) + inDialog(dialog) + " has " +
         std::to_string(found.size()) + " entries " + given(text) + "; name one by number.");
}

// ---- Acting -------------------------------------------------------------------------------------

void GuiUser::checkUsable(const GuiDialog& dialog) const {
    if (!dialog.up)
        fail("The dialog " + quoted(dialog.title) + " is not up.");
    // A modal dialog keeps the user's hands off everything else until it is closed.
    if (model_.isModalDialogUp() && model_.modalDialogsUp().back() != dialog.id)
        fail("The dialog " + quoted(dialog.title) + " cannot be used while the modal dialog " +
             quoted(model_.dialog(model_.modalDialogsUp().back())->title) + " is up.");
}

GuiDialog& GuiUser::usableDialog(int32_t id) {
    GuiDialog* dialog = model_.dialog(id);
    if (dialog == nullptr)
        fail("There is no dialog #" + std::to_string(id) + ".");
    checkUsable(*dialog);
    return *dialog;
}

GuiControl& GuiUser::usableControl(int32_t id, const std::vector<Kind>& kinds) {
    GuiControl* control = model_.control(id);
    if (control == nullptr)
        fail("There is no control #" + std::to_string(id) + ".");
    const GuiDialog& dialog = *model_.dialog(control->dialogId);
    if (!hasKind(kinds, control->kind))
        fail(capitalized(describe(*control)) + inDialog(dialog) + " is not " + kindsText(kinds) +
             ".");
    checkUsable(dialog);
    // A menu entry is out of reach while a menu above it, or the menu bar, is insensitive.
    for (const GuiControl* reached = control; reached != nullptr;
         reached = reached->isMenuEntry() && reached->kind != Kind::MenuBar
                       ? model_.control(reached->parentId)
                       : nullptr) {
        if (!reached->sensitive)
            fail(capitalized(describe(*reached)) + inDialog(dialog) + " is insensitive.");
    }
    return *control;
}

void GuiUser::chooseHostMenuItem(const std::string& menuPath, const std::string& label) {
    if (model_.isModalDialogUp())
        fail("The host's menus cannot be used while the modal dialog " +
             quoted(model_.dialog(model_.modalDialogsUp().back())->title) + " is up.");
    const std::vector<AddOnRegistry::MenuOption>& options = host_.addOns().menuOptions();
    std::vector<const AddOnRegistry::MenuOption*> found;
    for (int tier = 0; tier < 2 && found.empty(); ++tier) {
        for (const AddOnRegistry::MenuOption& option : options) {
            const bool match = tier == 0 ? option.menuPath == menuPath && option.label == label
                                         : plainText(option.menuPath) == plainText(menuPath) &&
                                               plainText(option.label) == plainText(label);
            if (match)
                found.push_back(&option);
        }
    }
    if (found.empty()) {
        if (options.empty())
            fail("The host's menus have no item " + given(label) + " in " + given(menuPath) +
                 "; no add-on has added a menu item.");
        std::vector<std::string> items;
        for (const AddOnRegistry::MenuOption& option : options)
            items.push_back(quoted(option.menuPath) + " " + quoted(option.label));
        fail("The host's menus have no item " + given(label) + " in " + given(menuPath) +
             "; the add-ons' items are " + joined(items) + ".");
    }
    if (found.size() > 1)
        fail("The host's menu " + given(menuPath) + " has " + std::to_string(found.size()) +
             " items " + given(label) + ".");
    // Copied first: the item's callback may add items. Then the same path as the host's menus.
    const std::string path = found.front()->menuPath;
    const std::string registered = found.front()->label;
    host_.addOns().chooseMenuOption(path, registered);
}

void GuiUser::press(int32_t buttonId) {
    const GuiControl& button = usableControl(buttonId, {Kind::Button});
    if (button.voidCallback != nullptr)
        button.voidCallback(button.clientData);
}

void GuiUser::selectLines(int32_t listId, std::vector<int32_t> lines) {
    GuiControl& list = usableControl(listId, {Kind::List});
    const std::string where = capitalized(describe(list)) + inDialog(*model_.dialog(list.dialogId));
    for (int32_t line : lines) {
        if (line < 1 || static_cast<std::size_t>(line) > list.items.size())
            fail(where + " has " + std::to_string(list.items.size()) +
                 (list.items.size() == 1 ? " line" : " lines") + "; there is no line " +
                 std::to_string(line) + ".");
    }
    std::sort(lines.begin(), lines.end());
    const auto twice = std::adjacent_find(lines.begin(), lines.end());
    if (twice != lines.end())
        fail("Line " + std::to_string(*twice) + " is given twice.");
    if (!list.multiSelection && lines.size() > 1)
        fail(where + " selects one line at a time; " + std::to_string(lines.size()) +
             " were given.");
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
        fail(capitalized(describe(menu)) + inDialog(*model_.dialog(menu.dialogId)) + " has " +
             std::to_string(menu.items.size()) + (menu.items.size() == 1 ? " entry" : " entries") +
             "; there is no entry " + std::to_string(entry) + ".");
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
        fail(capitalized(describe(box)) + inDialog(*model_.dialog(box.dialogId)) + " has " +
             std::to_string(box.items.size()) + (box.items.size() == 1 ? " button" : " buttons") +
             "; there is no button " + std::to_string(button) + ".");
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
            fail(capitalized(describe(entry)) + inDialog(*model_.dialog(entry.dialogId)) +
                 " is not a menu toggle: it cannot be set on or off.");
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
    if (!present) {
        std::vector<std::string> buttons;
        if (dialog.modal) {
            buttons = {"OK"};
            if (dialog.hasApply())
                buttons.emplace_back("Apply");
            buttons.emplace_back("Cancel");
        } else {
            buttons = {"Close"};
        }
        if (dialog.hasHelp())
            buttons.emplace_back("Help");
        std::ostringstream name;
        name << button;
        fail("The dialog " + quoted(dialog.title) + " has no " + name.str() + " button; it has " +
             joined(buttons) + ".");
    }
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
