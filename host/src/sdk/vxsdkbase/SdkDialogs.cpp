// Messages: error boxes and message boxes.
#include <string>

#include "sdk/SdkCall.h"
#include "vexhost/UserDialogs.h"

using vexhost::sdk::SdkCall;

void VexUtilDialogErrMsg(const char* message) {
    SdkCall call("VexUtilDialogErrMsg", message);
    if (message == nullptr) {
        call.error("the message is missing");
        return;
    }
    call.host().userDialogs().showError(message);
}

bool VexUtilDialogMessageBox(const char* message, VexMessageBoxType_e boxType) {
    SdkCall call("VexUtilDialogMessageBox", message, boxType);
    if (message == nullptr) {
        call.error("the message is missing");
        return false;
    }
    if (boxType < VexMessageBox_Error || boxType > VexMessageBox_YesNo) {
        call.error("unknown message box type " + std::to_string(boxType));
        return false;
    }
    return call.host().userDialogs().showMessageBox(message, boxType);
}
