#include "animation/AnimationHostQueries.h"

#include "addon/HostSet.h"
#include "addon/LockScope.h"
#include "vxsdkbase.h"
#include "vxtoolbox.h"

namespace vexplot {
namespace vexutiltools {

bool isDataSetTransient() {
    LockScope lock;
    if (!VexUtilDataSetIsAvailable())
        return false;
    HostSet enabledZones;
    if (!VexUtilZoneGetEnabled(enabledZones.receive()))
        return false;
    for (VexSetIndex_t zone = enabledZones.getNextMember(VEX_SET_NO_MEMBER);
         zone != VEX_SET_NO_MEMBER; zone = enabledZones.getNextMember(zone)) {
        if (VexUtilZoneGetStrandID(static_cast<int32_t>(zone)) > 0)
            return true;
    }
    return false;
}

bool canAnimateStreamtraces() {
    LockScope lock;
    const vexplot::toolbox::StyleValue streamTiming("StreamAttributes", "StreamTiming");
    bool shown = false;
    streamTiming.get(shown, "ShowMarkers");
    if (!shown)
        streamTiming.get(shown, "ShowDashes");
    return shown;
}

}  // namespace vexutiltools
}  // namespace vexplot
