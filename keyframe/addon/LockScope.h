#ifndef VEXUTILTOOLS_LOCKSCOPE_H
#define VEXUTILTOOLS_LOCKSCOPE_H

namespace vexplot {
namespace vexutiltools {

// Holds the host lock for the add-on from construction to destruction: VexUtilLockStart and
// VexUtilLockFinish with the add-on identifier (AddOn). The host lock is re-entrant, so scopes
// nest freely; each one releases exactly what it took, on every exit path.
class LockScope {
public:
    LockScope();
    ~LockScope();

    LockScope(const LockScope&) = delete;
    LockScope& operator=(const LockScope&) = delete;
};

}  // namespace vexutiltools
}  // namespace vexplot

#endif
