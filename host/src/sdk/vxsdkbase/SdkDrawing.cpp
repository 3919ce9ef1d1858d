// Drawing suspension and redraw.
#include "sdk/SdkCall.h"

#include "vexhost/Drawing.h"

using vexhost::sdk::SdkCall;

void VexUtilDrawGraphics(bool doDrawing) {
    SdkCall call("VexUtilDrawGraphics", doDrawing);
    call.requireLock();
    if (!doDrawing)
        call.host().drawing().suspend();
    else if (!call.host().drawing().resume())
        call.error("drawing is not suspended");
}

bool VexUtilRedraw(bool doFullDrawing) {
    SdkCall call("VexUtilRedraw", doFullDrawing);
    call.requireLock();
    // Every redraw of this host is a full one: there is no partial picture to update.
    call.host().drawing().redraw();
    return true;
}
