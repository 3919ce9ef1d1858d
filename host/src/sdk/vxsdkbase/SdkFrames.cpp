// Frames, coordinate conversion and the 3D view.
#include <cmath>
#include <string>

#include "sdk/SdkCall.h"
#include "vexhost/Frame.h"
#include "vexhost/FrameStack.h"
#include "vexhost/StateNotifier.h"

using vexhost::Frame;
using vexhost::FrameStack;
using vexhost::View3D;
using vexhost::sdk::SdkCall;

int32_t VexUtilFrameGetCount(void) {
    SdkCall call("VexUtilFrameGetCount");
    return call.host().frames().count();
}

VexPlotType_e VexUtilFrameGetPlotType(void) {
    SdkCall call("VexUtilFrameGetPlotType");
    const Frame* frame = call.host().frames().active();
    return frame != nullptr ? frame->plotType() : VexPlotType_Sketch;
}

VexUniqueID_t VexUtilFrameGetUniqueID(void) {
    SdkCall call("VexUtilFrameGetUniqueID");
    const Frame* frame = call.requireCurrentFrame();
    return frame != nullptr ? frame->uniqueId() : VEX_BAD_ID;
}

bool VexUtilFrameActivateTop(void) {
    SdkCall call("VexUtilFrameActivateTop");
    call.requireLock();
    return call.host().frames().activateTop();
}

bool VexUtilFramePushTop(void) {
    SdkCall call("VexUtilFramePushTop");
    call.requireLock();
    return call.host().frames().pushTop();
}

bool VexUtilFrameActivateByUniqueID(VexUniqueID_t uniqueID) {
    SdkCall call("VexUtilFrameActivateByUniqueID", uniqueID);
    call.requireLock();
    return call.host().frames().activateByUniqueId(uniqueID);
}

bool VexUtilFrameLightweightPopStart(void) {
    SdkCall call("VexUtilFrameLightweightPopStart");
    call.requireLock();
    return call.host().frames().lightweightPopStart();
}

bool VexUtilFrameLightweightPopNext(void) {
    SdkCall call("VexUtilFrameLightweightPopNext");
    call.requireLock();
    return call.host().frames().lightweightPopNext();
}

void VexUtilFrameLightweightPopEnd(void) {
    SdkCall call("VexUtilFrameLightweightPopEnd");
    call.requireLock();
    call.host().frames().lightweightPopEnd();
}

void VexUtilFrameGetPosAndSize(double* x, double* y, double* width, double* height) {
    SdkCall call("VexUtilFrameGetPosAndSize");
    const Frame* frame = call.requireCurrentFrame();
    // Null pointers are allowed for the values a caller does not want.
    if (x != nullptr)
        *x = frame != nullptr ? frame->x() : 0;
    if (y != nullptr)
        *y = frame != nullptr ? frame->y() : 0;
    if (width != nullptr)
        *width = frame != nullptr ? frame->width() : 0;
    if (height != nullptr)
        *height = frame != nullptr ? frame->height() : 0;
}

namespace {

// Dimensions (lengths, not positions) between coordinate systems, through paper inches: screen
// pixels at 100 per inch, hardcopy points at 72 per inch, frame units in percent of the current
// frame's width or height. Grid units depend on axis ranges this host does not model.
bool toInches(const SdkCall& call, VexCoordSys_e system, double value, bool isX, double& inches) {
    switch (system) {
        case VexCoordSys_Paper:
            inches = value;
            return true;
        case VexCoordSys_Screen:
            inches = value / FrameStack::PixelsPerInch;
            return true;
        case VexCoordSys_Hardcopy:
            inches = value / 72;
            return true;
        case VexCoordSys_Frame: {
            const Frame* frame = call.requireCurrentFrame();
            if (frame == nullptr)
                return false;
            inches = value / 100 * (isX ? frame->width() : frame->height());
            return true;
        }
        default:
            call.error("conversion from coordinate system " + std::to_string(system) +
                       " is not supported");
            return false;
    }
}

bool fromInches(const SdkCall& call, VexCoordSys_e system, double inches, bool isX, double& value) {
    switch (system) {
        case VexCoordSys_Paper:
            value = inches;
            return true;
        case VexCoordSys_Screen:
            value = inches * FrameStack::PixelsPerInch;
            return true;
        case VexCoordSys_Hardcopy:
            value = inches * 72;
            return true;
        case VexCoordSys_Frame: {
            const Frame* frame = call.requireCurrentFrame();
            if (frame == nullptr)
                return false;
            value = inches * 100 / (isX ? frame->width() : frame->height());
            return true;
        }
        default:
            call.error("conversion to coordinate system " + std::to_string(system) +
                       " is not supported");
            return false;
    }
}

double convert(const SdkCall& call, VexCoordSys_e from, VexCoordSys_e to, double value, bool isX) {
    double inches = 0, result = 0;
    if (!toInches(call, from, value, isX, inches) || !fromInches(call, to, inches, isX, result))
        return value;
    return result;
}

}  // namespace

double VexUtilConvertXDimension(VexCoordSys_e oldCoordSys, VexCoordSys_e newCoordSys,
                                double value) {
    SdkCall call("VexUtilConvertXDimension", oldCoordSys, newCoordSys, value);
    return convert(call, oldCoordSys, newCoordSys, value, true);
}

double VexUtilConvertYDimension(VexCoordSys_e oldCoordSys, VexCoordSys_e newCoordSys,
                                double value) {
    SdkCall call("VexUtilConvertYDimension", oldCoordSys, newCoordSys, value);
    return convert(call, oldCoordSys, newCoordSys, value, false);
}

void VexUtilWorkAreaGetDimensions(int32_t* width, int32_t* height) {
    SdkCall call("VexUtilWorkAreaGetDimensions");
    if (width != nullptr)
        *width = call.host().frames().workAreaWidth();
    if (height != nullptr)
        *height = call.host().frames().workAreaHeight();
}

void VexUtilThreeDViewGetViewerPos(double* x, double* y, double* z) {
    SdkCall call("VexUtilThreeDViewGetViewerPos");
    const Frame* frame = call.requireActiveFrame();
    const View3D::Vector p = frame != nullptr ? frame->view().position() : View3D::Vector{};
    if (x != nullptr)
        *x = p[0];
    if (y != nullptr)
        *y = p[1];
    if (z != nullptr)
        *z = p[2];
}

void VexUtilThreeDViewGetViewerAngle(double* psi, double* theta, double* alpha) {
    SdkCall call("VexUtilThreeDViewGetViewerAngle");
    const Frame* frame = call.requireActiveFrame();
    constexpr double Radians = 3.14159265358979323846 / 180;
    if (psi != nullptr)
        *psi = frame != nullptr ? frame->view().psi() * Radians : 0;
    if (theta != nullptr)
        *theta = frame != nullptr ? frame->view().theta() * Radians : 0;
    if (alpha != nullptr)
        *alpha = frame != nullptr ? frame->view().alpha() * Radians : 0;
}

void VexUtilThreeDViewGetProjection(double* fieldOfView, double* viewWidth, bool* isInPerspective) {
    SdkCall call("VexUtilThreeDViewGetProjection");
    const Frame* frame = call.requireActiveFrame();
    if (fieldOfView != nullptr)
        *fieldOfView = frame != nullptr ? frame->view().fieldOfView() : 0;
    if (viewWidth != nullptr)
        *viewWidth = frame != nullptr ? frame->view().width() : 0;
    if (isInPerspective != nullptr)
        *isInPerspective = frame != nullptr && frame->view().perspective();
}

bool VexUtilViewRotate3D(VexRotateAxis_e axis, double degrees, double vectorX, double vectorY,
                         double vectorZ, VexRotateOriginLocation_e originLocation) {
    SdkCall call("VexUtilViewRotate3D", axis, degrees, vectorX, vectorY, vectorZ, originLocation);
    call.requireLock();
    Frame* frame = call.requireActiveFrame();
    if (frame == nullptr)
        return false;
    if (!std::isfinite(degrees)) {
        call.error("the rotation amount is not a finite number");
        return false;
    }
    if (!frame->view().rotate(axis, degrees, {vectorX, vectorY, vectorZ}, originLocation)) {
        call.error("cannot rotate about axis " + std::to_string(axis) + " with origin location " +
                   std::to_string(originLocation) + " (and vector " + std::to_string(vectorX) +
                   ", " + std::to_string(vectorY) + ", " + std::to_string(vectorZ) + ")");
        return false;
    }
    call.host().stateChanges().send(VexStateChange_View);
    return true;
}
