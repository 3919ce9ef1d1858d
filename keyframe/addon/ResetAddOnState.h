#ifndef VEXUTILTOOLS_RESETADDONSTATE_H
#define VEXUTILTOOLS_RESETADDONSTATE_H

namespace vexplot {
namespace vexutiltools {

// Puts the add-on's process-wide state back to how the library was loaded: the main dialog's
// instance (its key frame list, settings, settings file chooser, host control ids, the modal
// dialogs and their locks, the pending idle requests and the state change listener) is dropped,
// so the next use creates a fresh one, and the identifier the host gave at registration is
// forgotten, so the add-on is unregistered until InitVexAddOn113 runs again.
//
// For the test programs, whose fixtures reset the host between tests within one process, and for
// a host that unloads the add-on. Call it while the host that the state belongs to still exists:
// dropping the dialog withdraws its state change listener from the host and gives back the lock
// of a modal dialog left up. Idle requests the dialog left queued would run on the dropped
// instance, so the host must discard them (a host reset does) or not run them.
//
// The rest of the add-on keeps no state of its own between calls: the name tables and the export
// setup tables are constant, the macro command manager holds only its constant separator, and the
// count of open frame poppers falls back to 0 as each popper, a scope, ends.
void resetAddOnState();

}  // namespace vexutiltools
}  // namespace vexplot

#endif
