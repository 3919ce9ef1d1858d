#ifndef VEXUTILTOOLS_ANIMATIONMANAGER_H
#define VEXUTILTOOLS_ANIMATIONMANAGER_H

#include <cstdint>
#include <memory>
#include <vector>

#include "animation/AnimatorInterface.h"
#include "model/AnimationSettings_s.h"
#include "model/KeyFrame_s.h"

namespace vexplot {
namespace vexutiltools {

class PercentDoneScope;

// One animation run over a range of key frames (animate): the chain of animator stages, built
// from the whole key frame list by AnimatorAbstractFactory, and the frames to run.
//
// Frame range: when the range covers the whole list (count equals the list size) the frames are
// 0 .. totalFrameCount - 1. Otherwise the run starts at the frame of key frame `first` (the sum of
// the frame counts before it) and ends on the frame of key frame `first + count`: callers that
// animate a selection pass count = last selected - first selected, deliberately not plus one.
// Frame numbers are always those of the whole list, so stages that depend on the frame number
// (fade, time) act as they would in a whole run.
//
// The manager owns the chain; destroying it destroys the chain from the head to the terminal
// stage, which puts back what the stages changed and finishes an export.
class AnimationManager {
public:
    // Builds the chain and the range; see animate for what may fail. A range outside the list
    // (first + count past its end, or a partial range with no key frame at first + count to end
    // on) is a programming error: std::invalid_argument naming it, before anything is built.
    AnimationManager(const std::vector<KeyFrame_s>& keyFrames, uint64_t first, uint64_t count,
                     const AnimationSettings_s& settings);
    virtual ~AnimationManager();

    AnimationManager(const AnimationManager&) = delete;
    AnimationManager& operator=(const AnimationManager&) = delete;

    uint64_t getStartFrame() const { return startFrame_; }
    // One past the last frame of the run.
    uint64_t getEndFrame() const { return endFrame_; }

    // Runs an animation, under the host lock from start to end:
    //   1. the active frame must be 3D Cartesian, else KeyFrameError "The current frame must be
    //      in 3D Cartesian mode." before anything is built;
    //   2. the chain is built (the views are computed under their own progress status);
    //   3. under the status "Animating...." (total: the number of frames plus one, deliberately,
    //      so the bar never quite reaches its end) and with the host's display lists off, each
    //      frame goes to the chain, and the status is checked after each frame;
    //   4. Stop cancels the chain, redraws the host and raises KeyFrameError "Animation
    //      canceled.";
    //   5. unless suppressRecording is non-zero, the host's macro recorder (while it runs)
    //      receives "Animate AnimationDestination=<OnScreen|ToFile>"; a destination without a
    //      name raises std::out_of_range "Enumeration out of range.".
    // On every path the display lists are switched back, the status finished, the chain destroyed
    // and the lock released, in that order. After a normal run the host stays at the view, time
    // and lighting of the last frame run.
    static void animate(const std::vector<KeyFrame_s>& keyFrames, uint64_t first, uint64_t count,
                        const AnimationSettings_s& settings, int32_t suppressRecording);

    // The values of animate's suppressRecording. A run that the macro command "Animate" would not
    // replay alike (a part of the list, a benchmark, a test of the stages) suppresses recording.
    static constexpr int32_t RecordMacro = 0;
    static constexpr int32_t SuppressMacroRecording = 1;

    static constexpr const char* ProgressText = "Animating....";
    static constexpr const char* Canceled = "Animation canceled.";

private:
    // Runs the frames from the current one to the end, one status check per frame; false when
    // the user pressed Stop (the chain is then left to the caller to cancel).
    bool runFrames(PercentDoneScope& progress);

    uint64_t startFrame_;
    uint64_t endFrame_;
    uint64_t currentFrame_;
    std::unique_ptr<AnimatorInterface> chain_;  // owns the head of the chain
};

}  // namespace vexutiltools
}  // namespace vexplot

#endif
