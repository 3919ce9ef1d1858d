#include "animation/AnimatorAbstract.h"

#include <boost/format.hpp>
#include <limits>
#include <utility>

#include "addon/KeyFrameError.h"
#include "model/TotalFrameCount.h"

namespace vexplot {
namespace vexutiltools {

namespace {

// Whether the frame counts of the list add up beyond what 64 bits count: the total would wrap
// round to a small number, and a run would then be sized by it while its segments run on for
// ever.
bool totalOverflows(const std::vector<KeyFrame_s>& keyFrames) {
    uint64_t total = 1;
    for (std::size_t i = 0; i + 1 < keyFrames.size(); ++i) {
        if (keyFrames[i].frameCount > std::numeric_limits<uint64_t>::max() - total)
            return true;
        total += keyFrames[i].frameCount;
    }
    return false;
}

}  // namespace

AnimatorAbstract::AnimatorAbstract(const std::vector<KeyFrame_s>& keyFrames,
                                   std::unique_ptr<AnimatorInterface> successor)
    : successor_(std::move(successor)), totalFrameCount_(0) {
    if (keyFrames.size() < 2)
        throw KeyFrameError(TooFewKeyFrames);
    if (totalOverflows(keyFrames))
        throw KeyFrameError(
            (boost::format("Unable to animate more than %1% frames: there is not enough memory.") %
             std::numeric_limits<uint64_t>::max())
                .str());
    totalFrameCount_ = totalFrameCount(keyFrames);
}

AnimatorAbstract::~AnimatorAbstract() = default;

void AnimatorAbstract::animateFrame(uint64_t frame) {
    doAnimateFrame(frame);
    if (successor_)
        successor_->animateFrame(frame);
}

void AnimatorAbstract::cancel() {
    if (successor_)
        successor_->cancel();
}

void AnimatorAbstract::throwTooManyFrames(uint64_t count) {
    throw KeyFrameError(
        (boost::format("Unable to animate %1% frames: there is not enough memory.") % count).str());
}

}  // namespace vexutiltools
}  // namespace vexplot
