#include "ui/ModalLock.h"

#include <stdexcept>

#include "addon/AddOn.h"
#include "vxsdkbase.h"

namespace vexplot {
namespace vexutiltools {

ModalLock::~ModalLock() {
    release();
}

void ModalLock::acquire() {
    if (held_)
        throw std::logic_error("ModalLock::acquire(): the dialog holds its lock already");
    VexUtilLockStart(AddOn::getIdentifier());
    held_ = true;
}

void ModalLock::release() {
    if (!held_)
        return;
    held_ = false;
    VexUtilLockFinish(AddOn::getIdentifier());
}

}  // namespace vexutiltools
}  // namespace vexplot
