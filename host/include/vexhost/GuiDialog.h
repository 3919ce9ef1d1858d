// One host dialog, as the GUI model holds it: created by the add-on (VexGUIDialogCreateModeless or
// VexGUIDialogCreateModal), shown by VexGUIDialogLaunch and hidden by VexGUIDialogDrop, any number
// of times. Its controls and its menu bar are GuiControls that name it.
//
// The buttons of its frame follow from its kind and callbacks: a modeless dialog has Close and,
// with a help callback, Help; a modal one has OK, Cancel and, with those callbacks, Apply and
// Help.
#ifndef VEXHOST_GUIDIALOG_H
#define VEXHOST_GUIDIALOG_H

#include <cstdint>
#include <string>
#include <vector>

#include "vexgui.h"

namespace vexhost {

struct GuiDialog {
    bool hasApply() const { return modal && apply != nullptr; }
    bool hasHelp() const { return help != nullptr; }

    int32_t id = VEXGUI_BAD_ID;
    bool modal = false;
    int32_t parentId = VEXGUI_MAIN_DIALOG_PARENT;
    int32_t width = 0;
    int32_t height = 0;
    std::string title;

    VexGUIVoidCallback_pf init = nullptr;
    VexGUIVoidCallback_pf ok = nullptr;      // modal only
    VexGUIVoidCallback_pf apply = nullptr;   // modal only; none: no Apply button
    VexGUIVoidCallback_pf cancel = nullptr;  // modal only
    VexGUIVoidCallback_pf close = nullptr;   // modeless only
    VexGUIVoidCallback_pf help = nullptr;    // none: no Help button
    void* clientData = nullptr;

    bool up = false;
    uint64_t launchCount = 0;  // launches that showed it (not those while it was up)
    int32_t menuBarId = VEXGUI_BAD_ID;
    std::vector<int32_t> controls;  // every control of the dialog, menu bar entries too, in
                                    // creation order
};

}  // namespace vexhost

#endif
