#ifndef VEXUTILTOOLS_ANIMATORFADE_H
#define VEXUTILTOOLS_ANIMATORFADE_H

#include <cstdint>
#include <memory>
#include <vector>

#include "animation/AnimatorAbstract.h"
#include "model/AnimationSettings_s.h"
#include "vxtoolbox.h"

namespace vexplot {
namespace vexutiltools {

// Fades the scene's lighting in at the start of the run and out at its end, by scaling the light
// source intensity and the background light of ("GlobalThreeD", "LightSource") by one factor. The
// 3D frame axis is hidden while the stage exists, so it does not stand in the fading picture.
//
// The fade length F, in frames of the whole key frame list (T frames): 30 when T is greater than
// 90, otherwise T * 0.1 truncated. The jump from 9 frames at T = 90 to 30 at T = 91 is deliberate:
// short runs fade over a tenth of their length, longer runs over a fixed 30 frames.
//   fade in (frames 0 .. F):       factor f / F     (at F = 0 frame 0 writes 0 / 0, a NaN, kept)
//   fade out (frames T-F .. T-1):  factor (T - 1 - f) / F
// Fade in is tested first. Frames outside both fades write nothing, so the middle of the run keeps
// the saved lighting that the last fade-in frame wrote.
//
// Construction reads the two lighting values and the axis visibility ("ThreeDAxis", "FrameAxis",
// "Show") and hides the axis; destruction writes all three back, after a cancel or a failure too.
// A value whose read the host refuses is left alone for the whole run (not faded, not hidden, not
// written back): the stage changes only what it can put back.
class AnimatorFade : public AnimatorAbstract {
public:
    AnimatorFade(const std::vector<KeyFrame_s>& keyFrames, const AnimationSettings_s& settings,
                 std::unique_ptr<AnimatorInterface> successor);
    ~AnimatorFade() override;

    uint64_t getFadeInFrameCount() const { return fadeInFrameCount_; }
    uint64_t getFadeOutFrameCount() const { return fadeOutFrameCount_; }

protected:
    void doAnimateFrame(uint64_t frame) override;

private:
    uint64_t fadeInFrameCount_ = 0;   // 0 when fade in is off
    uint64_t fadeOutFrameCount_ = 0;  // 0 when fade out is off
    double savedIntensity_ = 0.0;
    double savedBackgroundLight_ = 0.0;
    bool fadeInEnabled_ = false;
    bool savedAxisShow_ = true;
    // Which of the three values the host let the stage read (and so change and put back).
    bool intensityRead_ = false;
    bool backgroundLightRead_ = false;
    bool axisShowRead_ = false;
    vexplot::toolbox::StyleValue lightSource_;
};

}  // namespace vexutiltools
}  // namespace vexplot

#endif
