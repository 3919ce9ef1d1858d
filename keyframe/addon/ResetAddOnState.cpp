#include "addon/ResetAddOnState.h"

#include "addon/AddOn.h"
#include "ui/DialogMain.h"

namespace vexplot {
namespace vexutiltools {

// Here, beside the entry point and the menu callback, rather than in a lower layer: like them it
// knows the dialog layer (ui/), which the add-on's basic scopes in addon/ must not.
void resetAddOnState() {
    // The dialog first: a modal dialog left up gives back its lock as it goes, which takes the
    // identifier the lock was started with.
    DialogMain::resetInstance();
    AddOn::setIdentifier(nullptr);
}

}  // namespace vexutiltools
}  // namespace vexplot
