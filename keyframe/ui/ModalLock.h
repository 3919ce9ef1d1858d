#ifndef VEXUTILTOOLS_MODALLOCK_H
#define VEXUTILTOOLS_MODALLOCK_H

namespace vexplot {
namespace vexutiltools {

// The host lock that a modal dialog holds from its launch until its OK or Cancel: taken by
// acquire in the launch and given back by release when the dialog goes, so the host stays locked
// for the whole modal life of the dialog although that life spans several callbacks. Held at most
// once; the destructor gives back a lock still held.
class ModalLock {
public:
    ModalLock() = default;
    ~ModalLock();

    ModalLock(const ModalLock&) = delete;
    ModalLock& operator=(const ModalLock&) = delete;

    // VexUtilLockStart; a second acquire while held is a programming error (std::logic_error).
    void acquire();
    // VexUtilLockFinish when held; nothing otherwise.
    void release();
    bool isHeld() const { return held_; }

private:
    bool held_ = false;
};

}  // namespace vexutiltools
}  // namespace vexplot

#endif
