// Where a picture's scene comes from: what a picture of the active frame shows at the moment it is
// asked. Drawing and the frame trace take the scene from here at the moment they draw or write
// (the host's own source gathers it from the frames, the style values and the data set), so
// neither needs the rest of the host.
#ifndef VEXHOST_SCENESOURCE_H
#define VEXHOST_SCENESOURCE_H

#include "vexhost/SceneState.h"

namespace vexhost {

class SceneSource {
public:
    virtual ~SceneSource() = default;

    // The view (the default view without frames), lighting, axis, stream timing and solution time;
    // with zones, also the zones shown at the current solution time that have geometry, the
    // streamtraces and the data set's scalar range and bounds.
    virtual SceneState scene(bool withZones) const = 0;
};

}  // namespace vexhost

#endif
