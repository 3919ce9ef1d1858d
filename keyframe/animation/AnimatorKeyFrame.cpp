#include "animation/AnimatorKeyFrame.h"

#include <utility>

#include "addon/CheckedAt.h"
#include "addon/KeyFrameError.h"
#include "addon/LockScope.h"
#include "addon/PercentDoneScope.h"
#include "addon/SuspendGraphics.h"
#include "model/ShortWay.h"
#include "model/ViewOperations.h"
#include "vxsdkbase.h"
#include "vxtoolbox.h"

namespace vexplot {
namespace vexutiltools {

namespace {

void rotate(VexRotateAxis_e axis, double degrees) {
    VexUtilViewRotate3D(axis, degrees, 0.0, 0.0, 0.0, VexRotateOriginLocation_DefinedOrigin);
}

// The one rotation order of every turn made here: alpha, psi, theta.
void rotateBy(double alpha, double psi, double theta) {
    rotate(VexRotateAxis_Alpha, alpha);
    rotate(VexRotateAxis_Psi, psi);
    rotate(VexRotateAxis_Theta, theta);
}

KeyFrameView_s divided(const KeyFrameView_s& view, double k) {
    return KeyFrameView_s{view.X / k,     view.Y / k,     view.Z / k,    view.Psi / k,
                          view.Theta / k, view.Alpha / k, view.Width / k};
}

}  // namespace

AnimatorKeyFrame::AnimatorKeyFrame(const std::vector<KeyFrame_s>& keyFrames,
                                   std::unique_ptr<AnimatorInterface> successor)
    : AnimatorAbstract(keyFrames, std::move(successor)) {
    std::vector<KeyFrameView_s> keyViews;
    std::vector<uint64_t> frameCounts;
    keyViews.reserve(keyFrames.size());
    frameCounts.reserve(keyFrames.size());
    for (const KeyFrame_s& keyFrame : keyFrames) {
        keyViews.push_back(keyFrame.view);
        frameCounts.push_back(keyFrame.frameCount);
    }
    if (keyViews.size() < 2)
        throw KeyFrameError(TooFewKeyFrames);

    reserveFrames(views_, getTotalFrameCount());
    PercentDoneScope progress(ProgressText, PercentDoneScope::WithCancelHint, getTotalFrameCount());
    // Each key view goes in first and the views after it are appended straight behind it: the
    // same sequence as making each segment aside and appending it, without holding a second copy
    // of a segment (a long segment would otherwise need three times the memory of its views).
    for (std::size_t i = 0; i + 1 < keyViews.size(); ++i) {
        views_.push_back(keyViews[i]);
        // Unguarded on purpose: a frame count of 0 wraps to 2^64 - 1 views (see the header).
        interpolateSegment(keyViews[i], keyViews[i + 1], frameCounts[i] - 1, progress, views_);
    }
    views_.push_back(keyViews.back());
}

AnimatorKeyFrame::~AnimatorKeyFrame() = default;

void AnimatorKeyFrame::doAnimateFrame(uint64_t frame) {
    applyView(checkedAt(views_, frame));
}

KeyFrameView_s AnimatorKeyFrame::computeViewDelta(const KeyFrameView_s& from,
                                                  const KeyFrameView_s& to) {
    applyView(from);
    KeyFrameView_s delta;
    delta.Psi = shortWay(to.Psi - from.Psi);
    delta.Theta = shortWay(to.Theta - from.Theta);
    delta.Alpha = shortWay(to.Alpha - from.Alpha);

    LockScope lock;
    rotateBy(delta.Alpha, delta.Psi, delta.Theta);
    // The host carried the viewer along the rotation; what is left is the translation from there.
    const KeyFrameView_s rotated = captureCurrentView();
    delta.X = to.X - rotated.X;
    delta.Y = to.Y - rotated.Y;
    delta.Z = to.Z - rotated.Z;
    delta.Width = to.Width - rotated.Width;
    return delta;
}

void AnimatorKeyFrame::interpolateSegment(const KeyFrameView_s& from, const KeyFrameView_s& to,
                                          uint64_t count, PercentDoneScope& progress,
                                          std::vector<KeyFrameView_s>& views) {
    KeyFrameView_s current = from;
    for (uint64_t remaining = count; remaining != 0; --remaining) {
        // Measured afresh from the view reached, so rounding in the host never accumulates and
        // the last intermediate view lies one even step short of `to`.
        const KeyFrameView_s delta = computeViewDelta(current, to);
        const KeyFrameView_s step = divided(delta, static_cast<double>(remaining) + 1.0);
        applyView(current);
        applyViewStep(step);
        current = captureCurrentView();
        views.push_back(current);

        progress.step();
        if (progress.isCanceled())
            throw KeyFrameError("Animation canceled.");
    }
}

void AnimatorKeyFrame::applyViewStep(const KeyFrameView_s& step) {
    LockScope lock;
    SuspendGraphics suspendGraphics;
    rotateBy(step.Alpha, step.Psi, step.Theta);
    const KeyFrameView_s rotated = captureCurrentView();

    const vexplot::toolbox::StyleValue threeDView("ThreeDView");
    threeDView.set(rotated.X + step.X, "ViewerPosition", "X");
    threeDView.set(rotated.Y + step.Y, "ViewerPosition", "Y");
    threeDView.set(rotated.Z + step.Z, "ViewerPosition", "Z");

    // As in applyView: the width is an orthographic width, set with perspective off, and the
    // perspective choice is put back (false, the host's normal projection, if the read is refused).
    bool drawInPerspective = false;
    threeDView.get(drawInPerspective, "DrawInPerspective");
    threeDView.set(false, "DrawInPerspective");
    threeDView.set(rotated.Width + step.Width, "ViewWidth");
    threeDView.set(drawInPerspective, "DrawInPerspective");
}

}  // namespace vexutiltools
}  // namespace vexplot
