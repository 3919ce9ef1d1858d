#include "addon/FramePopperLightweight.h"

#include "vxsdkbase.h"

namespace vexplot {
namespace vexutiltools {

FramePopperLightweight::FramePopperLightweight() {
    VexUtilFrameLightweightPopStart();
}

FramePopperLightweight::~FramePopperLightweight() {
    while (popNext()) {
    }
    VexUtilFrameLightweightPopEnd();
}

bool FramePopperLightweight::popNext() {
    return VexUtilFrameLightweightPopNext();
}

}  // namespace vexutiltools
}  // namespace vexplot
