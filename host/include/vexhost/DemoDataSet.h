// The built-in transient data set: a wavy surface over the square [-1, 1] x [-1, 1] that changes
// with time, and streamtraces that run over it. Made for looking at: the surface's height and
// scalar move from one time step to the next, and the streamtraces carry travel times for markers
// and dashes.
//
// Zones: one per time step, all of strand 1, named "Surface t=<time>", at the times
// endTime * i / (timeStepCount - 1) (0, 0.2, 0.4, 0.6, 0.8 and 1 by default; a single step is at
// 0). Every zone has its own geometry: the height and scalar at its time, with smooth vertex
// normals. Streamtraces start near x = -1 and run towards x = 1 above the surface, spread over y,
// each with travel times from 0 that grow unevenly (the flow speeds up and slows down).
//
// Plain data: a host data set takes the zones and streamtraces as they are.
#ifndef VEXHOST_DEMODATASET_H
#define VEXHOST_DEMODATASET_H

#include <memory>
#include <string>
#include <vector>

#include "vexhost/Streamtrace.h"
#include "vexhost/ZoneGeometry.h"

namespace vexhost {

class DemoDataSet {
public:
    struct Options {
        int triangleCount = 20000;  // per zone, rounded to a square grid of 2 * n * n triangles
        int timeStepCount = 6;
        double endTime = 1.0;
        int streamtraceCount = 4;
    };

    struct Zone {
        std::string name;
        double solutionTime = 0;
        int strandId = 0;
        std::shared_ptr<const ZoneGeometry> geometry;
    };

    // Throws std::invalid_argument for a triangle count below 2, a time step count below 1, an end
    // time that is negative or not finite (or 0 with several steps), or a negative streamtrace
    // count.
    static DemoDataSet build();
    static DemoDataSet build(const Options& options);

    std::vector<Zone> zones;
    std::vector<std::shared_ptr<const Streamtrace>> streamtraces;
    // The scalar range over every zone, and the box around every zone and streamtrace.
    float scalarMin = 0, scalarMax = 1;
    float boundsMin[3] = {0, 0, 0}, boundsMax[3] = {0, 0, 0};
};

}  // namespace vexhost

#endif
