#ifndef VEXUTILTOOLS_ANIMATORABSTRACTFACTORY_H
#define VEXUTILTOOLS_ANIMATORABSTRACTFACTORY_H

#include <memory>
#include <vector>

#include "animation/AnimatorInterface.h"
#include "model/AnimationSettings_s.h"
#include "model/KeyFrame_s.h"

namespace vexplot {
namespace vexutiltools {

// Builds the chain of animator stages of one run from the key frame list and the settings, from
// the end backwards, each stage owning the one built before it:
//   1. AnimatorToFile when the destination is not OnScreen, otherwise AnimatorOnScreen;
//   2. AnimatorTime when AnimateTime;
//   3. AnimatorStreams when AnimateStreamtraces;
//   4. AnimatorFade when FadeIn or FadeOut;
//   5. AnimatorKeyFrame, always, at the head (its construction computes every view).
// So each frame gets, in order: the view, the lighting, the streamtrace anchor, the solution time,
// and then the redraw or the exported movie frame.
//
// A stage that refuses (fewer than two key frames, a time animation without zones, Stop while the
// views are computed) ends the building with its KeyFrameError; the stages built so far are
// destroyed on the way out and put back what they changed.
class AnimatorAbstractFactory {
public:
    AnimatorAbstractFactory() = default;
    virtual ~AnimatorAbstractFactory() = default;

    // The head of the chain, owned by the caller.
    std::unique_ptr<AnimatorInterface> createAnimator(const std::vector<KeyFrame_s>& keyFrames,
                                                      const AnimationSettings_s& settings) const;
};

}  // namespace vexutiltools
}  // namespace vexplot

#endif
