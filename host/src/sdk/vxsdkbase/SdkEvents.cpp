// The idle queue and state change listeners.
#include <string>

#include "sdk/SdkCall.h"
#include "vexhost/IdleQueue.h"
#include "vexhost/StateNotifier.h"

using vexhost::sdk::SdkCall;

bool VexUtilOnIdleQueueAddCallback(VexOnIdleCallback_pf callback, void* clientData) {
    SdkCall call("VexUtilOnIdleQueueAddCallback");
    return call.host().idleQueue().add(callback, clientData);
}

bool VexUtilStateChangeAddCallback(VexStateChangeMode_e mode, VexStateChangeCallback_pf callback,
                                   void* clientData) {
    SdkCall call("VexUtilStateChangeAddCallback", mode);
    if (mode < VexStateChangeMode_v75 || mode > VexStateChangeMode_v100) {
        call.error("unknown state change mode " + std::to_string(mode));
        return false;
    }
    return call.host().stateChanges().add(mode, callback, clientData);
}

bool VexUtilStateChangeRemoveCallback(VexStateChangeCallback_pf callback, void* clientData) {
    SdkCall call("VexUtilStateChangeRemoveCallback");
    return call.host().stateChanges().remove(callback, clientData);
}
