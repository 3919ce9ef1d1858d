#ifndef VEXUTILTOOLS_TOTALFRAMECOUNT_H
#define VEXUTILTOOLS_TOTALFRAMECOUNT_H

#include <cstdint>
#include <vector>

#include "model/KeyFrame_s.h"

namespace vexplot {
namespace vexutiltools {

// The number of frames of an animation over the key frames: 1 (the last key frame's own frame)
// plus the frame counts of every key frame but the last, whose frame count never counts. Summed in
// unsigned 64-bit arithmetic. An empty list gives 1 as well (the sum is empty); animations refuse
// lists of fewer than two key frames before they count.
uint64_t totalFrameCount(const std::vector<KeyFrame_s>& keyFrames);

}  // namespace vexutiltools
}  // namespace vexplot

#endif
