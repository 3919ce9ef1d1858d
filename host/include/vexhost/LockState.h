// The host lock: re-entrant, owned by add-on handles. Each VexUtilLockStart(h) must be matched by
// one VexUtilLockFinish(h) in reverse order; VexUtilLockOn/Off are the host's own lock on the same
// stack. Mistakes are recorded as host errors and the stack is kept as balanced as it can be (a
// mismatched finish still pops), so one mistake reports once.
#ifndef VEXHOST_LOCKSTATE_H
#define VEXHOST_LOCKSTATE_H

#include <string>
#include <vector>

#include "vxsdkbase.h"

namespace vexhost {

class AddOnRegistry;
class HostErrors;

class LockState {
public:
    LockState(HostErrors& errors, const AddOnRegistry& addOns) : errors_(errors), addOns_(addOns) {}
    LockState(const LockState&) = delete;
    LockState& operator=(const LockState&) = delete;

    int depth() const { return static_cast<int>(owners_.size()); }
    bool isHeld() const { return !owners_.empty(); }
    // The owner of the innermost lock; nullptr for the host's own lock or when none is held.
    VexAddOn_pa innermostOwner() const { return owners_.empty() ? nullptr : owners_.back().addOn; }

    // SDK side. `function` names the SDK call in error texts.
    void start(VexAddOn_pa addOn);
    void finish(const char* function, VexAddOn_pa addOn);
    void startHostLock() { owners_.push_back({nullptr, true}); }
    void finishHostLock(const char* function);

    void reset() { owners_.clear(); }

private:
    struct Owner {
        VexAddOn_pa addOn;
        bool isHostLock;
    };
    void finish(const char* function, const Owner& owner);
    std::string describe(const Owner& owner) const;

    HostErrors& errors_;
    const AddOnRegistry& addOns_;
    std::vector<Owner> owners_;
};

}  // namespace vexhost

#endif
