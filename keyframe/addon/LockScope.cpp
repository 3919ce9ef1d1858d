#include "addon/LockScope.h"

#include "addon/AddOn.h"
#include "vxsdkbase.h"

namespace vexplot {
namespace vexutiltools {

LockScope::LockScope() {
    VexUtilLockStart(AddOn::getIdentifier());
}

LockScope::~LockScope() {
    VexUtilLockFinish(AddOn::getIdentifier());
}

}  // namespace vexutiltools
}  // namespace vexplot
