#ifndef VEXUTILTOOLS_DIALOGDROPPER_H
#define VEXUTILTOOLS_DIALOGDROPPER_H

#include <boost/bind/bind.hpp>

#include "addon/LockScope.h"
#include "addon/OnIdleManager.h"
#include "addon/StateChangeListener.h"
#include "vxsdkbase.h"

namespace vexplot {
namespace vexutiltools {

// Takes a dialog off the screen once the host no longer shows what the dialog works on: a 3D
// Cartesian plot in the active frame of a host that has frames (the test of the menu item that
// opens the dialog).
//
// The dropper listens to every host state change (state change mode 2) from startListening on,
// and makes the test under the host lock for each. It never drops the dialog inside the
// notification: a state change arrives in the middle of some host operation, so the drop is
// queued on the host's idle queue instead, one pending request at a time however many changes
// arrive, and the request calls Dialog::drop() when the host is idle. Dropping a dialog that is
// not up does nothing, so the request needs no further test.
//
// The dialog is not owned and must outlive the dropper and its pending request.
template <typename Dialog>
class DialogDropper : public StateChangeListener {
public:
    explicit DialogDropper(Dialog& dialog)
        : StateChangeListener(
              boost::bind(&DialogDropper::handleStateChange, this, boost::placeholders::_1)),
          dialog_(dialog) {}
    ~DialogDropper() override = default;

    DialogDropper(const DialogDropper&) = delete;
    DialogDropper& operator=(const DialogDropper&) = delete;

    bool isDropPending() const { return onIdle_.isPending(); }

private:
    void handleStateChange(const vexplot::toolbox::StateChangeEventInterface&) {
        LockScope lock;
        if (VexUtilFrameGetCount() > 0 && VexUtilFrameGetPlotType() == VexPlotType_Cartesian3D)
            return;
        onIdle_.queueCallback(boost::bind(&DialogDropper::dropDialog, this));
    }

    void dropDialog() {
        LockScope lock;
        dialog_.drop();
    }

    Dialog& dialog_;  // not owned
    OnIdleManager onIdle_;
};

}  // namespace vexutiltools
}  // namespace vexplot

#endif
