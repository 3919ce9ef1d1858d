#include "animation/AnimatorFade.h"

#include <utility>

namespace vexplot {
namespace vexutiltools {

namespace {

vexplot::toolbox::StyleValue frameAxisShow() {
    return vexplot::toolbox::StyleValue("ThreeDAxis", "FrameAxis", "Show");
}

}  // namespace

AnimatorFade::AnimatorFade(const std::vector<KeyFrame_s>& keyFrames,
                           const AnimationSettings_s& settings,
                           std::unique_ptr<AnimatorInterface> successor)
    : AnimatorAbstract(keyFrames, std::move(successor)),
      lightSource_("GlobalThreeD", "LightSource") {
    const uint64_t total = getTotalFrameCount();
    const uint64_t fadeLength =
        total > 90 ? 30 : static_cast<uint64_t>(static_cast<double>(total) * 0.1);
    if (settings.FadeIn) {
        fadeInEnabled_ = true;
        fadeInFrameCount_ = fadeLength;
    }
    if (settings.FadeOut)
        fadeOutFrameCount_ = fadeLength;

    // A value made up in place of a refused read would be written back at the end, changing the
    // user's scene for good: such a value is not touched at all.
    intensityRead_ = lightSource_.get(savedIntensity_, "Intensity") == VexGetValue_Ok;
    backgroundLightRead_ =
        lightSource_.get(savedBackgroundLight_, "BackgroundLight") == VexGetValue_Ok;
    const vexplot::toolbox::StyleValue axisShow = frameAxisShow();
    axisShowRead_ = axisShow.get(savedAxisShow_) == VexGetValue_Ok;
    if (axisShowRead_)
        axisShow.set(false);
}

AnimatorFade::~AnimatorFade() {
    if (intensityRead_)
        lightSource_.set(savedIntensity_, "Intensity");
    if (backgroundLightRead_)
        lightSource_.set(savedBackgroundLight_, "BackgroundLight");
    if (axisShowRead_)
        frameAxisShow().set(savedAxisShow_);
}

void AnimatorFade::doAnimateFrame(uint64_t frame) {
    const uint64_t total = getTotalFrameCount();
    double factor = 0.0;
    if (fadeInEnabled_ && frame <= fadeInFrameCount_) {
        // With a fade length of 0 this is 0 / 0 at frame 0: the NaN is written as it is.
        factor = static_cast<double>(frame) / static_cast<double>(fadeInFrameCount_);
    } else {
        if (frame < total - fadeOutFrameCount_)
            return;
        factor = static_cast<double>(total - 1 - frame) / static_cast<double>(fadeOutFrameCount_);
    }
    if (intensityRead_)
        lightSource_.set(factor * savedIntensity_, "Intensity");
    if (backgroundLightRead_)
        lightSource_.set(factor * savedBackgroundLight_, "BackgroundLight");
}

}  // namespace vexutiltools
}  // namespace vexplot
