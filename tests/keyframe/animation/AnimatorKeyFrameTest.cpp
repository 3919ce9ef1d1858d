#include "animation/AnimatorKeyFrame.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "AnimationFixture.h"
#include "addon/KeyFrameError.h"
#include "addon/LockScope.h"
#include "animation/AnimationManager.h"
#include "animation/AnimatorOnScreen.h"
#include "support/CallLogLines.h"
#include "vexhost/Drawing.h"
#include "vexhost/Exporter.h"
#include "vexhost/FrameStack.h"
#include "vexhost/Host.h"
#include "vexhost/ProgressStatus.h"

namespace vexplot {
namespace vexutiltools {
namespace {

// Angles come back from the host through radians.
constexpr double Tolerance = 1e-9;

// ---- The expectation, computed without the host: its rotation model written out afresh ----

using Vector = std::array<double, 3>;
using Matrix = std::array<double, 9>;  // row-major

constexpr double Pi = 3.14159265358979323846;

Matrix multiply(const Matrix& a, const Matrix& b) {
    Matrix m{};
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 3; ++column)
            for (int k = 0; k < 3; ++k)
                m[row * 3 + column] += a[row * 3 + k] * b[k * 3 + column];
    return m;
}

Matrix transposed(const Matrix& m) {
    return {m[0], m[3], m[6], m[1], m[4], m[7], m[2], m[5], m[8]};
}

Vector times(const Matrix& m, const Vector& v) {
    Vector r{};
    for (int row = 0; row < 3; ++row)
        r[row] = m[row * 3] * v[0] + m[row * 3 + 1] * v[1] + m[row * 3 + 2] * v[2];
    return r;
}

Matrix aboutZ(double degrees) {
    const double c = std::cos(degrees * Pi / 180), s = std::sin(degrees * Pi / 180);
    return {c, -s, 0, s, c, 0, 0, 0, 1};
}

Matrix aboutX(double degrees) {
    const double c = std::cos(degrees * Pi / 180), s = std::sin(degrees * Pi / 180);
    return {1, 0, 0, 0, c, -s, 0, s, c};
}

// The orientation of a view: about z by theta, then about x by psi, then about z by alpha.
Matrix orientation(double psi, double theta, double alpha) {
    return multiply(multiply(aboutZ(theta), aboutX(psi)), aboutZ(alpha));
}

// Into (-180, 180], as the host keeps rotated angles.
double normalized(double degrees) {
    double a = std::fmod(degrees, 360.0);
    if (a > 180)
        a -= 360;
    else if (a <= -180)
        a += 360;
    return a;
}

double shortWay(double degrees) {
    while (degrees > 180)
        degrees -= 360;
    while (degrees < -180)
        degrees += 360;
    return degrees;
}

// Where turning the view by (dPsi, dTheta, dAlpha) about the origin carries the viewer.
Vector carried(const KeyFrameView_s& view, const Vector& origin, double dPsi, double dTheta,
               double dAlpha) {
    const Matrix from = orientation(view.Psi, view.Theta, view.Alpha);
    const Matrix to = orientation(view.Psi + dPsi, view.Theta + dTheta, view.Alpha + dAlpha);
    const Vector offset = {view.X - origin[0], view.Y - origin[1], view.Z - origin[2]};
    const Vector moved = times(multiply(to, transposed(from)), offset);
    return {origin[0] + moved[0], origin[1] + moved[1], origin[2] + moved[2]};
}

// The views strictly between `from` and `to`: each pass turns by an even share of the angles left
// and moves by the rotation arc plus an even share of the translation left after the whole turn.
std::vector<KeyFrameView_s> expectedSegment(const KeyFrameView_s& from, const KeyFrameView_s& to,
                                            int count, const Vector& origin) {
    std::vector<KeyFrameView_s> views;
    KeyFrameView_s current = from;
    for (int remaining = count; remaining > 0; --remaining) {
        const double k = remaining + 1;
        const double dPsi = shortWay(to.Psi - current.Psi);
        const double dTheta = shortWay(to.Theta - current.Theta);
        const double dAlpha = shortWay(to.Alpha - current.Alpha);
        const Vector afterTurn = carried(current, origin, dPsi, dTheta, dAlpha);
        const Vector onArc = carried(current, origin, dPsi / k, dTheta / k, dAlpha / k);
        KeyFrameView_s next;
        next.X = onArc[0] + (to.X - afterTurn[0]) / k;
        next.Y = onArc[1] + (to.Y - afterTurn[1]) / k;
        next.Z = onArc[2] + (to.Z - afterTurn[2]) / k;
        next.Psi = normalized(current.Psi + dPsi / k);
        next.Theta = normalized(current.Theta + dTheta / k);
        next.Alpha = normalized(current.Alpha + dAlpha / k);
        next.Width = current.Width + (to.Width - current.Width) / k;
        views.push_back(next);
        current = next;
    }
    return views;
}

void expectNear(const KeyFrameView_s& expected, const KeyFrameView_s& actual,
                double tolerance = Tolerance) {
    EXPECT_NEAR(expected.X, actual.X, tolerance);
    EXPECT_NEAR(expected.Y, actual.Y, tolerance);
    EXPECT_NEAR(expected.Z, actual.Z, tolerance);
    EXPECT_NEAR(0.0, shortWay(expected.Psi - actual.Psi), tolerance) << "psi";
    EXPECT_NEAR(0.0, shortWay(expected.Theta - actual.Theta), tolerance) << "theta";
    EXPECT_NEAR(0.0, shortWay(expected.Alpha - actual.Alpha), tolerance) << "alpha";
    EXPECT_NEAR(expected.Width, actual.Width, tolerance);
}

class AnimatorKeyFrameTest : public vextest::AnimationFixture {
protected:
    // The views of a key frame stage built over the list, with the host lock held as the run
    // holds it.
    std::vector<KeyFrameView_s> viewsOf(const std::vector<KeyFrame_s>& keyFrames) {
        LockScope lock;
        AnimatorKeyFrame stage(keyFrames, std::make_unique<AnimatorOnScreen>(keyFrames));
        return stage.getViews();
    }
};

TEST_F(AnimatorKeyFrameTest, AFrameCountOfOneGivesTheTwoKeyViewsOnly) {
    const std::vector<KeyFrame_s> keyFrames = keyFramesWithCounts({1, 8});
    EXPECT_EQ((std::vector<KeyFrameView_s>{keyFrames[0].view, keyFrames[1].view}),
              viewsOf(keyFrames));
}

TEST_F(AnimatorKeyFrameTest, KeyViewsStandExactlyAtTheirFramesAndTheLastCountIsIgnored) {
    const std::vector<KeyFrame_s> keyFrames = keyFramesWithCounts({3, 2, 7});
    const std::vector<KeyFrameView_s> views = viewsOf(keyFrames);
    ASSERT_EQ(6u, views.size()) << "[k0, a, b, k1, c, k2]";
    EXPECT_EQ(keyFrames[0].view, views[0]);
    EXPECT_EQ(keyFrames[1].view, views[3]);
    EXPECT_EQ(keyFrames[2].view, views[5]);
    for (std::size_t i : {1u, 2u, 4u})
        EXPECT_NE(keyFrames[0].view, views[i]);
}

TEST_F(AnimatorKeyFrameTest, Psi10To350TurnsMinus20TheShortWay) {
    const std::vector<KeyFrame_s> keyFrames = keyFramesWithPsi({10, 350}, {5, 1});
    startCallLog();
    const std::vector<KeyFrameView_s> views = viewsOf(keyFrames);
    const std::vector<std::string> psiTurns =
        linesStartingWith(takeCallLog(), "VexUtilViewRotate3D(3, ");
    ASSERT_FALSE(psiTurns.empty());
    EXPECT_EQ(vextest::callLine("VexUtilViewRotate3D", {3, -20, 0, 0, 0, 0}), psiTurns.front());
    ASSERT_EQ(6u, views.size());
    const double expected[] = {10, 6, 2, -2, -6};
    for (int i = 0; i < 5; ++i)
        EXPECT_NEAR(expected[i], views[i].Psi, Tolerance) << i;
    EXPECT_EQ(350, views[5].Psi) << "the key frame's own view, as stored";
}

TEST_F(AnimatorKeyFrameTest, ExactlyHalfATurnIsNotShortened) {
    const std::vector<KeyFrame_s> keyFrames = keyFramesWithPsi({-90, 90}, {2, 1});
    startCallLog();
    viewsOf(keyFrames);
    EXPECT_EQ(vextest::callLine("VexUtilViewRotate3D", {3, 180, 0, 0, 0, 0}),
              linesStartingWith(takeCallLog(), "VexUtilViewRotate3D(3, ").front());
}

TEST_F(AnimatorKeyFrameTest, IdenticalViewsGiveTheSameViewEveryFrame) {
    const KeyFrameView_s view = viewWithAngles(40, -120, 15);
    const std::vector<KeyFrameView_s> views = viewsOf({keyFrame(view, 5), keyFrame(view, 1)});
    ASSERT_EQ(6u, views.size());
    for (const KeyFrameView_s& v : views)
        expectNear(view, v);
}

TEST_F(AnimatorKeyFrameTest, IntermediateViewsFollowTheHostsRotationArcPlusAShareOfTheTranslation) {
    const Vector origin = {1, 2, -1};
    host().frames().active()->view().setRotateOrigin(origin);
    const KeyFrameView_s from{3, -12, 8, 20, 170, 10, 10};
    const KeyFrameView_s to{-5, 6, 14, 80, -170, 50, 20};
    const int count = 4;
    const std::vector<KeyFrameView_s> views = viewsOf({keyFrame(from, count + 1), keyFrame(to, 1)});

    ASSERT_EQ(static_cast<std::size_t>(count + 2), views.size());
    EXPECT_EQ(from, views.front());
    EXPECT_EQ(to, views.back());
    const std::vector<KeyFrameView_s> expected = expectedSegment(from, to, count, origin);
    for (int i = 1; i <= count; ++i) {
        SCOPED_TRACE("view " + std::to_string(i));
        expectNear(expected[i - 1], views[i]);
        // Each angle i / (count + 1) of the way, theta across +-180 the short way (+20 degrees).
        const double share = static_cast<double>(i) / (count + 1);
        EXPECT_NEAR(0, shortWay(views[i].Psi - (20 + 60 * share)), Tolerance);
        EXPECT_NEAR(0, shortWay(views[i].Theta - (170 + 20 * share)), Tolerance);
        EXPECT_NEAR(0, shortWay(views[i].Alpha - (10 + 40 * share)), Tolerance);
        EXPECT_NEAR(10 + 10 * share, views[i].Width, Tolerance);
    }
}

TEST_F(AnimatorKeyFrameTest, EveryTurnIsMadeInTheOrderAlphaPsiTheta) {
    startCallLog();
    viewsOf(keyFramesWithCounts({3, 1}));
    std::vector<std::string> axes;
    for (const std::string& line :
         linesStartingWith(takeCallLog(), vextest::callLineStart("VexUtilViewRotate3D")))
        axes.push_back(line.substr(20, 1));
    ASSERT_EQ(12u, axes.size()) << "two passes of a delta and a step, three turns each";
    for (std::size_t i = 0; i < axes.size(); i += 3)
        EXPECT_EQ((std::vector<std::string>{"5", "3", "4"}),
                  std::vector<std::string>(axes.begin() + i, axes.begin() + i + 3));
}

TEST_F(AnimatorKeyFrameTest, OneIntermediateViewMakesTheHostCallsOfOnePassInOrder) {
    const std::vector<KeyFrame_s> keyFrames = keyFramesWithPsi({10, 30}, {2, 1});
    startCallLog();
    viewsOf(keyFrames);
    const std::vector<std::string> log = takeCallLog();
    // After the status start: the delta (apply `from`, turn, capture), the step (apply `from`,
    // turn, capture, move on), the capture of the view reached, and the check.
    std::vector<std::string> kinds;
    for (const std::string& line :
         logFrom(log, vextest::callLineStart("VexUtilStatusStartPercentDone"))) {
        if (startsWith(line, vextest::callLineStart("VexUtilViewRotate3D")))
            kinds.push_back("turn");
        else if (startsWith(line, vextest::callLineStart("VexUtilStyleSetLowLevelX",
                                                         {"ThreeDView", "PSIAngle"})))
            kinds.push_back("apply");
        else if (startsWith(line, vextest::callLineStart("VexUtilStyleSetLowLevelX",
                                                         {"ThreeDView", "ViewerPosition", "X"})))
            kinds.push_back("move");
        else if (startsWith(line, vextest::callLineStart("VexUtilThreeDViewGetViewerPos")))
            kinds.push_back("capture");
        else if (startsWith(line, vextest::callLineStart("VexUtilStatusCheckPercentDone")))
            kinds.push_back("check");
    }
    EXPECT_EQ((std::vector<std::string>{"apply", "move", "turn", "turn", "turn", "capture", "apply",
                                        "move", "turn", "turn", "turn", "capture", "move",
                                        "capture", "check"}),
              kinds);
    EXPECT_EQ(
        "VexUtilStatusStartPercentDone(\"Creating interpolated views.... Press [Esc] or "
        "click [Stop] to cancel.\", true, true)",
        linesStartingWith(log, vextest::callLineStart("VexUtilStatusStartPercentDone")).front());
}

TEST_F(AnimatorKeyFrameTest, TheStepSetsTheWidthWithPerspectiveOffAndPutsPerspectiveBack) {
    host().frames().active()->view().setPerspective(true);
    const std::vector<KeyFrame_s> keyFrames = keyFramesWithPsi({10, 30}, {2, 1});
    startCallLog();
    viewsOf(keyFrames);
    // The step's own moves follow the capture of the turned view (applyView's follow the angles).
    const std::vector<std::string> log = takeCallLog();
    std::vector<std::string> step;
    for (std::size_t i = 1; i < log.size() && step.empty(); ++i)
        if (startsWith(log[i - 1], vextest::callLineStart("VexUtilThreeDViewGetProjection")) &&
            startsWith(log[i], vextest::callLineStart("VexUtilStyleSetLowLevelX",
                                                      {"ThreeDView", "ViewerPosition", "X"})))
            step.assign(log.begin() + static_cast<std::ptrdiff_t>(i), log.end());
    ASSERT_GE(step.size(), 8u);
    EXPECT_EQ(0u, step[1].find(vextest::callLineStart("VexUtilStyleSetLowLevelX",
                                                      {"ThreeDView", "ViewerPosition", "Y"})));
    EXPECT_EQ(0u, step[2].find(vextest::callLineStart("VexUtilStyleSetLowLevelX",
                                                      {"ThreeDView", "ViewerPosition", "Z"})));
    EXPECT_EQ(vextest::callLine("VexUtilStyleGetLowLevelX", {"ThreeDView", "DrawInPerspective"}),
              step[3]);
    EXPECT_EQ(
        vextest::callLine("VexUtilStyleSetLowLevelX", {"ThreeDView", "DrawInPerspective", false}),
        step[4]);
    EXPECT_EQ(0u, step[5].find(vextest::callLineStart("VexUtilStyleSetLowLevelX",
                                                      {"ThreeDView", "ViewWidth"})));
    EXPECT_EQ(
        vextest::callLine("VexUtilStyleSetLowLevelX", {"ThreeDView", "DrawInPerspective", true}),
        step[6]);
    EXPECT_EQ(vextest::callLine("VexUtilDrawGraphics", {true}), step[7]);
    EXPECT_TRUE(host().frames().active()->view().perspective());
}

TEST_F(AnimatorKeyFrameTest, ProgressChecksOncePerIntermediateView) {
    viewsOf(keyFramesWithCounts({3, 2, 7}));
    // Total 6 frames, three intermediate views.
    EXPECT_EQ((std::vector<int32_t>{16, 33, 50}), host().progress().checkedPercents());
    EXPECT_EQ(1u, host().progress().finishCount());
}

TEST_F(AnimatorKeyFrameTest, StopWhileCreatingViewsCancelsBeforeAnyFrame) {
    const RestoredState before = restoredState();
    host().progress().pressStopAt(2);
    AnimationSettings_s settings;
    settings.Destination = Destination_e::ToFile;
    EXPECT_EQ("Animation canceled.", animateError(keyFramesWithCounts({3, 2, 7}), 0, 3, settings,
                                                  AnimationManager::RecordMacro));
    EXPECT_EQ(0u, host().drawing().drawnFrames());
    EXPECT_EQ(0u, host().exporter().counts().starts);
    EXPECT_EQ((std::vector<std::string>{
                  "Creating interpolated views.... Press [Esc] or click [Stop] to cancel."}),
              host().progress().texts());
    expectRestored(before);
}

TEST_F(AnimatorKeyFrameTest, FewerThanTwoKeyFramesAreRefused) {
    LockScope lock;
    const std::vector<KeyFrame_s> one = keyFramesWithCounts({3});
    EXPECT_EQ("At least two keyFrame views must be established to perform an animation.",
              vextest::errorOf([&] { AnimatorKeyFrame stage(one, nullptr); }));
}

TEST_F(AnimatorKeyFrameTest, AppliesTheViewOfTheFrameAndRefusesFramesPastTheEnd) {
    const std::vector<KeyFrame_s> keyFrames = keyFramesWithCounts({2, 1});
    LockScope lock;
    AnimatorKeyFrame stage(keyFrames, nullptr);
    stage.animateFrame(2);
    EXPECT_EQ(keyFrames[1].view.Psi, host().frames().active()->view().psi());
    EXPECT_EQ(keyFrames[1].view.X, host().frames().active()->view().position()[0]);
    stage.animateFrame(0);
    EXPECT_EQ(keyFrames[0].view.Psi, host().frames().active()->view().psi());
    EXPECT_EQ("invalid vector subscript", vextest::errorOf([&] { stage.animateFrame(3); }));
    EXPECT_THROW(stage.animateFrame(3), std::out_of_range);
}

}  // namespace
}  // namespace vexutiltools
}  // namespace vexplot
