#include "gui/GuiFinder.h"

#include <algorithm>

#include "gui/TieredMatch.h"
#include "vexhost/GuiModel.h"

namespace vexhost {

using Kind = GuiControl::Kind;

namespace {

// Positions (from 1) of the texts that are the text, exactly, else as plain text.
std::vector<int32_t> positionsOf(const std::vector<std::string>& texts, const std::string& text) {
    const TieredMatch match(text);
    std::vector<int32_t> positions;
    for (std::size_t i = 0; i < texts.size(); ++i)
        positions.push_back(static_cast<int32_t>(i) + 1);
    return TieredMatch::find(
        positions, TieredMatch::ExactThenPlain,
        [&](int32_t position, int tier) { return match.matches(texts[position - 1], tier); });
}

}  // namespace

const GuiDialog& GuiFinder::dialog(const std::string& title) const {
    const TieredMatch match(title);
    const std::vector<const GuiDialog*> found = TieredMatch::find(
        model_.dialogs(), TieredMatch::ExactThenPlain,
        [&](const GuiDialog* dialog, int tier) { return match.matches(dialog->title, tier); });
    if (found.size() != 1)
        throw wording_.notOneDialog(title, found);
    return *found.front();
}

const GuiDialog& GuiFinder::dialogById(int32_t id) const {
    const GuiDialog* dialog = model_.dialog(id);
    if (dialog == nullptr)
        throw wording_.noDialog(id);
    return *dialog;
}

const GuiControl& GuiFinder::control(const GuiDialog& dialog, const std::string& text,
                                     const std::vector<Kind>& kinds) const {
    const TieredMatch match(text);
    // The tiers, strongest first: the label as given, the label as plain text, the tool tip as
    // plain text, the label beside the control as plain text.
    auto accepts = [&](const GuiControl* control, int tier) {
        switch (tier) {
            case 0:
            case 1:
                return control->hasLabel() && match.matches(control->label, tier);
            case 2:
                return !control->toolTip.empty() && match.matchesAsPlainText(control->toolTip);
            default: {
                if (control->hasLabel())
                    return false;
                const GuiControl* beside = model_.neighbourLabel(*control);
                return beside != nullptr && match.matchesAsPlainText(beside->label);
            }
        }
    };
    constexpr int Tiers = 4;
    // Menu bar entries are reached through their menus (menuEntry), never by text.
    std::vector<const GuiControl*> ofKinds;
    std::vector<const GuiControl*> all;
    for (int32_t id : dialog.controls) {
        const GuiControl* control = model_.control(id);
        if (control->isMenuEntry())
            continue;
        all.push_back(control);
        if (kinds.empty() || std::find(kinds.begin(), kinds.end(), control->kind) != kinds.end())
            ofKinds.push_back(control);
    }

    const std::vector<const GuiControl*> found = TieredMatch::find(ofKinds, Tiers, accepts);
    if (found.size() == 1)
        return *found.front();
    if (found.size() > 1)
        throw wording_.severalControls(dialog, text, found);
    if (!kinds.empty()) {
        // Everything the text names, so the message shows the control the user meant.
        const std::vector<const GuiControl*> named = TieredMatch::find(all, Tiers, accepts, true);
        if (!named.empty())
            throw wording_.controlsOfOtherKinds(dialog, text, named, kinds);
    }
    throw wording_.noControl(dialog, text);
}

const GuiControl& GuiFinder::controlById(const GuiDialog& dialog, int32_t id) const {
    const GuiControl* control = model_.control(id);
    if (control == nullptr || control->dialogId != dialog.id)
        throw wording_.noControl(dialog, id);
    return *control;
}

const GuiControl& GuiFinder::controlOfKind(const GuiDialog& dialog, Kind kind,
                                           int32_t ordinal) const {
    int32_t seen = 0;
    for (int32_t id : dialog.controls) {
        const GuiControl* control = model_.control(id);
        if (control->kind == kind && ++seen == ordinal)
            return *control;
    }
    throw wording_.noControlOfKind(dialog, kind, ordinal, seen);
}

const GuiControl& GuiFinder::menuEntry(const GuiDialog& dialog,
                                       const std::vector<std::string>& path) const {
    const GuiControl* current = model_.control(dialog.menuBarId);
    if (current == nullptr)
        throw wording_.noMenuBar(dialog);
    if (path.empty())
        throw wording_.noMenuPath(dialog);
    for (const std::string& step : path) {
        if (current->kind != Kind::MenuBar && current->kind != Kind::Menu)
            throw wording_.notAMenu(*current, step);
        std::vector<std::string> labels;
        for (int32_t id : current->children)
            labels.push_back(model_.control(id)->label);
        const std::vector<int32_t> found = positionsOf(labels, step);
        if (found.size() != 1)
            throw wording_.notOneMenuEntry(*current, step, labels, found.size());
        current = model_.control(current->children[static_cast<std::size_t>(found.front()) - 1]);
    }
    return *current;
}

int32_t GuiFinder::radioButton(const GuiControl& radioBox, const std::string& label) const {
    const std::vector<int32_t> found = positionsOf(radioBox.items, label);
    if (found.size() != 1)
        throw wording_.notOneRadioButton(radioBox, label, found.size());
    return found.front();
}

std::pair<const GuiControl*, int32_t> GuiFinder::radioButton(const GuiDialog& dialog,
                                                             const std::string& label) const {
    std::vector<const GuiControl*> boxes;
    for (int32_t id : dialog.controls) {
        const GuiControl* control = model_.control(id);
        if (control->kind == Kind::RadioBox)
            boxes.push_back(control);
    }
    if (boxes.empty())
        throw wording_.noRadioBox(dialog);
    // Every button of every box is a candidate, so the exact labels of all boxes come first:
    // "&Loop" in one box never loses to "Loop" in another.
    std::vector<std::pair<const GuiControl*, int32_t>> buttons;
    std::vector<std::string> labels;
    for (const GuiControl* box : boxes) {
        for (std::size_t i = 0; i < box->items.size(); ++i)
            buttons.emplace_back(box, static_cast<int32_t>(i) + 1);
        labels.insert(labels.end(), box->items.begin(), box->items.end());
    }
    const TieredMatch match(label);
    const std::vector<std::pair<const GuiControl*, int32_t>> found =
        TieredMatch::find(buttons, TieredMatch::ExactThenPlain, [&](const auto& button, int tier) {
            return match.matches(button.first->items[button.second - 1], tier);
        });
    if (found.size() != 1)
        throw wording_.notOneRadioButton(dialog, label, labels, found.size());
    return found.front();
}

int32_t GuiFinder::optionEntry(const GuiControl& optionMenu, const std::string& text) const {
    const std::vector<int32_t> found = positionsOf(optionMenu.items, text);
    if (found.size() != 1)
        throw wording_.notOneOptionEntry(optionMenu, text, found.size());
    return found.front();
}

const AddOnRegistry::MenuOption& GuiFinder::hostMenuItem(
    const std::vector<AddOnRegistry::MenuOption>& options, const std::string& menuPath,
    const std::string& label) const {
    const TieredMatch pathMatch(menuPath);
    const TieredMatch labelMatch(label);
    std::vector<const AddOnRegistry::MenuOption*> items;
    for (const AddOnRegistry::MenuOption& option : options)
        items.push_back(&option);
    const std::vector<const AddOnRegistry::MenuOption*> found = TieredMatch::find(
        items, TieredMatch::ExactThenPlain, [&](const AddOnRegistry::MenuOption* option, int tier) {
            return pathMatch.matches(option->menuPath, tier) &&
                   labelMatch.matches(option->label, tier);
        });
    if (found.size() != 1)
        throw wording_.notOneHostMenuItem(menuPath, label, options, found.size());
    return *found.front();
}

}  // namespace vexhost
