#include "ui/DialogMain.h"

#include <memory>
#include <stdexcept>

namespace {

// Held by a pointer so that resetInstance can start afresh; created on first use.
std::unique_ptr<DialogMain>& instancePointer() {
    static std::unique_ptr<DialogMain> instance;
    return instance;
}

}  // namespace

DialogMain& DialogMain::instance() {
    std::unique_ptr<DialogMain>& instance = instancePointer();
    if (!instance)
        instance.reset(new DialogMain());
    return *instance;
}

void DialogMain::resetInstance() {
    instancePointer().reset();
}

DialogMain::DialogMain() : settingsFileChooser_("animation", "keyframe", "Key Frame Animation") {}

DialogMain::~DialogMain() = default;

void DialogMain::refreshList() {
    if (controls_.keyFrameList == VEXGUI_BAD_ID)
        return;
    keyFrames_.notifyReset();
}

void DialogMain::refreshOptions() {
    const Controls& c = controls_;
    if (c.destination == VEXGUI_BAD_ID && c.animateTime == VEXGUI_BAD_ID &&
        c.animateStreamtraces == VEXGUI_BAD_ID && c.fadeIn == VEXGUI_BAD_ID &&
        c.fadeOut == VEXGUI_BAD_ID)
        return;
    // The option controls are created together with the host dialog, by the dialog's own code,
    // which also shows the settings in them; the host's GUI library that sets option menus and
    // menu toggles is not part of this build yet. Loudly, rather than leaving controls showing
    // settings that are no longer true.
    throw std::logic_error(
        "DialogMain::refreshOptions(): option controls exist but cannot be set in this build");
}
