#ifndef VEXUTILTOOLS_ANIMATORTIME_H
#define VEXUTILTOOLS_ANIMATORTIME_H

#include <cstdint>
#include <memory>
#include <vector>

#include "animation/AnimatorAbstract.h"
#include "model/AnimationSettings_s.h"

namespace vexplot {
namespace vexutiltools {

// Steps the host's solution time along with the views: frame f makes the f-th entry of a list of
// times, computed once at construction, the current solution time. The host keeps the time of the
// last frame shown; nothing is put back.
//
// The list has one entry per frame of the whole key frame list (T entries), by operation:
//   Forward      as Loop with one cycle (NumCycles is not read)
//   Loop         n = T / C evenly spaced times from the minimum to the maximum of the enabled
//                zones' solution times, that run C times, then the maximum until T entries
//   Bounce       n = (T / C) / 2; each cycle the run and then the run reversed (the maximum stands
//                twice at each turn), then the maximum until T entries. Padding with the maximum,
//                not the minimum, is deliberate: with a remainder the last frames jump back up.
//   AsCaptured   from each key frame's captured solution time to the next one's over its frame
//                count, then the last key frame's time; the zones are not consulted
// An operation outside the list configures nothing, so the first frame then fails with
// std::out_of_range "invalid vector subscript" (settings read from files and dialogs cannot hold
// such a value).
//
// Refused at construction with KeyFrameError, before anything in the host changes:
//   Forward, Loop or Bounce with no enabled zone (the time range would be undefined);
//   Loop or Bounce with a cycle count of 0 (a division by zero).
class AnimatorTime : public AnimatorAbstract {
public:
    AnimatorTime(const std::vector<KeyFrame_s>& keyFrames, const AnimationSettings_s& settings,
                 std::unique_ptr<AnimatorInterface> successor);
    ~AnimatorTime() override;

    const std::vector<double>& getSolutionTimes() const { return solutionTimes_; }

    // Replaces `times` by `count` evenly spaced values a + i * (b - a) / (count - 1) for i = 0 ..
    // count - 1: the first exactly a, the last b up to rounding. A count of 1 gives a alone (the
    // formula would divide by zero; a run of one time starts, and so stays, at its start), a count
    // of 0 gives nothing.
    static void evenlySpacedTimes(double a, double b, uint64_t count, std::vector<double>& times);

    static constexpr const char* NoEnabledZone =
        "Unable to animate time: the data set has no enabled zone to take solution times from.";
    static constexpr const char* NoCycles =
        "Unable to animate time: the number of cycles must be at least 1.";

protected:
    void doAnimateFrame(uint64_t frame) override;

private:
    void configureForward(uint64_t cycles);
    void configureBounce(uint64_t cycles);
    void configureAsCaptured(const std::vector<KeyFrame_s>& keyFrames);
    void padWith(double time);

    std::vector<double> solutionTimes_;
};

}  // namespace vexutiltools
}  // namespace vexplot

#endif
