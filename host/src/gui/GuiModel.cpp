#include "vexhost/GuiModel.h"

#include <algorithm>

namespace vexhost {

namespace {

int32_t lineCount(const std::string& text) {
    return 1 + static_cast<int32_t>(std::count(text.begin(), text.end(), '\n'));
}

}  // namespace

std::vector<const GuiDialog*> GuiModel::dialogs() const {
    std::vector<const GuiDialog*> all;
    all.reserve(dialogs_.size());
    for (const auto& dialog : dialogs_)
        all.push_back(dialog.get());
    return all;
}

const GuiModel::Entry* GuiModel::entry(int32_t id) const {
    if (id < 1 || static_cast<std::size_t>(id) > ids_.size())
        return nullptr;
    return &ids_[static_cast<std::size_t>(id) - 1];
}

const GuiDialog* GuiModel::dialog(int32_t id) const {
    const Entry* found = entry(id);
    return found != nullptr ? found->dialog : nullptr;
}

GuiDialog* GuiModel::dialog(int32_t id) {
    const Entry* found = entry(id);
    return found != nullptr ? found->dialog : nullptr;
}

const GuiControl* GuiModel::control(int32_t id) const {
    const Entry* found = entry(id);
    return found != nullptr ? found->control : nullptr;
}

GuiControl* GuiModel::control(int32_t id) {
    const Entry* found = entry(id);
    return found != nullptr ? found->control : nullptr;
}

const GuiControl* GuiModel::neighbourLabel(const GuiControl& control) const {
    const GuiDialog* owner = dialog(control.dialogId);
    if (owner == nullptr || !control.hasPosition())
        return nullptr;
    const int64_t top = control.y;
    const int64_t bottom = control.y + std::max<int64_t>(control.height, 1);
    const GuiControl* left = nullptr;
    const GuiControl* above = nullptr;
    for (int32_t id : owner->controls) {
        const GuiControl* label = this->control(id);
        if (label == nullptr || label->kind != GuiControl::Kind::Label || label == &control)
            continue;
        const int64_t labelTop = label->y;
        const int64_t labelBottom =
            labelTop + static_cast<int64_t>(lineCount(label->label)) * LabelLineHeight;
        const bool onRow = labelTop < bottom && labelBottom > top;
        if (onRow && label->x < control.x) {
            if (left == nullptr || label->x > left->x)
                left = label;
        } else if (!onRow && labelBottom <= top && top - labelBottom < LabelLineHeight &&
                   label->x >= static_cast<int64_t>(control.x) - LabelLineHeight &&
                   label->x < static_cast<int64_t>(control.x) + control.width) {
            // The nearest above: the one whose last line ends lowest.
            if (above == nullptr || label->y > above->y)
                above = label;
        }
    }
    return left != nullptr ? left : above;
}

GuiDialog& GuiModel::addDialog(GuiDialog dialog) {
    dialog.id = nextId();
    dialogs_.push_back(std::make_unique<GuiDialog>(std::move(dialog)));
    ids_.push_back({dialogs_.back().get(), nullptr});
    return *dialogs_.back();
}

GuiControl& GuiModel::addControl(GuiControl control) {
    control.id = nextId();
    controls_.push_back(std::make_unique<GuiControl>(std::move(control)));
    GuiControl& added = *controls_.back();
    ids_.push_back({nullptr, &added});
    GuiDialog* owner = dialog(added.dialogId);
    if (owner != nullptr) {
        owner->controls.push_back(added.id);
        if (added.kind == GuiControl::Kind::MenuBar)
            owner->menuBarId = added.id;
    }
    if (added.isMenuEntry() && added.kind != GuiControl::Kind::MenuBar) {
        GuiControl* parent = this->control(added.parentId);
        if (parent != nullptr)
            parent->children.push_back(added.id);
    }
    return added;
}

void GuiModel::launch(GuiDialog& dialog) {
    if (dialog.up)
        return;
    dialog.up = true;
    ++dialog.launchCount;
    if (dialog.modal)
        modalUp_.push_back(dialog.id);
    // Copied first: the callback may add dialogs and controls.
    const VexGUIVoidCallback_pf init = dialog.init;
    void* const clientData = dialog.clientData;
    if (init != nullptr)
        init(clientData);
}

void GuiModel::drop(GuiDialog& dialog) {
    if (!dialog.up)
        return;
    dialog.up = false;
    modalUp_.erase(std::remove(modalUp_.begin(), modalUp_.end(), dialog.id), modalUp_.end());
}

void GuiModel::reset() {
    modalUp_.clear();
    ids_.clear();
    controls_.clear();
    dialogs_.clear();
}

}  // namespace vexhost
