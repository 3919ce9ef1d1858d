#include "addon/InitVexAddOn113.h"

#include "addon/AddOn.h"
#include "addon/AddOnMenu.h"
#include "addon/MacroCallback.h"
#include "vxappaddonuiaction.h"

namespace {
// The SDK version the add-on is written against, as the host expects it at registration.
constexpr int32_t SdkVersion = 110;
// Shown by the host next to the add-on's name in its list of loaded add-ons.
constexpr const char* VersionText = "1.0.0";
constexpr const char* MakerName = "Vexplot Add-on Team";
}  // namespace

EXPORTFROMADDON void InitVexAddOn113(void) {
    using vexplot::vexutiltools::AddOn;

    // The host's own lock: the add-on has no identifier of its own until it is registered.
    VexUtilLockOn();
    AddOn::setIdentifier(VexUtilAddOnRegister(SdkVersion, AddOn::Name, VersionText, MakerName));
    VexUtilMenuAddOption("Animate", "&Key Frame Animation...", 1,
                         &vexplot::vexutiltools::addOnMenuCallback);
    VexUtilMacroAddCommandCallback(AddOn::Name, &vexplot::vexutiltools::macroCallback);
    VexUtilLockOff();
}
