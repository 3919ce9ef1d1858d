#include "gui/GuiWording.h"

#include <cctype>
#include <cstring>
#include <sstream>

#include "core/Text.h"
#include "script/MacroText.h"
#include "vexhost/GuiModel.h"

namespace vexhost {

using Kind = GuiControl::Kind;

namespace {

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

std::string dialogTitled(const GuiDialog& dialog) {
    return "The dialog " + quoted(dialog.title);
}

std::string inDialog(const GuiDialog& dialog) {
    return " in the dialog " + quoted(dialog.title);
}

std::string listing(const std::vector<const GuiDialog*>& dialogs) {
    std::vector<std::string> items;
    for (const GuiDialog* dialog : dialogs)
        items.push_back(quoted(dialog->title) + " (#" + std::to_string(dialog->id) + ", " +
                        (dialog->up ? "up" : "not up") + ")");
    return joined(items);
}

std::string listing(const std::vector<const GuiControl*>& controls) {
    std::vector<std::string> items;
    for (const GuiControl* control : controls)
        items.push_back(GuiWording::describe(*control));
    return joined(items);
}

// What a control counts by number, singular and plural (GuiWording::noPosition).
struct PositionNoun {
    Kind kind;
    const char* one;
    const char* many;
};
constexpr PositionNoun PositionNouns[] = {
    {Kind::List, "line", "lines"},
    {Kind::OptionMenu, "entry", "entries"},
    {Kind::RadioBox, "button", "buttons"},
};

}  // namespace

std::string GuiWording::describe(const GuiControl& control) {
    std::string text = std::string("the ") + GuiControl::kindName(control.kind);
    if (control.hasLabel())
        return text + " " + quoted(control.label) + " (#" + std::to_string(control.id) + ")";
    return text + " #" + std::to_string(control.id);
}

std::string GuiWording::inItsDialog(const GuiControl& control) const {
    return capitalized(describe(control)) + inDialog(*model_.dialog(control.dialogId));
}

std::string GuiWording::menuInItsDialog(const GuiControl& menu) const {
    const GuiDialog& dialog = *model_.dialog(menu.dialogId);
    return menu.kind == Kind::MenuBar ? "The menu bar of the dialog " + quoted(dialog.title)
                                      : "The menu " + quoted(menu.label) + inDialog(dialog);
}

std::string GuiWording::modalDialogTitle() const {
    return quoted(model_.dialog(model_.modalDialogsUp().back())->title);
}

// ---- Finding ------------------------------------------------------------------------------------

GuiError GuiWording::notOneDialog(const std::string& title,
                                  const std::vector<const GuiDialog*>& found) const {
    if (!found.empty())
        return GuiError("Several dialogs are titled " + given(title) + ": " + listing(found) +
                        "; name one by its id (#<id>).");
    const std::vector<const GuiDialog*> dialogs = model_.dialogs();
    if (dialogs.empty())
        return GuiError("There is no dialog " + given(title) + "; no dialog has been created.");
    return GuiError("There is no dialog " + given(title) + "; the dialogs are " + listing(dialogs) +
                    ".");
}

GuiError GuiWording::noDialog(int32_t id) const {
    return GuiError("There is no dialog #" + std::to_string(id) + ".");
}

GuiError GuiWording::noControl(const GuiDialog& dialog, const std::string& text) const {
    std::vector<std::string> items;
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
        items.push_back(item);
    }
    if (items.empty())
        return GuiError(dialogTitled(dialog) + " has no control " + given(text) +
                        "; it has no controls.");
    return GuiError(dialogTitled(dialog) + " has no control " + given(text) + "; it has " +
                    joined(items) + ".");
}

GuiError GuiWording::severalControls(const GuiDialog& dialog, const std::string& text,
                                     const std::vector<const GuiControl*>& found) const {
    return GuiError(capitalized(given(text)) + inDialog(dialog) + " names " + listing(found) +
                    "; name one by its id (#<id>) or by kind and number (<kind>:<n>).");
}

GuiError GuiWording::controlsOfOtherKinds(const GuiDialog& dialog, const std::string& text,
                                          const std::vector<const GuiControl*>& named,
                                          const std::vector<Kind>& kinds) const {
    return GuiError(given(text) + inDialog(dialog) + " names " + listing(named) + ", not " +
                    kindsText(kinds) + ".");
}

GuiError GuiWording::noControl(const GuiDialog& dialog, int32_t id) const {
    return GuiError(dialogTitled(dialog) + " has no control #" + std::to_string(id) + ".");
}

GuiError GuiWording::noControlOfKind(const GuiDialog& dialog, Kind kind, int32_t ordinal,
                                     int32_t count) const {
    return GuiError(dialogTitled(dialog) + " has no " + GuiControl::kindName(kind) + " " +
                    std::to_string(ordinal) + " (it has " + std::to_string(count) + ").");
}

GuiError GuiWording::noMenuBar(const GuiDialog& dialog) const {
    return GuiError(dialogTitled(dialog) + " has no menu bar.");
}

GuiError GuiWording::noMenuPath(const GuiDialog& dialog) const {
    return GuiError("Name a menu of the dialog " + quoted(dialog.title) + " and an entry of it.");
}

GuiError GuiWording::notAMenu(const GuiControl& entry, const std::string& text) const {
    return GuiError(inItsDialog(entry) + " is not a menu: " + given(text) + " cannot be in it.");
}

GuiError GuiWording::notOneMenuEntry(const GuiControl& menu, const std::string& text,
                                     const std::vector<std::string>& labels,
                                     std::size_t count) const {
    if (count > 1)
        return GuiError(menuInItsDialog(menu) + " has " + std::to_string(count) + " entries " +
                        given(text) + "; name the one meant by its id (#<id>).");
    return GuiError(menuInItsDialog(menu) + " has no entry " + given(text) +
                    (labels.empty() ? "; it is empty." : "; it has " + quotedList(labels) + "."));
}

GuiError GuiWording::notOneRadioButton(const GuiControl& radioBox, const std::string& label,
                                       std::size_t count) const {
    if (count > 1)
        return GuiError(inItsDialog(radioBox) + " has " + std::to_string(count) + " buttons " +
                        given(label) + "; name one by number.");
    return GuiError(inItsDialog(radioBox) + " has no button " + given(label) +
                    "; its buttons are " + quotedList(radioBox.items) + ".");
}

GuiError GuiWording::noRadioBox(const GuiDialog& dialog) const {
    return GuiError(dialogTitled(dialog) + " has no radio box.");
}

GuiError GuiWording::notOneRadioButton(const GuiDialog& dialog, const std::string& label,
                                       const std::vector<std::string>& labels,
                                       std::size_t count) const {
    if (count > 1)
        return GuiError(dialogTitled(dialog) + " has " + std::to_string(count) + " radio buttons " +
                        given(label) + "; name the radio box too.");
    return GuiError(dialogTitled(dialog) + " has no radio button " + given(label) +
                    "; its radio buttons are " + quotedList(labels) + ".");
}

GuiError GuiWording::notOneOptionEntry(const GuiControl& optionMenu, const std::string& text,
                                       std::size_t count) const {
    if (count > 1)
        return GuiError(inItsDialog(optionMenu) + " has " + std::to_string(count) + " entries " +
                        given(text) + "; name one by number.");
    return GuiError(inItsDialog(optionMenu) + " has no entry " + given(text) +
                    (optionMenu.items.empty()
                         ? "; it is empty."
                         : "; its entries are " + quotedList(optionMenu.items) + "."));
}

GuiError GuiWording::notOneHostMenuItem(const std::string& menuPath, const std::string& label,
                                        const std::vector<AddOnRegistry::MenuOption>& options,
                                        std::size_t count) const {
    if (count > 1)
        return GuiError("The host's menu " + given(menuPath) + " has " + std::to_string(count) +
                        " items " + given(label) + ".");
    const std::string missing =
        "The host's menus have no item " + given(label) + " in " + given(menuPath);
    if (options.empty())
        return GuiError(missing + "; no add-on has added a menu item.");
    std::vector<std::string> items;
    for (const AddOnRegistry::MenuOption& option : options)
        items.push_back(quoted(option.menuPath) + " " + quoted(option.label));
    return GuiError(missing + "; the add-ons' items are " + joined(items) + ".");
}

// ---- Acting -------------------------------------------------------------------------------------

GuiError GuiWording::dialogNotUp(const GuiDialog& dialog) const {
    return GuiError(dialogTitled(dialog) + " is not up.");
}

GuiError GuiWording::behindModalDialog(const GuiDialog& dialog) const {
    return GuiError(dialogTitled(dialog) + " cannot be used while the modal dialog " +
                    modalDialogTitle() + " is up.");
}

GuiError GuiWording::hostMenusBehindModalDialog() const {
    return GuiError("The host's menus cannot be used while the modal dialog " + modalDialogTitle() +
                    " is up.");
}

GuiError GuiWording::noControl(int32_t id) const {
    return GuiError("There is no control #" + std::to_string(id) + ".");
}

GuiError GuiWording::notOfKinds(const GuiControl& control, const std::vector<Kind>& kinds) const {
    return GuiError(inItsDialog(control) + " is not " + kindsText(kinds) + ".");
}

GuiError GuiWording::insensitive(const GuiControl& control) const {
    return GuiError(inItsDialog(control) + " is insensitive.");
}

GuiError GuiWording::noPosition(const GuiControl& control, int32_t position) const {
    const PositionNoun* noun = PositionNouns;
    while (noun->kind != control.kind)
        ++noun;
    const std::size_t count = control.items.size();
    return GuiError(inItsDialog(control) + " has " + std::to_string(count) + " " +
                    (count == 1 ? noun->one : noun->many) + "; there is no " + noun->one + " " +
                    std::to_string(position) + ".");
}

GuiError GuiWording::lineGivenTwice(int32_t line) const {
    return GuiError("Line " + std::to_string(line) + " is given twice.");
}

GuiError GuiWording::oneLineAtATime(const GuiControl& list, std::size_t count) const {
    return GuiError(inItsDialog(list) + " selects one line at a time; " + std::to_string(count) +
                    " were given.");
}

GuiError GuiWording::notAMenuToggle(const GuiControl& entry) const {
    return GuiError(inItsDialog(entry) + " is not a menu toggle: it cannot be set on or off.");
}

GuiError GuiWording::noDialogButton(const GuiDialog& dialog, GuiUser::DialogButton button) const {
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
    return GuiError(dialogTitled(dialog) + " has no " + name.str() + " button; it has " +
                    joined(buttons) + ".");
}

}  // namespace vexhost
