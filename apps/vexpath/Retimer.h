// vexpath retime's arithmetic: new frame counts that make the camera move at a constant speed, by
// SpeedMeasure, over the whole flight.
//
// Legs that hold still (the same view at both ends) and cuts (a frame count of 1) are what the
// user made them and keep their counts. The other legs share the rest of the frames in proportion
// to their lengths, each at least one frame; with ease, the first and the last leg count
// EaseSlowdown times their length, so the camera flies them at that fraction of the speed. The
// counts are whole numbers: each leg's count is its share rounded, then whole frames are moved
// one at a time from the leg that would be least sped up by losing one, or to the leg that is
// fastest, until the total is met, so that no leg's speed is off by more than the rounding of
// one frame.
#ifndef VEXPLOT_PATH_RETIMER_H
#define VEXPLOT_PATH_RETIMER_H

#include <cstdint>
#include <vector>

#include "FlightHost.h"
#include "FlightViews.h"

namespace vexplot {
namespace path {

using flight::FlightViews;
using flight::KeyFrame_s;

class Retimer {
public:
    // How much slower --ease flies the first and the last leg.
    static constexpr double EaseSlowdown = 2;
    // The frames a leg is flown with to measure it: enough that the sum of its frames' steps
    // is its path's own length to far better than a part in a thousand, whatever counts it had.
    static constexpr uint64_t SampleFrames = 100;

    // The length of each leg as the add-on flies it with SampleFrames frames a leg (the file's
    // key frames written again with those counts to a scratch file and flown on `host`).
    static std::vector<double> sampledLegLengths(const FlightHost& host, const FlightViews& flight);

    // The key frames' new frame counts (the last key frame's is kept: it counts for nothing) for
    // `totalFrames` frames in all, from the legs' lengths. std::runtime_error, with a message for
    // the user, when nothing moves or the frames are too few for the legs that move to have one
    // each besides what the holds and cuts keep.
    static std::vector<uint64_t> frameCounts(const std::vector<KeyFrame_s>& keyFrames,
                                             const std::vector<double>& lengths,
                                             uint64_t totalFrames, bool ease);
};

}  // namespace path
}  // namespace vexplot

#endif
