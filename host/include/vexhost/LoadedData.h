// A data file as the host shows it, read completely before anything of the host changes: the
// zones (triangulated surfaces with one scalar per vertex, or none), the streamtraces computed
// from it, the name of the colouring array as the legend shows it, and the box around it all.
#ifndef VEXHOST_LOADEDDATA_H
#define VEXHOST_LOADEDDATA_H

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "vexhost/Streamtrace.h"
#include "vexhost/Zone.h"

namespace vexhost {

struct LoadedData {
    std::vector<Zone> zones;
    std::vector<std::shared_ptr<const Streamtrace>> streamtraces;
    // Empty when the surfaces are not coloured by an array.
    std::string colourVariable;
    float boundsMin[3] = {0, 0, 0};
    float boundsMax[3] = {0, 0, 0};
    // The solution times of the steps, ascending; one 0 for a single file without a time.
    std::vector<double> times;

    std::size_t triangleCount() const;
};

}  // namespace vexhost

#endif
