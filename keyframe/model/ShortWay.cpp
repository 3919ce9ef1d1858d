#include "model/ShortWay.h"

#include <cmath>

namespace vexplot {
namespace vexutiltools {

double shortWay(double degrees) {
    // The exact remainder comes first only so that an absurdly large angle cannot keep the loops
    // below spinning: for every finite value it gives what the loops alone would give.
    if (std::isfinite(degrees))
        degrees = std::fmod(degrees, 360.0);
    while (degrees > 180.0)
        degrees += -360.0;
    while (degrees < -180.0)
        degrees += 360.0;
    return degrees;
}

}  // namespace vexutiltools
}  // namespace vexplot
