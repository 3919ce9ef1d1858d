#include "animation/AnimatorStreams.h"

#include <utility>

namespace vexplot {
namespace vexutiltools {

AnimatorStreams::AnimatorStreams(const std::vector<KeyFrame_s>& keyFrames,
                                 std::unique_ptr<AnimatorInterface> successor)
    : AnimatorAbstract(keyFrames, std::move(successor)),
      streamTiming_("StreamAttributes", "StreamTiming") {
    timeAnchorRead_ = streamTiming_.get(savedTimeAnchor_, "TimeAnchor") == VexGetValue_Ok;
    currentTimeAnchor_ = savedTimeAnchor_;
    double deltaTime = 0.0;
    streamTiming_.get(deltaTime, "DeltaTime");
    // Five frames per delta time: markers glide rather than jump from one spacing to the next.
    anchorStep_ = deltaTime / 5.0;
}

AnimatorStreams::~AnimatorStreams() {
    if (timeAnchorRead_)
        streamTiming_.set(savedTimeAnchor_, "TimeAnchor");
}

void AnimatorStreams::doAnimateFrame(uint64_t /*frame*/) {
    // Moving an anchor that was never read would start from a made-up value and leave it there.
    if (!timeAnchorRead_)
        return;
    currentTimeAnchor_ += anchorStep_;
    streamTiming_.set(currentTimeAnchor_, "TimeAnchor");
}

}  // namespace vexutiltools
}  // namespace vexplot
