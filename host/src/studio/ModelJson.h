// The GUI model as the page reads it (docs/studio.md, the keys "dialog/ID" and "control/ID"): one
// JSON object per dialog and per control, with every field a person can see or act on.
#ifndef VEXHOST_STUDIO_MODELJSON_H
#define VEXHOST_STUDIO_MODELJSON_H

#include <nlohmann/json.hpp>

#include "vexhost/GuiControl.h"
#include "vexhost/GuiDialog.h"

namespace vexhost {
namespace studio {

class ModelJson {
public:
    static nlohmann::json dialog(const GuiDialog& dialog);
    static nlohmann::json control(const GuiControl& control);
};

}  // namespace studio
}  // namespace vexhost

#endif
