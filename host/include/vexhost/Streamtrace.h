// One streamtrace of the host's data set: a polyline with the travel time at each point. Markers
// are drawn at times TimeAnchor + k * DeltaTime along it; dashes cover the intervals from
// TimeAnchor + 2k * DeltaTime to TimeAnchor + (2k + 1) * DeltaTime.
#ifndef VEXHOST_STREAMTRACE_H
#define VEXHOST_STREAMTRACE_H

#include <vector>

namespace vexhost {

struct Streamtrace {
    std::vector<float> points;  // x, y, z per point
    std::vector<float> times;   // travel time at each point, ascending
};

}  // namespace vexhost

#endif
