#include "animation/AnimatorTime.h"

#include <utility>

#include "addon/CheckedAt.h"
#include "addon/KeyFrameError.h"
#include "model/EnabledZoneSolutionTimeRange.h"
#include "vxsdkbase.h"

namespace vexplot {
namespace vexutiltools {

namespace {

// The solution time range that Forward, Loop and Bounce run over. Without an enabled zone there is
// no range at all; refusing the run is clearer than inventing one.
void requireTimeRange(double& minTime, double& maxTime) {
    if (!getEnabledZoneSolutionTimeRange(minTime, maxTime))
        throw KeyFrameError(AnimatorTime::NoEnabledZone);
}

}  // namespace

AnimatorTime::AnimatorTime(const std::vector<KeyFrame_s>& keyFrames,
                           const AnimationSettings_s& settings,
                           std::unique_ptr<AnimatorInterface> successor)
    : AnimatorAbstract(keyFrames, std::move(successor)) {
    // The base has refused lists of fewer than two key frames before anything is configured.
    reserveFrames(solutionTimes_, getTotalFrameCount());
    switch (settings.TimeAnimationOperation) {
        case TimeAnimationOperation_e::Forward:
            configureForward(1);
            break;
        case TimeAnimationOperation_e::Loop:
            configureForward(settings.NumCycles);
            break;
        case TimeAnimationOperation_e::Bounce:
            configureBounce(settings.NumCycles);
            break;
        case TimeAnimationOperation_e::AsCaptured:
            configureAsCaptured(keyFrames);
            break;
    }
}

AnimatorTime::~AnimatorTime() = default;

void AnimatorTime::evenlySpacedTimes(double a, double b, uint64_t count,
                                     std::vector<double>& times) {
    times.clear();
    times.reserve(static_cast<std::size_t>(count));
    if (count == 1) {
        times.push_back(a);
        return;
    }
    for (uint64_t i = 0; i < count; ++i)
        times.push_back(a + static_cast<double>(i) * (b - a) / static_cast<double>(count - 1));
}

void AnimatorTime::doAnimateFrame(uint64_t frame) {
    VexUtilSolutionTimeSetCurrent(checkedAt(solutionTimes_, frame));
}

void AnimatorTime::configureForward(uint64_t cycles) {
    if (cycles == 0)
        throw KeyFrameError(NoCycles);
    double minTime = 0.0;
    double maxTime = 0.0;
    requireTimeRange(minTime, maxTime);

    std::vector<double> run;
    evenlySpacedTimes(minTime, maxTime, getTotalFrameCount() / cycles, run);
    // With more cycles than frames the runs are empty: skipping them gives the same list without
    // spinning through the cycles.
    if (!run.empty())
        for (uint64_t cycle = 0; cycle < cycles; ++cycle)
            solutionTimes_.insert(solutionTimes_.end(), run.begin(), run.end());
    padWith(maxTime);
}

void AnimatorTime::configureBounce(uint64_t cycles) {
    if (cycles == 0)
        throw KeyFrameError(NoCycles);
    double minTime = 0.0;
    double maxTime = 0.0;
    requireTimeRange(minTime, maxTime);

    std::vector<double> run;
    evenlySpacedTimes(minTime, maxTime, getTotalFrameCount() / cycles / 2, run);
    if (!run.empty())
        for (uint64_t cycle = 0; cycle < cycles; ++cycle) {
            solutionTimes_.insert(solutionTimes_.end(), run.begin(), run.end());
            solutionTimes_.insert(solutionTimes_.end(), run.rbegin(), run.rend());
        }
    padWith(maxTime);
}

void AnimatorTime::configureAsCaptured(const std::vector<KeyFrame_s>& keyFrames) {
    std::vector<double> segment;
    for (std::size_t i = 0; i + 1 < keyFrames.size(); ++i) {
        evenlySpacedTimes(keyFrames[i].solutionTime, keyFrames[i + 1].solutionTime,
                          keyFrames[i].frameCount + 1, segment);
        // The segment's last time is the next key frame's, which starts the next segment.
        if (!segment.empty())
            solutionTimes_.insert(solutionTimes_.end(), segment.begin(), segment.end() - 1);
    }
    solutionTimes_.push_back(keyFrames.back().solutionTime);
}

void AnimatorTime::padWith(double time) {
    if (solutionTimes_.size() < getTotalFrameCount())
        solutionTimes_.resize(static_cast<std::size_t>(getTotalFrameCount()), time);
}

}  // namespace vexutiltools
}  // namespace vexplot
