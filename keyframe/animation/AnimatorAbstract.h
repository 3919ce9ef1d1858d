#ifndef VEXUTILTOOLS_ANIMATORABSTRACT_H
#define VEXUTILTOOLS_ANIMATORABSTRACT_H

#include <cstdint>
#include <exception>
#include <memory>
#include <vector>

#include "animation/AnimatorInterface.h"
#include "model/KeyFrame_s.h"

namespace vexplot {
namespace vexutiltools {

// The base of every animator stage: owns the stage after it and knows the total frame count of
// the key frame list. animateFrame runs the stage's own doAnimateFrame and then passes the frame
// on, so a stage implements only its own step; cancel is passed on unchanged.
//
// Construction refuses a list of fewer than two key frames with KeyFrameError "At least two
// keyFrame views must be established to perform an animation.", and a list whose frame counts add
// up beyond 2^64 - 1 frames with "Unable to animate more than 18446744073709551615 frames: there is
// not enough memory." (its total would otherwise wrap round to a small number); the successor
// handed in is then destroyed with the argument, so nothing it set up stays behind. Destruction
// runs the derived stage's destructor (which puts back what that stage changed) before the
// successor is destroyed, so a chain is torn down from the head to the terminal stage.
class AnimatorAbstract : public AnimatorInterface {
public:
    void animateFrame(uint64_t frame) final;
    void cancel() override;
    ~AnimatorAbstract() override;

    AnimatorAbstract(const AnimatorAbstract&) = delete;
    AnimatorAbstract& operator=(const AnimatorAbstract&) = delete;

    // The stage after this one, or null for the terminal stage. For inspecting a built chain.
    const AnimatorInterface* getSuccessor() const { return successor_.get(); }
    // 1 plus the frame counts of all key frames but the last.
    uint64_t getTotalFrameCount() const { return totalFrameCount_; }

    static constexpr const char* TooFewKeyFrames =
        "At least two keyFrame views must be established to perform an animation.";

protected:
    // Ownership of the successor (null for a terminal stage) passes to the new stage.
    AnimatorAbstract(const std::vector<KeyFrame_s>& keyFrames,
                     std::unique_ptr<AnimatorInterface> successor);

    // The stage's own work for one frame.
    virtual void doAnimateFrame(uint64_t frame) = 0;

    // Reserves room for `count` per-frame entries; a count that no memory can hold fails with a
    // KeyFrameError naming it rather than with a bare allocation error.
    template <typename T>
    static void reserveFrames(std::vector<T>& entries, uint64_t count) {
        try {
            entries.reserve(static_cast<std::size_t>(count));
        } catch (const std::exception&) {
            throwTooManyFrames(count);
        }
    }

private:
    [[noreturn]] static void throwTooManyFrames(uint64_t count);

    std::unique_ptr<AnimatorInterface> successor_;  // owns the next stage; null when terminal
    uint64_t totalFrameCount_;
};

}  // namespace vexutiltools
}  // namespace vexplot

#endif
