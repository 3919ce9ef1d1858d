// vexpath orbit: the key frames of an even turn about the vertical axis, and the turn the add-on
// makes of them, measured frame by frame.
#include "OrbitPlanner.h"

#include <gtest/gtest.h>

#include <cmath>
#include <stdexcept>

#include "FlightCheck.h"
#include "PathFixture.h"
#include "model/ShortWay.h"
#include "model/TotalFrameCount.h"

namespace {

using vexplot::path::OrbitPlanner;
using vexplot::vexutiltools::shortWay;
using vextest::AnimationSettings_s;
using vextest::KeyFrame_s;
using vextest::KeyFrameView_s;

const double Degrees = 180 / std::acos(-1.0);

TEST(OrbitPlannerTest, TurnsInLegsOfAtMostAQuarterTurn) {
    EXPECT_EQ(1u, OrbitPlanner::legsFor(90));
    EXPECT_EQ(2u, OrbitPlanner::legsFor(90.5));
    EXPECT_EQ(4u, OrbitPlanner::legsFor(360));
    EXPECT_EQ(4u, OrbitPlanner::legsFor(-360));
}

TEST(OrbitPlannerTest, KeyFramesDifferOnlyInThetaAndTheViewersPlaceOnTheCircle) {
    const KeyFrameView_s start{11, 2, 8, 60, 90, 5, 7};
    const std::vector<KeyFrame_s> keyFrames = OrbitPlanner::plan(start, {1, 2, 3}, 360, 101, 0.25);
    ASSERT_EQ(5u, keyFrames.size());
    EXPECT_EQ(101u, vexplot::vexutiltools::totalFrameCount(keyFrames));
    const double thetas[] = {90, 180, -90, 0, 90};
    const char* const names[] = {"Orbit 0", "Orbit 90", "Orbit 180", "Orbit 270", "Orbit 360"};
    for (std::size_t k = 0; k < keyFrames.size(); ++k) {
        const KeyFrameView_s& view = keyFrames[k].view;
        EXPECT_EQ(names[k], keyFrames[k].name);
        EXPECT_NEAR(0, shortWay(view.Theta - thetas[k]), 1e-9) << k;
        EXPECT_NEAR(10, std::hypot(view.X - 1, view.Y - 2), 1e-9) << k;
        EXPECT_EQ(8, view.Z);
        EXPECT_EQ(60, view.Psi);
        EXPECT_EQ(5, view.Alpha);
        EXPECT_EQ(7, view.Width);
        EXPECT_EQ(0.25, keyFrames[k].solutionTime);
    }
    EXPECT_EQ(25u, keyFrames[0].frameCount);
}

TEST(OrbitPlannerTest, FramesThatDoNotShareEvenlyGoToTheFirstLegsWithTheirAngles) {
    const std::vector<KeyFrame_s> keyFrames =
        OrbitPlanner::plan({0, -10, 0, 90, 0, 0, 4}, {0, 0, 0}, 180, 8, 0);
    ASSERT_EQ(3u, keyFrames.size());
    EXPECT_EQ(4u, keyFrames[0].frameCount);
    EXPECT_EQ(3u, keyFrames[1].frameCount);
    // 180 degrees in 7 steps: the middle key frame at 4 of them.
    EXPECT_NEAR(180.0 * 4 / 7, keyFrames[1].view.Theta, 1e-9);
}

TEST(OrbitPlannerTest, TooFewFramesForTheLegsAreRefused) {
    try {
        OrbitPlanner::plan({0, -10, 0, 90, 0, 0, 4}, {0, 0, 0}, 360, 4, 0);
        FAIL() << "no error";
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(
            "4 frames are too few for a turn of 360 degrees in legs of at most 90: it needs 5 "
            "frames or more",
            error.what());
    }
}

class OrbitFlightTest : public vextest::PathFixture {
protected:
    // The demo's scene: its rotation origin is the centre of its box, not the world's origin.
    OrbitFlightTest() { scene = vexplot::app::RunOptions(); }

    // Each frame's turn, by theta and by the viewer's angle about the vertical axis through the
    // rotation origin, must be the even share of the turn to a hundredth of a degree.
    static void expectEven(const vexplot::flight::FlightViews& flight, double angle) {
        const std::vector<KeyFrameView_s>& views = flight.views();
        const double share = angle / static_cast<double>(views.size() - 1);
        const auto& origin = flight.rotateOrigin();
        const auto about = [&origin](const KeyFrameView_s& view) {
            return std::atan2(view.Y - origin[1], view.X - origin[0]) * Degrees;
        };
        double least = 1e9, most = -1e9;
        for (std::size_t f = 0; f + 1 < views.size(); ++f) {
            const double turn = shortWay(views[f + 1].Theta - views[f].Theta);
            least = std::min(least, turn);
            most = std::max(most, turn);
            EXPECT_NEAR(share, turn, 0.01) << "theta, frame " << f;
            EXPECT_NEAR(share, shortWay(about(views[f + 1]) - about(views[f])), 0.01)
                << "about the axis, frame " << f;
            EXPECT_NEAR(views[0].Psi, views[f + 1].Psi, 1e-6);
            EXPECT_NEAR(views[0].Width, views[f + 1].Width, 1e-6);
        }
        EXPECT_LT(most - least, 0.01);
    }
};

TEST_F(OrbitFlightTest, AFullTurnFromTheFittedViewIsEvenFrameByFrame) {
    const Run run = runPath({"orbit", "-o", directory.file("orbit.keyframe"), "--frames", "241"});
    ASSERT_EQ(0, run.exitStatus) << run.err;
    EXPECT_EQ(directory.file("orbit.keyframe") + ": 5 key frames, 241 frames\n", run.out);
    const vexplot::flight::FlightViews flight = fly(directory.file("orbit.keyframe"));
    ASSERT_EQ(241u, flight.views().size());
    expectEven(flight, 360);
    // The whole turn comes back to where it started, and the add-on's check has nothing to say.
    const KeyFrameView_s& first = flight.views().front();
    const KeyFrameView_s& last = flight.views().back();
    EXPECT_NEAR(first.X, last.X, 1e-4);
    EXPECT_NEAR(first.Y, last.Y, 1e-4);
    EXPECT_TRUE(vexplot::path::FlightCheck(flight).warnings().empty());
}

TEST_F(OrbitFlightTest, ANegativeAngleTurnsClockwiseFromAKeyFrameOfAFile) {
    const KeyFrameView_s start = lookingAt({1, 1, 0.5}, 50, -170, 12, 3);
    const std::string from =
        writeFlight("start.keyframe", {vextest::keyFrame("Start", start, 1, 0.6)},
                    vextest::animationSettings(vextest::option::FadeOut));
    const Run run = runPath({"orbit", "-o", directory.file("orbit.keyframe"), "--from", from,
                             "--angle", "-135", "--frames", "100"});
    ASSERT_EQ(0, run.exitStatus) << run.err;
    const vexplot::flight::FlightViews flight = fly(directory.file("orbit.keyframe"));
    AnimationSettings_s settings;
    EXPECT_EQ(readKeyFrames(from, settings).front().view, flight.keyFrames().front().view);
    EXPECT_EQ(0.6, flight.keyFrames().back().solutionTime);
    EXPECT_TRUE(flight.settings().FadeOut);
    expectEven(flight, -135);
}

TEST_F(OrbitFlightTest, AStartFileTheAddOnCannotReadExitsWith2) {
    const Run run = runPath({"orbit", "-o", directory.file("orbit.keyframe"), "--from",
                             directory.file("none.keyframe")});
    EXPECT_EQ(2, run.exitStatus);
    EXPECT_EQ("vexpath: " + directory.file("none.keyframe") +
                  ": Key Frame Animation error:\nUnable to open file for reading.\n",
              run.err);
}

}  // namespace
