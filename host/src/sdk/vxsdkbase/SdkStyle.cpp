// Style values. On the hot path of the add-on's view interpolation: nothing here allocates while
// the call log is off.
#include "sdk/SdkCall.h"
#include "sdk/StyleArgList.h"
#include "vexhost/StateNotifier.h"
#include "vexhost/StyleStore.h"

using vexhost::FaultPlan;
using vexhost::sdk::SdkCall;
using vexhost::sdk::StyleArgList;
using vexhost::sdk::StyleArgs;

VexSetValueReturnCode_e VexUtilStyleSetLowLevelX(const VexArg_s* args, int32_t count) {
    SdkCall call("VexUtilStyleSetLowLevelX", StyleArgs{args, count, true});
    call.requireLock();
    if (call.strikes(FaultPlan::Fault::StyleSetRefused, StyleArgs{args, count, true}))
        return VexSetValue_ContextError;
    const StyleArgList list(call, args, count, true);
    if (list.problem() != StyleArgList::Problem::None)
        return list.problem() == StyleArgList::Problem::Path ? VexSetValue_InvalidCommandOption
                                                             : VexSetValue_InvalidValue;
    const VexSetValueReturnCode_e rc =
        call.host().style().sdkSet(list.words(), list.depth(), list.value());
    // The X-call tells the listeners; the store's control side sets values silently.
    if (rc == VexSetValue_Ok)
        call.host().stateChanges().send(VexStateChange_Style);
    return rc;
}

VexGetValueReturnCode_e VexUtilStyleGetLowLevelX(const VexArg_s* args, int32_t count) {
    SdkCall call("VexUtilStyleGetLowLevelX", StyleArgs{args, count, false});
    if (call.strikes(FaultPlan::Fault::StyleGetRefused, StyleArgs{args, count, false}))
        return VexGetValue_ContextError;
    const StyleArgList list(call, args, count, false);
    if (list.problem() != StyleArgList::Problem::None)
        return list.problem() == StyleArgList::Problem::Path ? VexGetValue_InvalidPath
                                                             : VexGetValue_WrongType;
    return call.host().style().sdkGet(list.words(), list.depth(), list.value());
}
