// Export setup and the export state machine.
#include "core/ExportSetupAttribute.h"
#include "sdk/SdkCall.h"

#include "vexhost/Exporter.h"

using vexhost::FaultPlan;
using vexhost::sdk::SdkCall;
using vexhost::sdk::StringInInteger;

namespace {

bool passesAString(const char* attribute) {
    const vexhost::ExportSetupAttribute* found =
        attribute != nullptr ? vexhost::ExportSetupAttribute::find(attribute) : nullptr;
    return found != nullptr && found->type() == vexhost::StyleStore::ValueType::String;
}

}  // namespace

VexSetValueReturnCode_e VexUtilExportSetup(const char* attribute, const char* subAttribute,
                                           double doubleValue, VexArbParam_t intValue) {
    // The file name travels in the integer; logged as the string it points to.
    if (passesAString(attribute)) {
        SdkCall call("VexUtilExportSetup", attribute, subAttribute, doubleValue,
                     StringInInteger{intValue});
        call.requireLock();
        return call.host().exporter().setup(attribute, subAttribute, doubleValue, intValue);
    }
    SdkCall call("VexUtilExportSetup", attribute, subAttribute, doubleValue, intValue);
    call.requireLock();
    if (attribute == nullptr) {
        call.error("the attribute name is missing");
        return VexSetValue_InvalidCommandOption;
    }
    return call.host().exporter().setup(attribute, subAttribute, doubleValue, intValue);
}

bool VexUtilExportIsRecording(void) {
    SdkCall call("VexUtilExportIsRecording");
    return call.host().exporter().isRecording();
}

bool VexUtilExportStart(void) {
    SdkCall call("VexUtilExportStart");
    call.requireLock();
    if (call.strikes(FaultPlan::Fault::ExportStartRefused))
        return false;
    return call.host().exporter().start();
}

bool VexUtilExportNextFrame(void) {
    SdkCall call("VexUtilExportNextFrame");
    call.requireLock();
    return call.host().exporter().nextFrame();
}

bool VexUtilExportFinish(void) {
    SdkCall call("VexUtilExportFinish");
    call.requireLock();
    return call.host().exporter().finish();
}

bool VexUtilExportCancel(void) {
    SdkCall call("VexUtilExportCancel");
    call.requireLock();
    return call.host().exporter().cancel();
}
