// guitest::GuiFixture, the fixture of the GUI model's tests: a clean host (vextest::HostFixture),
// the user at the dialogs, and callbacks that record what they were called with, so a test sees
// which callbacks the host fired, in which order and with which values.
#ifndef VEXTEST_GUI_GUIFIXTURE_H
#define VEXTEST_GUI_GUIFIXTURE_H

#include <cstdint>
#include <deque>
#include <string>
#include <vector>

#include "support/HostFixture.h"
#include "vexgui.h"
#include "vexhost/GuiModel.h"
#include "vexhost/GuiUser.h"

namespace guitest {

class GuiFixture : public vextest::HostFixture {
protected:
    vexhost::GuiModel& gui() const { return host().guiModel(); }
    vexhost::GuiUser& user() { return user_; }
    // The control or dialog of that id; the test fails when there is none.
    const vexhost::GuiControl& control(int32_t id) const;
    const vexhost::GuiDialog& dialog(int32_t id) const;

    // Client data that names what a callback belongs to. With it, onVoid records "<name>",
    // onInt "<name> <value>", onText "<name> \"<text>\"" and the dialog callbacks "<name> init",
    // "<name> ok", "<name> apply", "<name> cancel", "<name> close" and "<name> help".
    void* probe(const std::string& name);
    static void onVoid(void* clientData);
    static void onInt(int32_t value, void* clientData);
    static void onText(const char* text, void* clientData);
    static void onInit(void* clientData);
    static void onOk(void* clientData);
    static void onApply(void* clientData);
    static void onCancel(void* clientData);
    static void onClose(void* clientData);
    static void onHelp(void* clientData);
    // What the callbacks recorded so far, leaving none.
    std::vector<std::string> takeEvents();

    // A modeless dialog of 5000 x 3000 with init, close and help callbacks probed by its title.
    int32_t addModeless(const char* title = "Main");
    // A modal dialog of 5000 x 3000 with init, OK, Cancel, Help and (withApply) Apply callbacks
    // probed by its title.
    int32_t addModal(const char* title = "Options", bool withApply = true);

private:
    struct Probe {
        std::string name;
        std::vector<std::string>* events;
    };
    static void record(void* clientData, const std::string& what);

    vexhost::GuiUser user_{vexhost::Host::instance()};
    std::deque<Probe> probes_;  // stable addresses: they are the client data
    std::vector<std::string> events_;
};

}  // namespace guitest

#endif
