#include "addon/AddOnMenu.h"

#include "addon/LockScope.h"
#include "ui/DialogCallback.h"
#include "ui/DialogMain.h"
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
        // The dialog and its menu bar are made once while the host runs; each later choice of
        // the menu item shows the same dialog again.
        catchDialogErrors([] {
            DialogMain& dialog = DialogMain::instance();
            if (!dialog.isCreated())
                dialog.create();
            if (!dialog.hasMenuBar())
                dialog.addMenuBar();
            dialog.launch();
        });
    } else {
        VexUtilDialogErrMsg("Keyframe animation is only allowed with 3D plots.");
    }
}

}  // namespace vexutiltools
}  // namespace vexplot
