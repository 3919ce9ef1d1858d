// What of a camera path is drawn: the line through the viewer's positions, an arrowhead at the
// middle of each leg pointing the way the camera flies, and a mark at each key frame.
#ifndef VEXHOST_RENDER_CAMERAPATHMARKS_H
#define VEXHOST_RENDER_CAMERAPATHMARKS_H

#include <vector>

#include "vexhost/CameraPath.h"

namespace vexhost {

class CameraPathMarks {
public:
    // viewDirection: where the picture's viewer looks (arrowheads open across it, so they are seen
    // broadside); arrowLength in data units. Key frames beyond the path's frames are left out.
    CameraPathMarks(const CameraPath& path, const double viewDirection[3], double arrowLength);

    // Pairs of points (x, y, z, x, y, z) for GL_LINES: the path, then the arrowheads.
    const std::vector<float>& segments() const { return segments_; }
    // x, y, z per key frame shown.
    const std::vector<float>& keyFrameMarks() const { return marks_; }

private:
    void addArrow(const CameraPath& path, std::size_t from, std::size_t to,
                  const double viewDirection[3], double length);

    std::vector<float> segments_;
    std::vector<float> marks_;
};

}  // namespace vexhost

#endif
