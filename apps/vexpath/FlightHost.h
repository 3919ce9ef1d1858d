// The host as vexplot sets it up for a run, for the flights of vexpath: reset, the key frame add-on
// loaded from its library as a real host loads a plug-in, and one 3D frame showing the scene of
// the run (RunScene: the demo, nothing or a data file, in a frame of the run's size), its view
// fitted to the data. Flights made here turn about the same rotation origin as in vexplot with the
// same --data, so they are the flights vexplot animates.
//
// The host is the process's one host: one FlightHost at a time.
#ifndef VEXPLOT_PATH_FLIGHTHOST_H
#define VEXPLOT_PATH_FLIGHTHOST_H

#include <memory>
#include <string>

#include "FlightViews.h"
#include "RunOptions.h"
#include "vexhost/AddOnLibrary.h"
#include "vexhost/Host.h"
#include "vexhost/View3D.h"

namespace vexplot {
namespace path {

class FlightHost {
public:
    // scene: the options of a vexplot run that make its scene (data, dataPath, dataOptions, width,
    // height, demoTriangles). Throws std::runtime_error when the add-on library cannot be loaded
    // or the host saw it misbehave while it registered, vexhost::DataFileError when the data file
    // cannot be read.
    FlightHost(const app::RunOptions& scene, const std::string& addOnPath);
    // Ends as a vexplot run ends (the shutting-down state change) and resets the host before the
    // add-on's library closes, so that nothing in the host points into it any more.
    ~FlightHost();
    FlightHost(const FlightHost&) = delete;
    FlightHost& operator=(const FlightHost&) = delete;

    vexhost::Host& host() const { return host_; }
    // The view of the scene's frame: fitted to the data, as vexplot starts a run.
    const vexhost::View3D& view() const;
    // The host's current solution time: the data's first time step.
    double solutionTime() const;

    // FlightViews::fly and FlightViews::open on this host.
    flight::FlightViews fly(const std::string& keyFrameFile) const;
    flight::FlightViews open(const std::string& keyFrameFile) const;

private:
    vexhost::Host& host_;
    std::unique_ptr<vexhost::AddOnLibrary> addOn_;
};

}  // namespace path
}  // namespace vexplot

#endif
