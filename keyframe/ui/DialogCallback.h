#ifndef VEXUTILTOOLS_DIALOGCALLBACK_H
#define VEXUTILTOOLS_DIALOGCALLBACK_H

#include <exception>

#include "addon/KeyFrameError.h"
#include "addon/LockScope.h"
#include "vxsdkbase.h"

namespace vexplot {
namespace vexutiltools {

// The boundary of every dialog callback: the host calls the add-on's callbacks from C, so no
// exception may leave them. A KeyFrameError is the user's message; any other exception is a fault
// of the add-on, shown all the same (with its function's name, as the add-on writes those), since
// letting it through would end the host. Either is shown in the host's error dialog under the
// lock, and the callback ends there.
//
// catchDialogErrors takes no lock of its own: the modal dialogs' OK and Cancel release the lock
// their launch took, so they count their locks themselves.
template <typename Work>
void catchDialogErrors(Work&& work) noexcept {
    try {
        work();
    } catch (const std::exception& error) {
        try {
            LockScope lock;
            VexUtilDialogErrMsg(error.what());
        } catch (...) {
            // Nothing more can be told: showing the message failed too.
        }
    }
}

// A callback's work under the host lock, inside the boundary above.
template <typename Work>
void runDialogCallback(Work&& work) noexcept {
    catchDialogErrors([&work] {
        LockScope lock;
        work();
    });
}

}  // namespace vexutiltools
}  // namespace vexplot

#endif
