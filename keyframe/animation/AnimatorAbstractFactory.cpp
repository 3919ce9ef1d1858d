#include "animation/AnimatorAbstractFactory.h"

#include "animation/AnimatorFade.h"
#include "animation/AnimatorKeyFrame.h"
#include "animation/AnimatorOnScreen.h"
#include "animation/AnimatorStreams.h"
#include "animation/AnimatorTime.h"
#include "animation/AnimatorToFile.h"

namespace vexplot {
namespace vexutiltools {

std::unique_ptr<AnimatorInterface> AnimatorAbstractFactory::createAnimator(
    const std::vector<KeyFrame_s>& keyFrames, const AnimationSettings_s& settings) const {
    std::unique_ptr<AnimatorInterface> chain;
    // Any destination but the screen exports, as the destination's numbers promise.
    if (settings.Destination != Destination_e::OnScreen)
        chain = std::make_unique<AnimatorToFile>(keyFrames);
    else
        chain = std::make_unique<AnimatorOnScreen>(keyFrames);
    if (settings.AnimateTime)
        chain = std::make_unique<AnimatorTime>(keyFrames, settings, std::move(chain));
    if (settings.AnimateStreamtraces)
        chain = std::make_unique<AnimatorStreams>(keyFrames, std::move(chain));
    if (settings.FadeIn || settings.FadeOut)
        chain = std::make_unique<AnimatorFade>(keyFrames, settings, std::move(chain));
    return std::make_unique<AnimatorKeyFrame>(keyFrames, std::move(chain));
}

}  // namespace vexutiltools
}  // namespace vexplot
