#ifndef VEXUTILTOOLS_FRAMEPOPPER_H
#define VEXUTILTOOLS_FRAMEPOPPER_H

#include "addon/FramePopperAbstract.h"
#include "vxsdkbase.h"

namespace vexplot {
namespace vexutiltools {

// Visits every frame by bringing each one to the top of the host's frame stack in turn, with
// drawing suspended so the reordering is never shown.
//
// Construction remembers the active frame, activates the top frame (the first one visited) and
// turns drawing off. popNext pushes the top frame to the back and reports whether the new top is
// one not visited yet. Destruction pops until the first top frame is on top again, so the stack
// is in its original order, re-activates the frame that was active before, and turns drawing on.
// Requires at least one frame.
class FramePopper : public FramePopperAbstract {
public:
    FramePopper();
    ~FramePopper() override;

    bool popNext() override;

private:
    VexUniqueID_t previousActiveFrameId_;
    VexUniqueID_t firstTopFrameId_;
    bool stillPopping_;
};

}  // namespace vexutiltools
}  // namespace vexplot

#endif
