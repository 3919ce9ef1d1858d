#include "addon/SuspendGraphics.h"

#include "addon/AddOn.h"
#include "vxsdkbase.h"

namespace vexplot {
namespace vexutiltools {

SuspendGraphics::SuspendGraphics() {
    VexUtilLockStart(AddOn::getIdentifier());
    VexUtilDrawGraphics(false);
}

SuspendGraphics::~SuspendGraphics() {
    VexUtilDrawGraphics(true);
    VexUtilLockFinish(AddOn::getIdentifier());
}

}  // namespace vexutiltools
}  // namespace vexplot
