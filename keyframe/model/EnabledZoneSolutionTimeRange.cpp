#include "model/EnabledZoneSolutionTimeRange.h"

#include <algorithm>

#include "addon/HostSet.h"
#include "addon/LockScope.h"
#include "vxsdkbase.h"

namespace vexplot {
namespace vexutiltools {

bool getEnabledZoneSolutionTimeRange(double& minTime, double& maxTime) {
    LockScope lock;
    HostSet enabledZones;
    if (!VexUtilZoneGetEnabled(enabledZones.receive()))
        return false;

    bool found = false;
    double low = 0.0;
    double high = 0.0;
    for (VexSetIndex_t zone = enabledZones.getNextMember(VEX_SET_NO_MEMBER);
         zone != VEX_SET_NO_MEMBER; zone = enabledZones.getNextMember(zone)) {
        const double time = VexUtilZoneGetSolutionTime(static_cast<int32_t>(zone));
        if (!found) {
            low = time;
            high = time;
            found = true;
        } else {
            low = std::min(low, time);
            high = std::max(high, time);
        }
    }
    if (found) {
        minTime = low;
        maxTime = high;
    }
    return found;
}

}  // namespace vexutiltools
}  // namespace vexplot
