#include "addon/FramePopper.h"

namespace vexplot {
namespace vexutiltools {

FramePopper::FramePopper() : stillPopping_(true) {
    previousActiveFrameId_ = VexUtilFrameGetUniqueID();
    VexUtilFrameActivateTop();
    firstTopFrameId_ = VexUtilFrameGetUniqueID();
    VexUtilDrawGraphics(false);
}

FramePopper::~FramePopper() {
    while (popNext()) {
    }
    VexUtilFrameActivateByUniqueID(previousActiveFrameId_);
    VexUtilDrawGraphics(true);
}

bool FramePopper::popNext() {
    if (!stillPopping_)
        return false;
    VexUtilFramePushTop();
    stillPopping_ = VexUtilFrameGetUniqueID() != firstTopFrameId_;
    return stillPopping_;
}

}  // namespace vexutiltools
}  // namespace vexplot
