#ifndef VEXUTILTOOLS_ANIMATORSTREAMS_H
#define VEXUTILTOOLS_ANIMATORSTREAMS_H

#include <cstdint>
#include <memory>
#include <vector>

#include "animation/AnimatorAbstract.h"
#include "vxtoolbox.h"

namespace vexplot {
namespace vexutiltools {

// Moves streamtrace markers or dashes along their paths: every frame advances the time anchor
// ("StreamAttributes", "StreamTiming", "TimeAnchor") by a fifth of the host's delta time
// ("DeltaTime"). The frame number is not used, so the first frame already shows one step past the
// anchor the run started from. Destruction writes the saved anchor back, after a cancel or a
// failure too. Should the host refuse to read the anchor, the stage leaves it alone (markers stand
// still): it changes only what it can put back.
class AnimatorStreams : public AnimatorAbstract {
public:
    AnimatorStreams(const std::vector<KeyFrame_s>& keyFrames,
                    std::unique_ptr<AnimatorInterface> successor);
    ~AnimatorStreams() override;

    double getAnchorStep() const { return anchorStep_; }

protected:
    void doAnimateFrame(uint64_t frame) override;

private:
    double savedTimeAnchor_ = 0.0;
    double currentTimeAnchor_ = 0.0;
    bool timeAnchorRead_ = false;  // the anchor was read, so it may be moved and put back
    // 0 (markers stand still) should the host refuse the delta time.
    double anchorStep_ = 0.0;
    vexplot::toolbox::StyleValue streamTiming_;
};

}  // namespace vexutiltools
}  // namespace vexplot

#endif
