// The key frames the animation benchmarks run: two views turned in every angle and moved, so that
// each interpolated view exercises every rotation and the translation.
#ifndef VEXBENCH_BENCHKEYFRAMES_H
#define VEXBENCH_BENCHKEYFRAMES_H

#include <cstdint>
#include <vector>

#include "model/KeyFrame_s.h"
#include "support/KeyFrameData.h"

namespace vexbench {

inline vexplot::vexutiltools::KeyFrame_s keyFrame(double psi, double theta, double alpha, double x,
                                                  uint64_t frameCount) {
    return vextest::keyFrame("View", {x, -15, 10, psi, theta, alpha, 10}, frameCount);
}

// Two key frames `frames` frames apart: a run of frames + 1.
inline std::vector<vexplot::vexutiltools::KeyFrame_s> twoKeyFrames(uint64_t frames) {
    return {keyFrame(60, 30, 0, 8.66, frames), keyFrame(75, -40, 20, 2, 1)};
}

}  // namespace vexbench

#endif
