#ifndef VEXUTILTOOLS_SHORTWAY_H
#define VEXUTILTOOLS_SHORTWAY_H

namespace vexplot {
namespace vexutiltools {

// An angle difference in degrees brought into [-180, 180], so that a turn by it goes the short
// way; exactly 180 and -180 stay as they are, so a half turn keeps the direction it was given. A
// NaN or an infinity comes back as it went in. The one rule by which an animation turns each view
// angle from one key frame to the next, and by which the camera path tools say how it turns.
double shortWay(double degrees);

}  // namespace vexutiltools
}  // namespace vexplot

#endif
