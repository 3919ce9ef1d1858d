#include "model/TotalFrameCount.h"

namespace vexplot {
namespace vexutiltools {

uint64_t totalFrameCount(const std::vector<KeyFrame_s>& keyFrames) {
    uint64_t total = 1;
    for (std::size_t i = 0; i + 1 < keyFrames.size(); ++i)
        total += keyFrames[i].frameCount;
    return total;
}

}  // namespace vexutiltools
}  // namespace vexplot
