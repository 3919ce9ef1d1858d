#include "addon/FramePopperAbstract.h"

#include "addon/AddOn.h"
#include "vxsdkbase.h"

namespace vexplot {
namespace vexutiltools {

int32_t FramePopperAbstract::openCount_ = 0;

FramePopperAbstract::FramePopperAbstract() {
    VexUtilLockStart(AddOn::getIdentifier());
    ++openCount_;
}

FramePopperAbstract::~FramePopperAbstract() {
    --openCount_;
    VexUtilLockFinish(AddOn::getIdentifier());
}

int32_t FramePopperAbstract::getOpenCount() {
    return openCount_;
}

}  // namespace vexutiltools
}  // namespace vexplot
