#ifndef VEXUTILTOOLS_KEYFRAMEVIEW_S_H
#define VEXUTILTOOLS_KEYFRAMEVIEW_S_H

#include <iosfwd>

namespace vexplot {
namespace vexutiltools {

// One 3D view of the host: viewer position, view angles and orthographic view width. The order
// of the fields is the order in which interpolation treats them. A view carries no perspective
// flag and no field of view: whether the host draws in perspective is left as it is.
// A value-initialised view is all zeros.
struct KeyFrameView_s {
    double X = 0.0;      // viewer position x, host data units
    double Y = 0.0;      // viewer position y, host data units
    double Z = 0.0;      // viewer position z, host data units
    double Psi = 0.0;    // view angle psi, degrees
    double Theta = 0.0;  // view angle theta, degrees
    double Alpha = 0.0;  // view angle alpha, degrees
    double Width = 0.0;  // orthographic view width, host data units
};

// Field by field as doubles: a NaN anywhere makes two views unequal.
bool operator==(const KeyFrameView_s& a, const KeyFrameView_s& b);
bool operator!=(const KeyFrameView_s& a, const KeyFrameView_s& b);

// For diagnostics and test failures: all seven numbers at full precision (formatView gives the
// two-decimal text that users see).
std::ostream& operator<<(std::ostream& out, const KeyFrameView_s& view);

}  // namespace vexutiltools
}  // namespace vexplot

#endif
