#ifndef VEXUTILTOOLS_DIALOGCALLBACK_H
#define VEXUTILTOOLS_DIALOGCALLBACK_H

#include <cstdint>
#include <exception>
#include <string>
#include <type_traits>

#include "addon/KeyFrameError.h"
#include "addon/LockScope.h"
#include "vxappaddonuiaction.h"
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

// Whether a dialog callback runs its member under the host lock (runDialogCallback) or inside the
// boundary only (catchDialogErrors).
enum class CallbackLocking { Lock, NoLock };

// The dialog a callback was registered for (its client data), as the class of the member it runs.
template <typename Dialog, typename Result, typename... Arguments>
Dialog& dialogOf(Result (Dialog::*)(Arguments...), void* clientData) {
    return *static_cast<Dialog*>(clientData);
}

template <CallbackLocking Locking, typename Work>
void runCallbackWork(Work&& work) noexcept {
    if constexpr (Locking == CallbackLocking::Lock)
        runDialogCallback(work);
    else
        catchDialogErrors(work);
}

// The host callback that runs the dialog member Member on the dialog passed as the client data,
// inside the boundary above (under the lock unless told otherwise). One of the three signatures
// of the host's controls is chosen by the callback type it is given to:
//   void(void*)                 buttons, menu items, dialog init/OK/Cancel: Member()
//   void(int32_t, void*)        option menus, radio boxes, toggles, lists: Member(value) when the
//                               member takes the value, Member() when it only needs to know
//   void(const char*, void*)    text fields: Member(const std::string&), a null text as ""
// Registered as, e.g., VexGUIButtonAdd(..., &dialogCallback<&DialogMain::append>, this).
template <auto Member, CallbackLocking Locking = CallbackLocking::Lock>
void dialogCallback(void* clientData) noexcept {
    runCallbackWork<Locking>([clientData] { (dialogOf(Member, clientData).*Member)(); });
}

template <auto Member, CallbackLocking Locking = CallbackLocking::Lock>
void dialogCallback(int32_t value, void* clientData) noexcept {
    if constexpr (std::is_invocable_v<decltype(Member), decltype(dialogOf(Member, clientData)),
                                      int32_t>)
        runCallbackWork<Locking>(
            [value, clientData] { (dialogOf(Member, clientData).*Member)(value); });
    else
        dialogCallback<Member, Locking>(clientData);
}

template <auto Member, CallbackLocking Locking = CallbackLocking::Lock>
void dialogCallback(const char* text, void* clientData) noexcept {
    runCallbackWork<Locking>([text, clientData] {
        (dialogOf(Member, clientData).*Member)(std::string(text != nullptr ? text : ""));
    });
}

// The host callback of a dialog's Help button: the dialog's help page (Dialog::HelpPage), under
// the lock.
template <typename Dialog>
void dialogHelp(void*) noexcept {
    runDialogCallback([] { VexUtilHelp(Dialog::HelpPage); });
}

}  // namespace vexutiltools
}  // namespace vexplot

#endif
