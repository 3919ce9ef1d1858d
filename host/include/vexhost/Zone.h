// One zone of the host's data set. A strand id of 0 means the zone belongs to no strand (it is
// shown at every solution time); zones of one strand above 0 are the time steps of one transient
// object.
#ifndef VEXHOST_ZONE_H
#define VEXHOST_ZONE_H

#include <cstdint>
#include <memory>
#include <string>

#include "vexhost/ZoneGeometry.h"

namespace vexhost {

struct Zone {
    std::string name;
    double solutionTime = 0;
    int32_t strandId = 0;
    bool enabled = true;
    std::shared_ptr<const ZoneGeometry> geometry;  // may be empty: a zone without a surface
};

}  // namespace vexhost

#endif
