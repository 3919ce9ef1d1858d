#include "GuiTest.h"

namespace guitest {

const vexhost::GuiControl& GuiTest::control(int32_t id) const {
    const vexhost::GuiControl* found = gui().control(id);
    if (found == nullptr)
        throw std::logic_error("GuiTest::control(): no control " + std::to_string(id));
    return *found;
}

const vexhost::GuiDialog& GuiTest::dialog(int32_t id) const {
    const vexhost::GuiDialog* found = gui().dialog(id);
    if (found == nullptr)
        throw std::logic_error("GuiTest::dialog(): no dialog " + std::to_string(id));
    return *found;
}

void* GuiTest::probe(const std::string& name) {
    probes_.push_back({name, &events_});
    return &probes_.back();
}

void GuiTest::record(void* clientData, const std::string& what) {
    Probe* probe = static_cast<Probe*>(clientData);
    probe->events->push_back(what.empty() ? probe->name : probe->name + " " + what);
}

void GuiTest::onVoid(void* clientData) {
    record(clientData, "");
}

void GuiTest::onInt(int32_t value, void* clientData) {
    record(clientData, std::to_string(value));
}

void GuiTest::onText(const char* text, void* clientData) {
    record(clientData, "\"" + std::string(text) + "\"");
}

void GuiTest::onInit(void* clientData) {
    record(clientData, "init");
}

void GuiTest::onOk(void* clientData) {
    record(clientData, "ok");
}

void GuiTest::onApply(void* clientData) {
    record(clientData, "apply");
}

void GuiTest::onCancel(void* clientData) {
    record(clientData, "cancel");
}

void GuiTest::onClose(void* clientData) {
    record(clientData, "close");
}

void GuiTest::onHelp(void* clientData) {
    record(clientData, "help");
}

std::vector<std::string> GuiTest::takeEvents() {
    std::vector<std::string> taken;
    taken.swap(events_);
    return taken;
}

int32_t GuiTest::addModeless(const char* title) {
    return VexGUIDialogCreateModeless(VEXGUI_MAIN_DIALOG_PARENT, 5000, 3000, title, onInit, onClose,
                                      onHelp, probe(title));
}

int32_t GuiTest::addModal(const char* title, bool withApply) {
    return VexGUIDialogCreateModal(VEXGUI_MAIN_DIALOG_PARENT, 5000, 3000, title, onInit, onOk,
                                   withApply ? onApply : nullptr, onCancel, onHelp, probe(title));
}

}  // namespace guitest
