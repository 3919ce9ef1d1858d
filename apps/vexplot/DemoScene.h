// The demo data set of vexplot (--data demo): the host's built-in transient data set
// (vexhost::DemoDataSet, default options) loaded into the host, streamtrace markers on, and the
// active frame's 3D view set to frame it. docs/vexplot.md lists its zones and times.
#ifndef VEXPLOT_APP_DEMOSCENE_H
#define VEXPLOT_APP_DEMOSCENE_H

#include "vexhost/DemoDataSet.h"
#include "vexhost/Frame.h"
#include "vexhost/Host.h"

namespace vexplot {
namespace app {

class DemoScene {
public:
    // Marker spacing in travel time: about ten markers along each demo streamtrace.
    static constexpr double MarkerDeltaTime = 0.2;

    // Adds the zones (one notification) and streamtraces to the host's data set, turns the
    // streamtrace markers on and fits the active frame's view to the data (Frame::fitView).
    // Needs an active frame (std::logic_error otherwise). triangleCount: the surface's triangles
    // at each time step (DemoDataSet::Options::triangleCount).
    static void load(vexhost::Host& host,
                     int triangleCount = vexhost::DemoDataSet::Options().triangleCount);
};

}  // namespace app
}  // namespace vexplot

#endif
