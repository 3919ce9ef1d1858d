// Locking and registration.
#include "sdk/SdkCall.h"

#include "vexhost/AddOnRegistry.h"

using vexhost::sdk::AddOnArg;
using vexhost::sdk::SdkCall;

void VexUtilLockOn(void) {
    SdkCall call("VexUtilLockOn");
    call.host().lock().startHostLock();
}

void VexUtilLockOff(void) {
    SdkCall call("VexUtilLockOff");
    call.host().lock().finishHostLock(call.function());
}

void VexUtilLockStart(VexAddOn_pa addOn) {
    SdkCall call("VexUtilLockStart", AddOnArg{addOn});
    call.host().lock().start(addOn);
}

void VexUtilLockFinish(VexAddOn_pa addOn) {
    SdkCall call("VexUtilLockFinish", AddOnArg{addOn});
    call.host().lock().finish(call.function(), addOn);
}

bool VexUtilLockIsOn(void) {
    SdkCall call("VexUtilLockIsOn");
    return call.host().lock().isHeld();
}

VexAddOn_pa VexUtilAddOnRegister(int32_t sdkVersion, const char* name, const char* versionText,
                                 const char* author) {
    SdkCall call("VexUtilAddOnRegister", sdkVersion, name, versionText, author);
    return call.host().addOns().registerAddOn(sdkVersion, name, versionText, author);
}
