#include "vexhost/LockState.h"

#include "vexhost/AddOnRegistry.h"
#include "vexhost/HostErrors.h"

namespace vexhost {

void LockState::start(VexAddOn_pa addOn) {
    if (addOns_.find(addOn) == nullptr)
        errors_.record("VexUtilLockStart", "the add-on handle " + addOns_.describe(addOn) +
                                               " was not handed out by VexUtilAddOnRegister");
    // Pushed even when invalid, so that the matching finish balances and the mistake reports once.
    owners_.push_back({addOn, false});
}

void LockState::finish(const char* function, VexAddOn_pa addOn) {
    finish(function, Owner{addOn, false});
}

void LockState::finishHostLock(const char* function) {
    finish(function, Owner{nullptr, true});
}

void LockState::finish(const char* function, const Owner& owner) {
    if (owners_.empty()) {
        errors_.record(function, "no lock is held (finish of " + describe(owner) + ")");
        return;
    }
    const Owner& innermost = owners_.back();
    if (innermost.isHostLock != owner.isHostLock || innermost.addOn != owner.addOn)
        errors_.record(function, "finish of " + describe(owner) +
                                     " does not match the innermost start, which is of " +
                                     describe(innermost));
    // A mismatched finish still pops, so the depth stays right and one mistake reports once.
    owners_.pop_back();
}

std::string LockState::describe(const Owner& owner) const {
    return owner.isHostLock ? "the host lock" : addOns_.describe(owner.addOn);
}

}  // namespace vexhost
