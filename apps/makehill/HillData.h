// The example data set "hill": an afternoon of wind over a hilly piece of land, as a simulation of
// the field would leave it, made here with VTK's own writers (nothing downloaded). Five hourly
// steps (solution times 12 to 16) in a .pvd, each a multiblock .vtm of two blocks:
// - "ground": the terrain, a polygonal surface of 96 x 64 quads over 10 km x 6 km (lengths in km,
//   heights exaggerated), with the point arrays "temperature" (deg C: warmed where the sun stands
//   and cooler with height) and "elevation";
// - "air": the air above it, a terrain-following structured grid up to 3 km, with the point
//   arrays "velocity" (km per minute: a westerly that turns and strengthens over the afternoon,
//   lifted over the hills and slowed near the ground) and "temperature".
// Deterministic: the same files every run.
#ifndef VEXPLOT_APP_HILLDATA_H
#define VEXPLOT_APP_HILLDATA_H

#include <string>

namespace vexplot {
namespace app {

class HillData {
public:
    static constexpr int StepCount = 5;
    static constexpr double FirstTime = 12;  // solution time of the first step (hours)

    // Writes hill.pvd and hill_<step>.vtm with their block files into `folder` (created if
    // missing). Throws std::runtime_error naming a file that cannot be written.
    static void write(const std::string& folder);

    // The terrain height at (x, y) in km.
    static double height(double x, double y);
};

}  // namespace app
}  // namespace vexplot

#endif
