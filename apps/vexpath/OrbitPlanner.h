// vexpath orbit's key frames: one even turn of the camera about the vertical (z) axis through the
// rotation origin, from a start view.
//
// A turn about the vertical axis changes theta alone: the orientation Rz(theta) Rx(psi) Rz(alpha)
// turned by Rz(a) is Rz(theta + a) Rx(psi) Rz(alpha), and the viewer goes round the axis with it.
// That is exactly how the add-on turns a leg in which only theta changes: the host carries the
// viewer about the rotation origin. So every key frame is the start view with theta grown by its
// share of the turn and the viewer turned with it about the axis; psi, alpha and the width stay.
//
// Each frame turns by the same angle a = angle / (frames - 1): key frame k stands at frame F(k)
// and is turned by a * F(k), and the legs between share the frames as evenly as whole frames let,
// so a leg of n frames turns by n * a. The file holds each number to six significant digits, so a
// leg's turn is off by at most a thousandth of a degree and its frames' turns by that divided by
// its frame count, far inside the hundredth of a degree that makes a turn even.
//
// Legs turn by at most MaxLegDegrees: the add-on turns each leg the short way, and a leg far below
// a half turn goes round the way it was meant whatever the six-digit rounding does. A quarter turn
// keeps a margin of 90 degrees (the rounding is a thousandth of one) and makes a full turn four
// legs, which vexpath check passes without a word.
#ifndef VEXPLOT_PATH_ORBITPLANNER_H
#define VEXPLOT_PATH_ORBITPLANNER_H

#include <cstdint>
#include <vector>

#include "FlightViews.h"
#include "vexhost/View3D.h"

namespace vexplot {
namespace path {

using flight::KeyFrame_s;
using flight::KeyFrameView_s;

class OrbitPlanner {
public:
    static constexpr double MaxLegDegrees = 90;

    // The legs a turn by `angle` degrees takes: |angle| / MaxLegDegrees, rounded up.
    static uint64_t legsFor(double angle);

    // The key frames of a turn by `angle` degrees (counter-clockwise seen from above when
    // positive) about the vertical axis through `origin`, from `start`, in `frames` frames in
    // all, each at `solutionTime` and named "Orbit <degrees turned>". std::runtime_error, with a
    // message for the user, when the frames are too few to give every leg one.
    static std::vector<KeyFrame_s> plan(const KeyFrameView_s& start,
                                        const vexhost::View3D::Vector& origin, double angle,
                                        uint64_t frames, double solutionTime);
};

}  // namespace path
}  // namespace vexplot

#endif
