#ifndef VEXUTILTOOLS_ANIMATORKEYFRAME_H
#define VEXUTILTOOLS_ANIMATORKEYFRAME_H

#include <cstdint>
#include <memory>
#include <vector>

#include "animation/AnimatorAbstract.h"
#include "model/KeyFrameView_s.h"

namespace vexplot {
namespace vexutiltools {

class PercentDoneScope;

// The head stage of every chain: the 3D view of each frame.
//
// Construction computes, once, the view of every frame of the whole key frame list, under the
// percent-done status "Creating interpolated views...." (one check per intermediate view; Stop
// raises KeyFrameError "Animation canceled." and the partial views go with the stage). The views
// are [k0, the count(0) - 1 views between k0 and k1, k1, ..., k(n-1)]: each key frame's own view
// stands exactly at the frame where its segment starts, the last key frame once at the end, so
// there are exactly getTotalFrameCount() views.
//
// The host computes the rotations: between two views the host's view is rotated by what is left
// of the angles (each the short way, in the order alpha, psi, theta) and read back, and what is
// left of the translation and width is spread evenly over the views still to be made, measured
// afresh from the view actually reached each time. Each intermediate view thus follows the host's
// own rotation arc plus a straight-line share of the translation, i/(count+1) of the way. This
// moves the host's 3D view many times; the caller holds the host lock, and the run applies each
// frame's view afresh.
//
// Frame counts are not guarded here: a key frame with a frame count of 0 makes its segment's
// count of intermediate views wrap around to 2^64 - 1, and only Stop ends that construction.
class AnimatorKeyFrame : public AnimatorAbstract {
public:
    AnimatorKeyFrame(const std::vector<KeyFrame_s>& keyFrames,
                     std::unique_ptr<AnimatorInterface> successor);
    ~AnimatorKeyFrame() override;

    // One view per frame, index = frame number.
    const std::vector<KeyFrameView_s>& getViews() const { return views_; }

    static constexpr const char* ProgressText = "Creating interpolated views....";

protected:
    // Applies the frame's view to the host; a frame at or past the number of views raises
    // std::out_of_range "invalid vector subscript".
    void doAnimateFrame(uint64_t frame) override;

private:
    // What is left to turn and move from `from` to `to`: the angle differences the short way, and
    // the position and width differences that remain after the host has rotated `from` by them.
    // Leaves the host's view rotated.
    static KeyFrameView_s computeViewDelta(const KeyFrameView_s& from, const KeyFrameView_s& to);
    // The `count` views strictly between `from` and `to`, appended to `views`; one progress step
    // per view.
    static void interpolateSegment(const KeyFrameView_s& from, const KeyFrameView_s& to,
                                   uint64_t count, PercentDoneScope& progress,
                                   std::vector<KeyFrameView_s>& views);
    // Turns the host's view by the step's angles (alpha, psi, theta) and moves the viewer and the
    // width on by the step's share, with drawing suspended.
    static void applyViewStep(const KeyFrameView_s& step);

    std::vector<KeyFrameView_s> views_;
};

}  // namespace vexutiltools
}  // namespace vexplot

#endif
