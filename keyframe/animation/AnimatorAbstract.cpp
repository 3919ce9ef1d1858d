#include "animation/AnimatorAbstract.h"

#include <boost/format.hpp>
#include <utility>

#include "addon/KeyFrameError.h"
#include "model/TotalFrameCount.h"

namespace vexplot {
namespace vexutiltools {

AnimatorAbstract::AnimatorAbstract(const std::vector<KeyFrame_s>& keyFrames,
                                   std::unique_ptr<AnimatorInterface> successor)
    : successor_(std::move(successor)), totalFrameCount_(0) {
    if (keyFrames.size() < 2)
        throw KeyFrameError(TooFewKeyFrames);
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
