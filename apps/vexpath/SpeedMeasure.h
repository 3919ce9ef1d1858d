// How far the camera goes from one view to another, in one number: the measure by which vexpath
// check finds speed jumps and vexpath retime makes the speed constant (docs/camera-paths.md).
//
// Every kind of motion is counted by how far it moves what the picture shows, in widths of the
// picture, at the picture's edge (half a view width from its centre):
//   turn   the three view angles' changes, each the short way as the add-on turns them, taken
//          together as the length of the vector (dpsi, dtheta, dalpha); a turn of a radians moves
//          the edge by a / 2 widths: TurnPerDegree widths a degree (a quarter turn: 0.785)
//   move   the viewer's movement divided by the view width (the geometric mean of the two):
//          moving by one view width moves the whole picture by one width
//   zoom   |ln(w1 / w0)| / 2: the edge moves by half the relative change of the width (zooming
//          in or out by a factor of two: 0.347)
// A step's length is the length of the vector (turn, move, zoom); a leg's length is the sum of the
// lengths of its frames' steps, measured on the add-on's own views, so the viewer's movement
// follows the arcs the add-on's rotations carry it along, not the chords between key frames.
// Widths must be above 0, as every view the host draws has.
#ifndef VEXPLOT_PATH_SPEEDMEASURE_H
#define VEXPLOT_PATH_SPEEDMEASURE_H

#include <vector>

#include "FlightViews.h"

namespace vexplot {
namespace path {

using flight::FlightViews;
using flight::KeyFrameView_s;

class SpeedMeasure {
public:
    // Picture widths a degree of turn: pi / 360.
    static const double TurnPerDegree;

    // The three view angles' changes from a to b, each the short way, taken together (degrees).
    static double turnDegrees(const KeyFrameView_s& a, const KeyFrameView_s& b);
    // Whether a and b are the same view: the same position and width, and every angle the same
    // the short way. A step of no length, and a leg that holds still.
    static bool still(const KeyFrameView_s& a, const KeyFrameView_s& b);
    // The length of the step from a to b.
    static double step(const KeyFrameView_s& a, const KeyFrameView_s& b);
    // The length of each leg of the flight: its frames' steps, from its key frame's frame to the
    // next key frame's, summed.
    static std::vector<double> legLengths(const FlightViews& flight);
    // The viewer's movement over each leg, in data units: its frames' steps summed.
    static std::vector<double> legDistances(const FlightViews& flight);
};

}  // namespace path
}  // namespace vexplot

#endif
