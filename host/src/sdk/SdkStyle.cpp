// Style values. On the hot path of the add-on's view interpolation: nothing here allocates while
// the call log is off.
#include "sdk/SdkCall.h"

using vexhost::sdk::SdkCall;
using vexhost::sdk::StyleArgs;

VexSetValueReturnCode_e VexUtilStyleSetLowLevelX(const VexArg_s* args, int32_t count) {
    SdkCall call("VexUtilStyleSetLowLevelX", StyleArgs{args, count, true});
    call.requireLock();
    return call.host().style().sdkSet(args, count);
}

VexGetValueReturnCode_e VexUtilStyleGetLowLevelX(const VexArg_s* args, int32_t count) {
    SdkCall call("VexUtilStyleGetLowLevelX", StyleArgs{args, count, false});
    return call.host().style().sdkGet(args, count);
}
