// The percent-done status.
#include "sdk/SdkCall.h"

#include "vexhost/ProgressStatus.h"

using vexhost::FaultPlan;
using vexhost::sdk::SdkCall;

bool VexUtilStatusStartPercentDone(const char* text, bool showStopButton, bool showProgressBar) {
    SdkCall call("VexUtilStatusStartPercentDone", text, showStopButton, showProgressBar);
    call.requireLock();
    if (text == nullptr) {
        call.error("the status text is missing");
        text = "";
    }
    call.host().progress().start(text, showStopButton, showProgressBar);
    return true;
}

void VexUtilStatusSetPercentDoneText(const char* text) {
    SdkCall call("VexUtilStatusSetPercentDoneText", text);
    call.requireLock();
    if (text == nullptr) {
        call.error("the status text is missing");
        return;
    }
    call.host().progress().setText(text);
}

bool VexUtilStatusCheckPercentDone(int32_t percentDone) {
    SdkCall call("VexUtilStatusCheckPercentDone", percentDone);
    call.requireLock();
    // A planned Stop is pressed at this check, as the user does: it and every later check of the
    // same status answer false.
    if (call.host().progress().isOpen() && call.strikes(FaultPlan::Fault::StopPressed, percentDone))
        call.host().progress().pressStop();
    return call.host().progress().check(percentDone);
}

void VexUtilStatusFinishPercentDone(void) {
    SdkCall call("VexUtilStatusFinishPercentDone");
    call.requireLock();
    call.host().progress().finish();
}
