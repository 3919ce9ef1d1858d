// The pictures vexpath draws of a flight, from the add-on's own views:
// - the path picture: the data set seen from the scene's view direction, far enough out to show
//   the data and the whole flight, with the camera path over it (the viewer's position at every
//   frame as a line, an arrow per leg for the way of flight, each key frame marked and named);
// - a contact sheet tile: what the animation shows at one key frame's frame (its view and the
//   solution time there), captioned with the key frame's name and its frames.
#ifndef VEXPLOT_PATH_PATHPICTURE_H
#define VEXPLOT_PATH_PATHPICTURE_H

#include <cstddef>
#include <string>
#include <vector>

#include "FlightViews.h"
#include "vexhost/CameraPath.h"
#include "vexhost/Host.h"
#include "vexhost/SceneState.h"

namespace vexplot {
namespace path {

using flight::FlightViews;

class PathPicture {
public:
    // The viewer's position at every frame of the flight, each key frame at its frame and named.
    static vexhost::CameraPath cameraPath(const FlightViews& flight);

    // The scene of the host's active frame with the camera path over it, seen with the frame's
    // own view angles (and perspective) from a view fitted to the box around the data and every
    // point of the path, as a fit fits the data alone. The frame's view is left as it was.
    static vexhost::SceneState overview(vexhost::Host& host, const FlightViews& flight);

    // The scene the animation shows at key frame k's frame: its view, the solution time there
    // (the data at that time), the host's lighting; captioned with keyFrameCaption. The host's
    // solution time is left as it was.
    static vexhost::SceneState keyFrameScene(vexhost::Host& host, const FlightViews& flight,
                                             std::size_t k);
    // The key frame's name and "frames A-B": the frames from
    // the key frame's own to the last before the next key frame's, or "frame N" for a single one.
    static std::vector<std::string> keyFrameCaption(const FlightViews& flight, std::size_t k);
};

}  // namespace path
}  // namespace vexplot

#endif
