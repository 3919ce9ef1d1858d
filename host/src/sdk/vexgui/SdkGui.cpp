// The GUI library (vexgui.h): dialogs and controls on the host's GUI model. Every call is counted
// and logged (callbacks and client data left out), and every argument is checked before the model
// changes: an id that is not a dialog or control of the kind the call needs, a place outside the
// dialog, a line, entry or button that is not there, a missing text. Each such mistake is one host
// error and changes nothing; a creating call then answers VEXGUI_BAD_ID.
//
// No call here fires a callback, except launching a dialog (its init callback): the add-on setting
// a control is not the user acting on it.
#include <algorithm>
#include <initializer_list>
#include <optional>
#include <string>

#include "sdk/SdkCall.h"
#include "vexgui.h"
#include "vexhost/Bookkeeping.h"
#include "vexhost/GuiModel.h"

namespace vexhost {
namespace sdk {
namespace {

// Positions passed in as an array, logged as "[1, 3]" (NULL for none).
struct Positions {
    const int32_t* values;
    int32_t count;
};

void appendArg(std::string& out, const Positions& positions) {
    if (positions.values == nullptr || positions.count < 0) {
        out += "NULL";
        return;
    }
    out += '[';
    for (int32_t i = 0; i < positions.count; ++i) {
        if (i > 0)
            out += ", ";
        text::appendNumber(out, static_cast<int64_t>(positions.values[i]));
    }
    out += ']';
}

using Kind = GuiControl::Kind;

std::string number(int64_t value) {
    return std::to_string(value);
}

std::string quoted(const std::string& text) {
    std::string out;
    text::appendQuoted(out, text.c_str());
    return out;
}

// "there is no control 42"; for VEXGUI_BAD_ID, the add-on used an id of something not created.
std::string noSuch(const char* what, int32_t id) {
    return std::string("there is no ") + what + " " + number(id) +
           (id == VEXGUI_BAD_ID ? " (VEXGUI_BAD_ID: it was not created)" : "");
}

std::string describeId(const GuiModel& model, int32_t id) {
    if (const GuiDialog* dialog = model.dialog(id))
        return number(id) + " is the dialog " + quoted(dialog->title);
    if (const GuiControl* control = model.control(id))
        return number(id) + " is a " + GuiControl::kindName(control->kind);
    return noSuch("dialog or control", id);
}

GuiDialog* requireDialog(const SdkCall& call, int32_t id) {
    GuiModel& model = call.host().guiModel();
    GuiDialog* dialog = model.dialog(id);
    if (dialog == nullptr)
        call.error(model.control(id) != nullptr ? describeId(model, id) + ", not a dialog"
                                                : noSuch("dialog", id));
    return dialog;
}

// A control of one of the kinds (any control when none is given); `wanted` names them for the
// message ("a list").
GuiControl* requireControl(const SdkCall& call, int32_t id, std::initializer_list<Kind> kinds,
                           const char* wanted) {
    GuiModel& model = call.host().guiModel();
    GuiControl* control = model.control(id);
    if (control == nullptr) {
        call.error(model.dialog(id) != nullptr ? describeId(model, id) + ", not " + wanted
                                               : noSuch("control", id));
        return nullptr;
    }
    if (kinds.size() != 0 && std::find(kinds.begin(), kinds.end(), control->kind) == kinds.end()) {
        call.error(describeId(model, id) + ", not " + wanted);
        return nullptr;
    }
    return control;
}

bool requireText(const SdkCall& call, const char* text, const char* what) {
    if (text == nullptr)
        call.error(std::string(what) + " is missing");
    return text != nullptr;
}

// The line, entry or button `position` (from 1) of `count`.
bool requirePosition(const SdkCall& call, int32_t position, std::size_t count, const char* what,
                     const GuiControl& control) {
    if (position >= 1 && static_cast<std::size_t>(position) <= count)
        return true;
    call.error("the " + std::string(GuiControl::kindName(control.kind)) + " " + number(control.id) +
               " has no " + what + " " + number(position) + " (it has " +
               number(static_cast<int64_t>(count)) + ")");
    return false;
}

// A new control of the dialog at (x, y), of that size unless it is a label. It must lie inside
// the dialog: a control placed outside cannot be seen or used, which is always a mistake.
std::optional<GuiControl> placed(const SdkCall& call, int32_t dialogId, Kind kind, int32_t x,
                                 int32_t y, int32_t width, int32_t height) {
    const GuiDialog* dialog = requireDialog(call, dialogId);
    if (dialog == nullptr)
        return std::nullopt;
    GuiControl control;
    control.kind = kind;
    control.dialogId = dialogId;
    control.parentId = dialogId;
    control.x = x;
    control.y = y;
    if (control.hasSize()) {
        control.width = width;
        control.height = height;
    }
    const std::string place = "(" + number(x) + ", " + number(y) + ")";
    const std::string size = number(width) + " x " + number(height);
    if (x < 0 || y < 0) {
        call.error("the position " + place + " is negative");
        return std::nullopt;
    }
    if (control.hasSize() && (width < 1 || height < 1)) {
        call.error("the size " + size + " is not positive");
        return std::nullopt;
    }
    const int64_t right = static_cast<int64_t>(x) + control.width;
    const int64_t bottom = static_cast<int64_t>(y) + control.height;
    if (x >= dialog->width || y >= dialog->height || right > dialog->width ||
        bottom > dialog->height) {
        call.error("the " + std::string(GuiControl::kindName(kind)) + " at " + place +
                   (control.hasSize() ? " of size " + size : "") + " lies outside the dialog " +
                   quoted(dialog->title) + " of size " + number(dialog->width) + " x " +
                   number(dialog->height));
        return std::nullopt;
    }
    return control;
}

int32_t addControl(const SdkCall& call, GuiControl control) {
    return call.host().guiModel().addControl(std::move(control)).id;
}

// A new dialog; the parent is VEXGUI_MAIN_DIALOG_PARENT or a dialog.
std::optional<GuiDialog> newDialog(const SdkCall& call, bool modal, int32_t parentDialogId,
                                   int32_t width, int32_t height, const char* title) {
    if (parentDialogId != VEXGUI_MAIN_DIALOG_PARENT &&
        call.host().guiModel().dialog(parentDialogId) == nullptr) {
        call.error("the parent " + number(parentDialogId) +
                   " is neither a dialog nor VEXGUI_MAIN_DIALOG_PARENT (-1)");
        return std::nullopt;
    }
    if (width < 1 || height < 1) {
        call.error("the size " + number(width) + " x " + number(height) + " is not positive");
        return std::nullopt;
    }
    if (!requireText(call, title, "the title"))
        return std::nullopt;
    GuiDialog dialog;
    dialog.modal = modal;
    dialog.parentId = parentDialogId;
    dialog.width = width;
    dialog.height = height;
    dialog.title = title;
    return dialog;
}

// A menu bar entry hanging from `parentId`, which must be of one of the kinds.
std::optional<GuiControl> menuEntry(const SdkCall& call, int32_t parentId, Kind kind,
                                    std::initializer_list<Kind> parentKinds, const char* wanted,
                                    const char* label) {
    const GuiControl* parent = requireControl(call, parentId, parentKinds, wanted);
    if (parent == nullptr || !requireText(call, label, "the label"))
        return std::nullopt;
    GuiControl entry;
    entry.kind = kind;
    entry.dialogId = parent->dialogId;
    entry.parentId = parentId;
    entry.label = label;
    return entry;
}

}  // namespace
}  // namespace sdk
}  // namespace vexhost

using vexhost::GuiControl;
using vexhost::GuiDialog;
using vexhost::sdk::Positions;
using vexhost::sdk::SdkCall;
using Kind = vexhost::GuiControl::Kind;
namespace sdk = vexhost::sdk;

// ---- Dialogs ------------------------------------------------------------------------------------

int32_t VexGUIDialogCreateModeless(int32_t parentDialogId, int32_t width, int32_t height,
                                   const char* title, VexGUIVoidCallback_pf init,
                                   VexGUIVoidCallback_pf close, VexGUIVoidCallback_pf help,
                                   void* clientData) {
    SdkCall call("VexGUIDialogCreateModeless", parentDialogId, width, height, title);
    std::optional<GuiDialog> dialog =
        sdk::newDialog(call, false, parentDialogId, width, height, title);
    if (!dialog)
        return VEXGUI_BAD_ID;
    dialog->init = init;
    dialog->close = close;
    dialog->help = help;
    dialog->clientData = clientData;
    return call.host().guiModel().addDialog(std::move(*dialog)).id;
}

int32_t VexGUIDialogCreateModal(int32_t parentDialogId, int32_t width, int32_t height,
                                const char* title, VexGUIVoidCallback_pf init,
                                VexGUIVoidCallback_pf ok, VexGUIVoidCallback_pf apply,
                                VexGUIVoidCallback_pf cancel, VexGUIVoidCallback_pf help,
                                void* clientData) {
    SdkCall call("VexGUIDialogCreateModal", parentDialogId, width, height, title);
    std::optional<GuiDialog> dialog =
        sdk::newDialog(call, true, parentDialogId, width, height, title);
    if (!dialog)
        return VEXGUI_BAD_ID;
    dialog->init = init;
    dialog->ok = ok;
    dialog->apply = apply;
    dialog->cancel = cancel;
    dialog->help = help;
    dialog->clientData = clientData;
    return call.host().guiModel().addDialog(std::move(*dialog)).id;
}

void VexGUIDialogLaunch(int32_t dialogId) {
    SdkCall call("VexGUIDialogLaunch", dialogId);
    GuiDialog* dialog = sdk::requireDialog(call, dialogId);
    if (dialog == nullptr)
        return;
    // A modeless dialog that is up is only raised. A modal one cannot be launched again while
    // its first launch is still waiting for OK or Cancel.
    if (dialog->up && dialog->modal) {
        call.error("the modal dialog " + sdk::quoted(dialog->title) + " is up already");
        return;
    }
    call.host().guiModel().launch(*dialog);
}

void VexGUIDialogDrop(int32_t dialogId) {
    SdkCall call("VexGUIDialogDrop", dialogId);
    // Dropping a dialog that is not up is allowed: an add-on drops its dialog when the host's
    // state no longer suits it, whether or not the user has it open.
    if (GuiDialog* dialog = sdk::requireDialog(call, dialogId))
        call.host().guiModel().drop(*dialog);
}

bool VexGUIDialogIsUp(int32_t dialogId) {
    SdkCall call("VexGUIDialogIsUp", dialogId);
    const GuiDialog* dialog = sdk::requireDialog(call, dialogId);
    return dialog != nullptr && dialog->up;
}

// ---- Simple controls ----------------------------------------------------------------------------

int32_t VexGUIButtonAdd(int32_t parentDialogId, int32_t x, int32_t y, int32_t width, int32_t height,
                        const char* label, VexGUIVoidCallback_pf pressed, void* clientData) {
    SdkCall call("VexGUIButtonAdd", parentDialogId, x, y, width, height, label);
    std::optional<GuiControl> button =
        sdk::placed(call, parentDialogId, Kind::Button, x, y, width, height);
    if (!button || !sdk::requireText(call, label, "the label"))
        return VEXGUI_BAD_ID;
    button->label = label;
    button->voidCallback = pressed;
    button->clientData = clientData;
    return sdk::addControl(call, std::move(*button));
}

int32_t VexGUILabelAdd(int32_t parentDialogId, int32_t x, int32_t y, const char* label) {
    SdkCall call("VexGUILabelAdd", parentDialogId, x, y, label);
    std::optional<GuiControl> added = sdk::placed(call, parentDialogId, Kind::Label, x, y, 0, 0);
    if (!added || !sdk::requireText(call, label, "the label"))
        return VEXGUI_BAD_ID;
    added->label = label;
    return sdk::addControl(call, std::move(*added));
}

void VexGUILabelSetText(int32_t labelId, const char* label) {
    SdkCall call("VexGUILabelSetText", labelId, label);
    GuiControl* control = sdk::requireControl(call, labelId, {Kind::Label}, "a label");
    if (control != nullptr && sdk::requireText(call, label, "the label"))
        control->label = label;
}

int32_t VexGUIFrameAdd(int32_t parentDialogId, int32_t x, int32_t y, int32_t width, int32_t height,
                       const char* label) {
    SdkCall call("VexGUIFrameAdd", parentDialogId, x, y, width, height, label);
    std::optional<GuiControl> frame =
        sdk::placed(call, parentDialogId, Kind::Frame, x, y, width, height);
    if (!frame || !sdk::requireText(call, label, "the label"))
        return VEXGUI_BAD_ID;
    frame->label = label;
    return sdk::addControl(call, std::move(*frame));
}

int32_t VexGUIToggleAdd(int32_t parentDialogId, int32_t x, int32_t y, int32_t width, int32_t height,
                        const char* label, VexGUIIntCallback_pf valueChanged, void* clientData) {
    SdkCall call("VexGUIToggleAdd", parentDialogId, x, y, width, height, label);
    std::optional<GuiControl> toggle =
        sdk::placed(call, parentDialogId, Kind::Toggle, x, y, width, height);
    if (!toggle || !sdk::requireText(call, label, "the label"))
        return VEXGUI_BAD_ID;
    toggle->label = label;
    toggle->intCallback = valueChanged;
    toggle->clientData = clientData;
    return sdk::addControl(call, std::move(*toggle));
}

bool VexGUIToggleGet(int32_t toggleId) {
    SdkCall call("VexGUIToggleGet", toggleId);
    const GuiControl* toggle = sdk::requireControl(call, toggleId, {Kind::Toggle}, "a toggle");
    return toggle != nullptr && toggle->isOn;
}

void VexGUIToggleSet(int32_t toggleId, bool isOn) {
    SdkCall call("VexGUIToggleSet", toggleId, isOn);
    if (GuiControl* toggle = sdk::requireControl(call, toggleId, {Kind::Toggle}, "a toggle"))
        toggle->isOn = isOn;
}

// ---- Text fields --------------------------------------------------------------------------------

int32_t VexGUITextFieldAdd(int32_t parentDialogId, int32_t x, int32_t y, int32_t width,
                           int32_t height, VexGUITextCallback_pf valueChanged, void* clientData) {
    SdkCall call("VexGUITextFieldAdd", parentDialogId, x, y, width, height);
    std::optional<GuiControl> field =
        sdk::placed(call, parentDialogId, Kind::TextField, x, y, width, height);
    if (!field)
        return VEXGUI_BAD_ID;
    field->textCallback = valueChanged;
    field->clientData = clientData;
    return sdk::addControl(call, std::move(*field));
}

int32_t VexGUISpinTextFieldAdd(int32_t parentDialogId, int32_t x, int32_t y, int32_t width,
                               int32_t height, VexGUITextCallback_pf valueChanged,
                               VexGUIVoidCallback_pf upPressed, VexGUIVoidCallback_pf downPressed,
                               void* clientData) {
    SdkCall call("VexGUISpinTextFieldAdd", parentDialogId, x, y, width, height);
    std::optional<GuiControl> field =
        sdk::placed(call, parentDialogId, Kind::SpinTextField, x, y, width, height);
    if (!field)
        return VEXGUI_BAD_ID;
    field->textCallback = valueChanged;
    field->upCallback = upPressed;
    field->downCallback = downPressed;
    field->clientData = clientData;
    return sdk::addControl(call, std::move(*field));
}

void VexGUITextFieldSetString(int32_t textFieldId, const char* text) {
    SdkCall call("VexGUITextFieldSetString", textFieldId, text);
    GuiControl* field =
        sdk::requireControl(call, textFieldId, {Kind::TextField, Kind::SpinTextField},
                            "a text field or a spin text field");
    if (field != nullptr && sdk::requireText(call, text, "the text"))
        field->text = text;
}

char* VexGUITextFieldGetString(int32_t textFieldId) {
    SdkCall call("VexGUITextFieldGetString", textFieldId);
    const GuiControl* field =
        sdk::requireControl(call, textFieldId, {Kind::TextField, Kind::SpinTextField},
                            "a text field or a spin text field");
    return field != nullptr ? call.host().bookkeeping().copyString(field->text) : nullptr;
}

// ---- Lists --------------------------------------------------------------------------------------

namespace {

GuiControl* requireList(const SdkCall& call, int32_t listId) {
    return sdk::requireControl(call, listId, {Kind::List}, "a list");
}

}  // namespace

int32_t VexGUIListAdd(int32_t parentDialogId, int32_t x, int32_t y, int32_t width, int32_t height,
                      bool isMultiSelection, VexGUIIntCallback_pf selectionChanged,
                      void* clientData) {
    SdkCall call("VexGUIListAdd", parentDialogId, x, y, width, height, isMultiSelection);
    std::optional<GuiControl> list =
        sdk::placed(call, parentDialogId, Kind::List, x, y, width, height);
    if (!list)
        return VEXGUI_BAD_ID;
    list->multiSelection = isMultiSelection;
    list->intCallback = selectionChanged;
    list->clientData = clientData;
    return sdk::addControl(call, std::move(*list));
}

void VexGUIListAppendItem(int32_t listId, const char* text) {
    SdkCall call("VexGUIListAppendItem", listId, text);
    GuiControl* list = requireList(call, listId);
    if (list != nullptr && sdk::requireText(call, text, "the text"))
        list->items.emplace_back(text);
}

void VexGUIListReplaceItem(int32_t listId, const char* text, int32_t position) {
    SdkCall call("VexGUIListReplaceItem", listId, text, position);
    GuiControl* list = requireList(call, listId);
    if (list == nullptr || !sdk::requireText(call, text, "the text") ||
        !sdk::requirePosition(call, position, list->items.size(), "line", *list))
        return;
    // The selection stays on the line.
    list->items[static_cast<std::size_t>(position) - 1] = text;
}

void VexGUIListDeleteItemAtPos(int32_t listId, int32_t position) {
    SdkCall call("VexGUIListDeleteItemAtPos", listId, position);
    GuiControl* list = requireList(call, listId);
    if (list == nullptr || !sdk::requirePosition(call, position, list->items.size(), "line", *list))
        return;
    list->items.erase(list->items.begin() + (position - 1));
    // The selection goes with the lines: the deleted line leaves it, the lines below move up.
    std::vector<int32_t> kept;
    for (int32_t line : list->selection) {
        if (line != position)
            kept.push_back(line > position ? line - 1 : line);
    }
    list->selection = std::move(kept);
}

void VexGUIListDeleteAllItems(int32_t listId) {
    SdkCall call("VexGUIListDeleteAllItems", listId);
    if (GuiControl* list = requireList(call, listId)) {
        list->items.clear();
        list->selection.clear();
    }
}

int32_t VexGUIListGetItemCount(int32_t listId) {
    SdkCall call("VexGUIListGetItemCount", listId);
    const GuiControl* list = requireList(call, listId);
    return list != nullptr ? static_cast<int32_t>(list->items.size()) : 0;
}

void VexGUIListGetSelectedItems(int32_t listId, int32_t** selectedItems, int32_t* selectedCount) {
    SdkCall call("VexGUIListGetSelectedItems", listId);
    if (selectedItems == nullptr || selectedCount == nullptr) {
        call.error("no place for the selected lines or their count was given");
        return;
    }
    *selectedItems = nullptr;
    *selectedCount = 0;
    const GuiControl* list = requireList(call, listId);
    if (list == nullptr || list->selection.empty())
        return;
    void* array = call.host().bookkeeping().allocateArray(list->selection.size() * sizeof(int32_t));
    std::copy(list->selection.begin(), list->selection.end(), static_cast<int32_t*>(array));
    *selectedItems = static_cast<int32_t*>(array);
    *selectedCount = static_cast<int32_t>(list->selection.size());
}

void VexGUIListSetSelectedItem(int32_t listId, int32_t position) {
    SdkCall call("VexGUIListSetSelectedItem", listId, position);
    GuiControl* list = requireList(call, listId);
    if (list == nullptr || !sdk::requirePosition(call, position, list->items.size(), "line", *list))
        return;
    // That line alone, in a multiple-selection list too.
    list->selection = {position};
}

void VexGUIListSetSelectedItems(int32_t listId, const int32_t* positions, int32_t count) {
    SdkCall call("VexGUIListSetSelectedItems", listId, Positions{positions, count}, count);
    GuiControl* list = requireList(call, listId);
    if (list == nullptr)
        return;
    if (count < 0) {
        call.error("the count " + sdk::number(count) + " is negative");
        return;
    }
    if (count > 0 && positions == nullptr) {
        call.error("the lines are missing (NULL for " + sdk::number(count) + " lines)");
        return;
    }
    std::vector<int32_t> lines(positions, positions + count);
    std::sort(lines.begin(), lines.end());
    lines.erase(std::unique(lines.begin(), lines.end()), lines.end());
    if (!list->multiSelection && lines.size() > 1) {
        call.error("the list " + sdk::number(listId) + " takes one selected line, not " +
                   sdk::number(static_cast<int64_t>(lines.size())));
        return;
    }
    for (int32_t line : lines) {
        if (!sdk::requirePosition(call, line, list->items.size(), "line", *list))
            return;
    }
    list->selection = std::move(lines);
}

void VexGUIListDeselectAllItems(int32_t listId) {
    SdkCall call("VexGUIListDeselectAllItems", listId);
    if (GuiControl* list = requireList(call, listId))
        list->selection.clear();
}

// ---- Option menus and radio boxes ---------------------------------------------------------------

namespace {

GuiControl* requireOptionMenu(const SdkCall& call, int32_t optionMenuId) {
    return sdk::requireControl(call, optionMenuId, {Kind::OptionMenu}, "an option menu");
}

GuiControl* requireRadioBox(const SdkCall& call, int32_t radioBoxId) {
    return sdk::requireControl(call, radioBoxId, {Kind::RadioBox}, "a radio box");
}

}  // namespace

int32_t VexGUIOptionMenuAdd(int32_t parentDialogId, int32_t x, int32_t y, int32_t width,
                            int32_t height, VexGUIIntCallback_pf valueChanged, void* clientData) {
    SdkCall call("VexGUIOptionMenuAdd", parentDialogId, x, y, width, height);
    std::optional<GuiControl> menu =
        sdk::placed(call, parentDialogId, Kind::OptionMenu, x, y, width, height);
    if (!menu)
        return VEXGUI_BAD_ID;
    menu->intCallback = valueChanged;
    menu->clientData = clientData;
    return sdk::addControl(call, std::move(*menu));
}

void VexGUIOptionMenuAppendItem(int32_t optionMenuId, const char* text) {
    SdkCall call("VexGUIOptionMenuAppendItem", optionMenuId, text);
    GuiControl* menu = requireOptionMenu(call, optionMenuId);
    if (menu == nullptr || !sdk::requireText(call, text, "the text"))
        return;
    menu->items.emplace_back(text);
    // An option menu always shows an entry once it has one.
    if (menu->choice == 0)
        menu->choice = 1;
}

void VexGUIOptionMenuDeleteAllItems(int32_t optionMenuId) {
    SdkCall call("VexGUIOptionMenuDeleteAllItems", optionMenuId);
    if (GuiControl* menu = requireOptionMenu(call, optionMenuId)) {
        menu->items.clear();
        menu->choice = 0;
    }
}

int32_t VexGUIOptionMenuGet(int32_t optionMenuId) {
    SdkCall call("VexGUIOptionMenuGet", optionMenuId);
    const GuiControl* menu = requireOptionMenu(call, optionMenuId);
    return menu != nullptr ? menu->choice : 0;
}

void VexGUIOptionMenuSet(int32_t optionMenuId, int32_t position) {
    SdkCall call("VexGUIOptionMenuSet", optionMenuId, position);
    GuiControl* menu = requireOptionMenu(call, optionMenuId);
    if (menu != nullptr && sdk::requirePosition(call, position, menu->items.size(), "entry", *menu))
        menu->choice = position;
}

int32_t VexGUIRadioBoxAdd(int32_t parentDialogId, int32_t x, int32_t y, int32_t width,
                          int32_t height, VexStringList_pa labels, VexGUIIntCallback_pf toggled,
                          void* clientData) {
    SdkCall call("VexGUIRadioBoxAdd", parentDialogId, x, y, width, height);
    std::optional<GuiControl> box =
        sdk::placed(call, parentDialogId, Kind::RadioBox, x, y, width, height);
    if (!box)
        return VEXGUI_BAD_ID;
    const std::vector<std::string>* strings = call.host().bookkeeping().stringList(labels);
    if (strings == nullptr) {
        call.error("the labels are not a host string list (VexUtilStringListAlloc)");
        return VEXGUI_BAD_ID;
    }
    if (strings->empty()) {
        call.error("the label list is empty: a radio box needs at least one button");
        return VEXGUI_BAD_ID;
    }
    // The labels are copied: the list stays the add-on's to free. No button is on until one is
    // set or clicked.
    box->items = *strings;
    box->intCallback = toggled;
    box->clientData = clientData;
    return sdk::addControl(call, std::move(*box));
}

int32_t VexGUIRadioBoxGetToggle(int32_t radioBoxId) {
    SdkCall call("VexGUIRadioBoxGetToggle", radioBoxId);
    const GuiControl* box = requireRadioBox(call, radioBoxId);
    return box != nullptr ? box->choice : 0;
}

void VexGUIRadioBoxSetToggle(int32_t radioBoxId, int32_t toggle) {
    SdkCall call("VexGUIRadioBoxSetToggle", radioBoxId, toggle);
    GuiControl* box = requireRadioBox(call, radioBoxId);
    if (box != nullptr && sdk::requirePosition(call, toggle, box->items.size(), "button", *box))
        box->choice = toggle;
}

// ---- Menu bars ----------------------------------------------------------------------------------

int32_t VexGUIMenuBarAdd(int32_t dialogId) {
    SdkCall call("VexGUIMenuBarAdd", dialogId);
    const GuiDialog* dialog = sdk::requireDialog(call, dialogId);
    if (dialog == nullptr)
        return VEXGUI_BAD_ID;
    if (dialog->menuBarId != VEXGUI_BAD_ID) {
        call.error("the dialog " + sdk::quoted(dialog->title) + " has a menu bar already (" +
                   sdk::number(dialog->menuBarId) + ")");
        return VEXGUI_BAD_ID;
    }
    GuiControl bar;
    bar.kind = Kind::MenuBar;
    bar.dialogId = dialogId;
    bar.parentId = dialogId;
    return sdk::addControl(call, std::move(bar));
}

int32_t VexGUIMenuAdd(int32_t menuBarOrMenuId, const char* label) {
    SdkCall call("VexGUIMenuAdd", menuBarOrMenuId, label);
    std::optional<GuiControl> menu =
        sdk::menuEntry(call, menuBarOrMenuId, Kind::Menu, {Kind::MenuBar, Kind::Menu},
                       "a menu bar or a menu", label);
    return menu ? sdk::addControl(call, std::move(*menu)) : VEXGUI_BAD_ID;
}

int32_t VexGUIMenuAddItem(int32_t menuId, const char* label, VexGUIVoidCallback_pf activated,
                          void* clientData) {
    SdkCall call("VexGUIMenuAddItem", menuId, label);
    std::optional<GuiControl> item =
        sdk::menuEntry(call, menuId, Kind::MenuItem, {Kind::Menu}, "a menu", label);
    if (!item)
        return VEXGUI_BAD_ID;
    item->voidCallback = activated;
    item->clientData = clientData;
    return sdk::addControl(call, std::move(*item));
}

int32_t VexGUIMenuAddToggle(int32_t menuId, const char* label, VexGUIIntCallback_pf toggled,
                            void* clientData) {
    SdkCall call("VexGUIMenuAddToggle", menuId, label);
    std::optional<GuiControl> toggle =
        sdk::menuEntry(call, menuId, Kind::MenuToggle, {Kind::Menu}, "a menu", label);
    if (!toggle)
        return VEXGUI_BAD_ID;
    toggle->intCallback = toggled;
    toggle->clientData = clientData;
    return sdk::addControl(call, std::move(*toggle));
}

void VexGUIMenuSetToggle(int32_t menuToggleId, bool isOn) {
    SdkCall call("VexGUIMenuSetToggle", menuToggleId, isOn);
    if (GuiControl* toggle =
            sdk::requireControl(call, menuToggleId, {Kind::MenuToggle}, "a menu toggle"))
        toggle->isOn = isOn;
}

// ---- Any control --------------------------------------------------------------------------------

void VexGUISetSensitivity(int32_t controlId, bool isSensitive) {
    SdkCall call("VexGUISetSensitivity", controlId, isSensitive);
    if (GuiControl* control = sdk::requireControl(call, controlId, {}, "a control"))
        control->sensitive = isSensitive;
}

void VexGUISetToolTip(int32_t controlId, const char* toolTip) {
    SdkCall call("VexGUISetToolTip", controlId, toolTip);
    GuiControl* control = sdk::requireControl(call, controlId, {}, "a control");
    if (control != nullptr && sdk::requireText(call, toolTip, "the tool tip"))
        control->toolTip = toolTip;
}
