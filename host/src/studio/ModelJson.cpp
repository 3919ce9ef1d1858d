#include "studio/ModelJson.h"

namespace vexhost {
namespace studio {

nlohmann::json ModelJson::dialog(const GuiDialog& dialog) {
    nlohmann::json buttons = nlohmann::json::array();
    // The frame's buttons as GuiDialog describes them: the host draws them, not the add-on.
    if (dialog.modal) {
        buttons.push_back("OK");
        if (dialog.hasApply())
            buttons.push_back("Apply");
        buttons.push_back("Cancel");
    } else {
        buttons.push_back("Close");
    }
    if (dialog.hasHelp())
        buttons.push_back("Help");
    return {{"id", dialog.id},
            {"title", dialog.title},
            {"modal", dialog.modal},
            {"parentId", dialog.parentId},
            {"width", dialog.width},
            {"height", dialog.height},
            {"up", dialog.up},
            {"buttons", buttons},
            {"menuBar", dialog.menuBarId > 0 ? dialog.menuBarId : 0},
            {"controls", dialog.controls}};
}

nlohmann::json ModelJson::control(const GuiControl& control) {
    return {{"id", control.id},
            {"kind", GuiControl::kindWord(control.kind)},
            {"dialogId", control.dialogId},
            {"parentId", control.parentId},
            {"x", control.x},
            {"y", control.y},
            {"width", control.width},
            {"height", control.height},
            {"label", control.label},
            {"toolTip", control.toolTip},
            {"sensitive", control.sensitive},
            {"isOn", control.isOn},
            {"text", control.text},
            {"items", control.items},
            {"multiSelection", control.multiSelection},
            {"selection", control.selection},
            {"choice", control.choice},
            {"children", control.children},
            {"spin", control.upCallback != nullptr || control.downCallback != nullptr}};
}

}  // namespace studio
}  // namespace vexhost
