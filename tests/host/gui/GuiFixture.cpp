#include "GuiFixture.h"

namespace guitest {

const vexhost::GuiControl& GuiFixture::control(int32_t id) const {
    const vexhost::GuiControl* found = gui().control(id);
    if (found == nullptr)
        throw std::logic_error("GuiFixture::control(): no control " + std::to_string(id));
    return *found;
}

const vexhost::GuiDialog& GuiFixture::dialog(int32_t id) const {
    const vexhost::GuiDialog* found = gui().dialog(id);
    if (found == nullptr)
        throw std::logic_error("GuiFixture::dialog(): no dialog " + std::to_string(id));
    return *found;
}

void* GuiFixture::probe(const std::string& name) {
    probes_.push_back({name, &events_});
    return &probes_.back();
}

void GuiFixture::record(void* clientData, const std::string& what) {
    Probe* probe = static_cast<Probe*>(clientData);
    probe->events->push_back(what.empty() ? probe->name : probe->name + " " + what);
}

void GuiFixture::onVoid(void* clientData) {
    record(clientData, "");
}

void GuiFixture::onInt(int32_t value, void* clientData) {
    record(clientData, std::to_string(value));
}

void GuiFixture::onText(const char* text, void* clientData) {
    record(clientData, "\"" + std::string(text) + "\"");
}

void GuiFixture::onInit(void* clientData) {
    record(clientData, "init");
}

void GuiFixture::onOk(void* clientData) {
    record(clientData, "ok");
}

void GuiFixture::onApply(void* clientData) {
    record(clientData, "apply");
}

void GuiFixture::onCancel(void* clientData) {
    record(clientData, "cancel");
}

void GuiFixture::onClose(void* clientData) {
    record(clientData, "close");
}

void GuiFixture::onHelp(void* clientData) {
    record(clientData, "help");
}

std::vector<std::string> GuiFixture::takeEvents() {
    std::vector<std::string> taken;
    taken.swap(events_);
    return taken;
}

int32_t GuiFixture::addModeless(const char* title) {
    return VexGUIDialogCreateModeless(VEXGUI_MAIN_DIALOG_PARENT, 5000, 3000, title, onInit, onClose,
                                      onHelp, probe(title));
}

int32_t GuiFixture::addModal(const char* title, bool withApply) {
    return VexGUIDialogCreateModal(VEXGUI_MAIN_DIALOG_PARENT, 5000, 3000, title, onInit, onOk,
                                   withApply ? onApply : nullptr, onCancel, onHelp, probe(title));
}

}  // namespace guitest
