// Macro command callbacks and recording.
#include "sdk/SdkCall.h"

#include "vexhost/AddOnRegistry.h"
#include "vexhost/MacroRecorder.h"

using vexhost::sdk::SdkCall;

bool VexUtilMacroAddCommandCallback(const char* addOnName, VexMacroCommandCallback_pf callback) {
    SdkCall call("VexUtilMacroAddCommandCallback", addOnName);
    return call.host().addOns().addMacroCallback(addOnName, callback);
}

bool VexUtilMacroIsRecordingActive(void) {
    SdkCall call("VexUtilMacroIsRecordingActive");
    return call.host().macro().isRecording();
}

bool VexUtilMacroRecordExtCommand(const char* addOnName, const char* commandString) {
    SdkCall call("VexUtilMacroRecordExtCommand", addOnName, commandString);
    call.requireLock();
    if (addOnName == nullptr || commandString == nullptr) {
        call.error("the add-on name and the command string must both be given");
        return false;
    }
    return call.host().macro().recordAddOnCommand(addOnName, commandString);
}

bool VexUtilMacroRecordRawCommand(const char* command) {
    SdkCall call("VexUtilMacroRecordRawCommand", command);
    call.requireLock();
    if (command == nullptr) {
        call.error("the command line is missing");
        return false;
    }
    return call.host().macro().recordRaw(command);
}
