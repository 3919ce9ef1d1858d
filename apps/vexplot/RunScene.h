// The one 3D frame of a vexplot run: a new 3D Cartesian frame of the run's size (--size) on top of
// the host's frames, showing the data set the run asked for (--data: the demo with the run's
// colour map, nothing, or a data file), its view fitted to the data. The scene every vexplot run
// animates in, and the one whose rotation origin the camera path tools turn about.
#ifndef VEXPLOT_APP_RUNSCENE_H
#define VEXPLOT_APP_RUNSCENE_H

#include <string>
#include <vector>

#include "RunOptions.h"
#include "vexhost/Host.h"

namespace vexplot {
namespace app {

class RunScene {
public:
    // Throws vexhost::DataFileError when the data file cannot be read; the frame is there then,
    // empty.
    static void show(vexhost::Host& host, const RunOptions& options);
    // The options that set the same scene up in another program of the project (vexpath's scene
    // options): --data, --hide-block, --size, and --addon when one was given.
    static std::vector<std::string> arguments(const RunOptions& options);
};

}  // namespace app
}  // namespace vexplot

#endif
