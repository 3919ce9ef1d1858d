// Style values. On the hot path of the add-on's view interpolation: nothing here allocates while
// the call log is off.
#include "sdk/SdkCall.h"

#include "vexhost/StyleStore.h"

using vexhost::FaultPlan;
using vexhost::sdk::SdkCall;
using vexhost::sdk::StyleArgs;

VexSetValueReturnCode_e VexUtilStyleSetLowLevelX(const VexArg_s* args, int32_t count) {
    SdkCall call("VexUtilStyleSetLowLevelX", StyleArgs{args, count, true});
    call.requireLock();
    if (call.strikes(FaultPlan::Fault::StyleSetRefused, StyleArgs{args, count, true}))
        return VexSetValue_ContextError;
    return call.host().style().sdkSet(args, count);
}

VexGetValueReturnCode_e VexUtilStyleGetLowLevelX(const VexArg_s* args, int32_t count) {
    SdkCall call("VexUtilStyleGetLowLevelX", StyleArgs{args, count, false});
    if (call.strikes(FaultPlan::Fault::StyleGetRefused, StyleArgs{args, count, false}))
        return VexGetValue_ContextError;
    return call.host().style().sdkGet(args, count);
}
