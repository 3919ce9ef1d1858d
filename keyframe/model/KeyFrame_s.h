#ifndef VEXUTILTOOLS_KEYFRAME_S_H
#define VEXUTILTOOLS_KEYFRAME_S_H

#include <cstdint>
#include <iosfwd>
#include <string>

#include "model/KeyFrameView_s.h"

namespace vexplot {
namespace vexutiltools {

// One key frame: a captured 3D view with the name the user gave it, the number of animation
// frames from this key frame to the next, and the host's solution time at capture. A plain value
// type, held by value in the list model and copied into each animation run.
// A value-initialised key frame has an all-zero view, an empty name and zeros.
struct KeyFrame_s {
    KeyFrameView_s view;
    std::string name;
    // Frames of the segment that starts here: this key frame's own frame and the ones up to, not
    // including, the next key frame's. Ignored for the last key frame of a list.
    uint64_t frameCount = 0;
    // Used by the time animation operation AsCaptured.
    double solutionTime = 0.0;
};

// Equal views (as doubles), equal names (same bytes), equal frame counts and equal solution times
// (as doubles); a NaN anywhere makes two key frames unequal.
bool operator==(const KeyFrame_s& a, const KeyFrame_s& b);
bool operator!=(const KeyFrame_s& a, const KeyFrame_s& b);

// For diagnostics and test failures; the view at full precision.
std::ostream& operator<<(std::ostream& out, const KeyFrame_s& keyFrame);

}  // namespace vexutiltools
}  // namespace vexplot

#endif
