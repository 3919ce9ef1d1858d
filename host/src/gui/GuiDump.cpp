#include "vexhost/GuiDump.h"

#include <stdexcept>

#include "core/Text.h"
#include "vexhost/GuiModel.h"

namespace vexhost {

namespace {

using Kind = GuiControl::Kind;

void appendQuoted(std::string& out, const std::string& text) {
    text::appendQuoted(out, text.c_str());
}

void appendItems(std::string& out, const std::string& indent,
                 const std::vector<std::string>& items) {
    for (std::size_t i = 0; i < items.size(); ++i) {
        out += indent + std::to_string(i + 1) + " ";
        appendQuoted(out, items[i]);
        out += '\n';
    }
}

// One control on one line, then its lines, entries, buttons or menu entries indented below it.
void appendControl(std::string& out, const GuiModel& model, const GuiControl& control,
                   const std::string& indent) {
    out += indent + GuiControl::kindWord(control.kind) + " #" + std::to_string(control.id);
    if (control.hasLabel()) {
        out += ' ';
        appendQuoted(out, control.label);
    }
    if (control.hasPosition())
        out += " at " + std::to_string(control.x) + ", " + std::to_string(control.y);
    if (control.hasSize())
        out += " size " + std::to_string(control.width) + " x " + std::to_string(control.height);
    out += control.sensitive ? " sensitive" : " insensitive";
    if (!control.toolTip.empty()) {
        out += " tooltip ";
        appendQuoted(out, control.toolTip);
    }
    if (!control.hasLabel()) {
        if (const GuiControl* beside = model.neighbourLabel(control)) {
            out += " beside ";
            appendQuoted(out, beside->label);
        }
    }
    switch (control.kind) {
        case Kind::Toggle:
        case Kind::MenuToggle:
            out += control.isOn ? " on" : " off";
            break;
        case Kind::TextField:
        case Kind::SpinTextField:
            out += " text ";
            appendQuoted(out, control.text);
            break;
        case Kind::List:
            out += control.multiSelection ? " multiple selected" : " single selected";
            if (control.selection.empty())
                out += " none";
            for (int32_t line : control.selection)
                out += " " + std::to_string(line);
            break;
        case Kind::OptionMenu:
            out += " choice " + std::to_string(control.choice);
            break;
        case Kind::RadioBox:
            out += " toggle " + std::to_string(control.choice);
            break;
        default:
            break;
    }
    out += '\n';
    appendItems(out, indent + "  ", control.items);
    for (int32_t id : control.children)
        appendControl(out, model, *model.control(id), indent + "  ");
}

}  // namespace

std::string GuiDump::dialog(const GuiModel& model, int32_t dialogId) {
    const GuiDialog* dialog = model.dialog(dialogId);
    if (dialog == nullptr)
        throw std::out_of_range("GuiDump::dialog(): " + std::to_string(dialogId) +
                                " is not a dialog's id");
    std::string out = "dialog #" + std::to_string(dialog->id) + " ";
    appendQuoted(out, dialog->title);
    out += dialog->modal ? " modal" : " modeless";
    out += dialog->up ? " up" : " down";
    out += " size " + std::to_string(dialog->width) + " x " + std::to_string(dialog->height);
    out += " buttons";
    if (dialog->modal) {
        out += " OK";
        if (dialog->hasApply())
            out += " Apply";
        out += " Cancel";
    } else {
        out += " Close";
    }
    if (dialog->hasHelp())
        out += " Help";
    out += '\n';
    // The menu bar first, as it shows at the top of the dialog; then the controls as created.
    if (const GuiControl* bar = model.control(dialog->menuBarId))
        appendControl(out, model, *bar, "  ");
    for (int32_t id : dialog->controls) {
        const GuiControl& control = *model.control(id);
        if (!control.isMenuEntry())
            appendControl(out, model, control, "  ");
    }
    return out;
}

}  // namespace vexhost
