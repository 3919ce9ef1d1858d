// A camera path to draw over a scene: where the viewer stands at every frame of an animation, in
// frame order, with the key frames marked and named. The path picture of a flight and the studio's
// path over the 3D view are drawn from it.
#ifndef VEXHOST_CAMERAPATH_H
#define VEXHOST_CAMERAPATH_H

#include <cstddef>
#include <string>
#include <vector>

namespace vexhost {

struct CameraPath {
    struct KeyFrame {
        std::size_t frame = 0;  // where on the path the key frame stands
        std::string name;
    };
    std::vector<double> positions;  // x, y, z of the viewer per frame
    std::vector<KeyFrame> keyFrames;

    std::size_t frameCount() const { return positions.size() / 3; }
};

}  // namespace vexhost

#endif
