#include "animation/AnimationManager.h"

#include <stdexcept>
#include <string>

#include "addon/DisplayListSuspender.h"
#include "addon/KeyFrameError.h"
#include "addon/LockScope.h"
#include "addon/PercentDoneScope.h"
#include "animation/AnimatorAbstractFactory.h"
#include "macro/AddOnMacroCommandManager.h"
#include "model/Destination_e.h"
#include "model/TotalFrameCount.h"
#include "vxsdkbase.h"

namespace vexplot {
namespace vexutiltools {

namespace {

uint64_t sumOfFrameCounts(const std::vector<KeyFrame_s>& keyFrames, uint64_t first,
                          uint64_t count) {
    uint64_t sum = 0;
    for (uint64_t i = first; i < first + count; ++i)
        sum += keyFrames[static_cast<std::size_t>(i)].frameCount;
    return sum;
}

// The first frame of the run. Checks the range first, so a bad one fails before the chain moves
// the host's view.
uint64_t startFrameOf(const std::vector<KeyFrame_s>& keyFrames, uint64_t first, uint64_t count) {
    const uint64_t size = keyFrames.size();
    if (count == size)
        return 0;
    if (first > size || count >= size - first)
        throw std::invalid_argument("AnimationManager::AnimationManager: a run from key frame " +
                                    std::to_string(first) + " over " + std::to_string(count) +
                                    " key frames does not end on a key frame of a list of " +
                                    std::to_string(size));
    return sumOfFrameCounts(keyFrames, 0, first);
}

uint64_t endFrameOf(const std::vector<KeyFrame_s>& keyFrames, uint64_t first, uint64_t count,
                    uint64_t start) {
    if (count == keyFrames.size())
        return totalFrameCount(keyFrames);
    return start + 1 + sumOfFrameCounts(keyFrames, first, count);
}

}  // namespace

AnimationManager::AnimationManager(const std::vector<KeyFrame_s>& keyFrames, uint64_t first,
                                   uint64_t count, const AnimationSettings_s& settings)
    : startFrame_(startFrameOf(keyFrames, first, count)),
      endFrame_(endFrameOf(keyFrames, first, count, startFrame_)),
      currentFrame_(startFrame_),
      chain_(AnimatorAbstractFactory().createAnimator(keyFrames, settings)) {}

AnimationManager::~AnimationManager() = default;

void AnimationManager::animate(const std::vector<KeyFrame_s>& keyFrames, uint64_t first,
                               uint64_t count, const AnimationSettings_s& settings,
                               int32_t suppressRecording) {
    LockScope lock;
    if (VexUtilFrameGetPlotType() != VexPlotType_Cartesian3D)
        throw KeyFrameError("The current frame must be in 3D Cartesian mode.");

    // Declared in this order so that they end in the reverse one: display lists back, status
    // finished, chain destroyed (stages restored, export finished), then the lock released.
    AnimationManager manager(keyFrames, first, count, settings);
    PercentDoneScope progress(ProgressText, PercentDoneScope::WithCancelHint,
                              manager.endFrame_ - manager.startFrame_ + 1);
    DisplayListSuspender displayLists;

    if (!manager.runFrames(progress)) {
        manager.chain_->cancel();
        VexUtilRedraw(true);
        throw KeyFrameError(Canceled);
    }

    if (suppressRecording == RecordMacro && VexUtilMacroIsRecordingActive())
        AddOnMacroCommandManager::instance().recordCommand(
            Command_e::Animate,
            {{Parameter_e::AnimationDestination,
              NameTable<Destination_e>::instance().getName(settings.Destination)}});
}

bool AnimationManager::runFrames(PercentDoneScope& progress) {
    while (currentFrame_ != endFrame_) {
        if (progress.isCanceled())
            break;
        chain_->animateFrame(currentFrame_);
        ++currentFrame_;
        progress.step();
    }
    // Stop at the last frame's check still cancels: the user asked for it.
    return !progress.isCanceled();
}

}  // namespace vexutiltools
}  // namespace vexplot
