// vexpath retime: frame counts for a constant speed, and a retimed flight animated by the add-on
// moving at that speed.
#include "Retimer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>

#include "PathFixture.h"
#include "model/TotalFrameCount.h"

namespace {

using vexplot::path::Retimer;
using vextest::AnimationSettings_s;
using vextest::keyFrame;
using vextest::KeyFrame_s;
using vextest::KeyFrameView_s;

// Key frames whose views differ from one to the next, with these frame counts.
std::vector<KeyFrame_s> movingKeyFrames(const std::vector<uint64_t>& counts) {
    std::vector<KeyFrame_s> keyFrames;
    for (std::size_t i = 0; i < counts.size(); ++i)
        keyFrames.push_back(
            keyFrame("K" + std::to_string(i), {double(i), 0, 0, 60, 30, 0, 10}, counts[i]));
    return keyFrames;
}

TEST(RetimerTest, SharesTheFramesInProportionToTheLengths) {
    EXPECT_EQ((std::vector<uint64_t>{10, 30, 60, 7}),
              Retimer::frameCounts(movingKeyFrames({5, 5, 5, 7}), {1, 3, 6}, 101, false));
}

TEST(RetimerTest, RoundsSoThatNoLegIsOffByMoreThanAFrame) {
    const std::vector<uint64_t> counts =
        Retimer::frameCounts(movingKeyFrames({5, 5, 5, 1}), {1, 1, 1}, 101, false);
    EXPECT_EQ(100u, counts[0] + counts[1] + counts[2]);
    for (std::size_t i = 0; i < 3; ++i)
        EXPECT_TRUE(counts[i] == 33 || counts[i] == 34) << counts[i];
}

TEST(RetimerTest, HoldsAndCutsKeepTheirCounts) {
    std::vector<KeyFrame_s> keyFrames = movingKeyFrames({5, 12, 1, 5, 1});
    keyFrames[2].view = keyFrames[1].view;  // leg 2 holds still for 12 frames; leg 3 is a cut
    EXPECT_EQ((std::vector<uint64_t>{30, 12, 1, 60, 1}),
              Retimer::frameCounts(keyFrames, {1, 0, 5, 2}, 104, false));
}

TEST(RetimerTest, EaseFliesTheFirstAndLastLegsAtHalfTheSpeed) {
    EXPECT_EQ((std::vector<uint64_t>{20, 10, 10, 20, 1}),
              Retimer::frameCounts(movingKeyFrames({5, 5, 5, 5, 1}), {1, 1, 1, 1}, 61, true));
}

TEST(RetimerTest, EveryMovingLegGetsAFrameAtLeast) {
    EXPECT_EQ((std::vector<uint64_t>{1, 1, 8, 1}),
              Retimer::frameCounts(movingKeyFrames({5, 5, 5, 1}), {0.001, 0.001, 100}, 11, false));
}

TEST(RetimerTest, TooFewFramesForTheLegsThatMoveIsRefused) {
    try {
        Retimer::frameCounts(movingKeyFrames({5, 1, 5, 1}), {1, 1, 1}, 3, false);
        FAIL() << "no error";
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(
            "3 frames are too few: the holds and cuts keep 1, and each of the 2 legs that move "
            "needs one at least, so the flight needs 4 frames or more",
            error.what());
    }
}

TEST(RetimerTest, AFlightThatDoesNotMoveCannotBeRetimed) {
    std::vector<KeyFrame_s> keyFrames = movingKeyFrames({5, 1});
    keyFrames[1].view = keyFrames[0].view;
    EXPECT_THROW(Retimer::frameCounts(keyFrames, {0}, 20, false), std::runtime_error);
}

class RetimedFlightTest : public vextest::PathFixture {
protected:
    // Legs of very unlike lengths and kinds, at unlike frame counts: a short turn, a long turn, a
    // move, a zoom with a turn and a climb.
    std::vector<KeyFrame_s> unevenFlight() const {
        const std::array<double, 3> origin{0, 0, 0};
        const KeyFrameView_s a = lookingAt(origin, 70, 0, 20, 10);
        const KeyFrameView_s b = lookingAt(origin, 70, 15, 20, 10);
        const KeyFrameView_s c = lookingAt(origin, 70, 150, 20, 10);
        const KeyFrameView_s d = lookingAt({8, -6, 0}, 70, 150, 20, 10);
        const KeyFrameView_s e = lookingAt({8, -6, 0}, 55, 100, 20, 4);
        return {keyFrame("A", a, 40), keyFrame("B", b, 5), keyFrame("C", c, 60),
                keyFrame("D", d, 12), keyFrame("E", e, 1)};
    }
};

TEST_F(RetimedFlightTest, MovesAtAConstantSpeedFromTheTrace) {
    const std::string in = writeFlight("uneven.keyframe", unevenFlight());
    const vexplot::flight::FlightViews before = fly(in);
    const std::vector<double> unevenSpeeds = perFrameMovement(before);
    EXPECT_GT(*std::max_element(unevenSpeeds.begin(), unevenSpeeds.end()),
              3 * *std::min_element(unevenSpeeds.begin(), unevenSpeeds.end()));

    const Run run = runPath(
        {"retime", in, "-o", directory.file("even.keyframe"), "--frames", "400", "--data", "none"});
    ASSERT_EQ(0, run.exitStatus) << run.err;
    const vexplot::flight::FlightViews after = fly(directory.file("even.keyframe"));
    EXPECT_EQ(400u, after.views().size());
    const std::vector<double> speeds = perFrameMovement(after);
    for (std::size_t i = 0; i < speeds.size(); ++i)
        EXPECT_GE(after.keyFrames()[i].frameCount, 20u) << "leg " << i + 1;
    const double fastest = *std::max_element(speeds.begin(), speeds.end());
    const double slowest = *std::min_element(speeds.begin(), speeds.end());
    EXPECT_LT(fastest / slowest, 1.05) << fastest << " and " << slowest;
}

TEST_F(RetimedFlightTest, EasedEndsAreSlowerAndTheRestEven) {
    const std::string in = writeFlight("uneven.keyframe", unevenFlight());
    const Run run = runPath({"retime", in, "--in-place", "--duration", "20", "--fps", "25",
                             "--ease", "--data", "none"});
    ASSERT_EQ(0, run.exitStatus) << run.err;
    const vexplot::flight::FlightViews after = fly(in);
    EXPECT_EQ(500u, after.views().size());
    const std::vector<double> speeds = perFrameMovement(after);
    EXPECT_LT(std::max(speeds[1] / speeds[2], speeds[2] / speeds[1]), 1.05);
    EXPECT_NEAR(0.5, speeds[0] / speeds[1], 0.03);
    EXPECT_NEAR(0.5, speeds[3] / speeds[2], 0.03);
}

TEST_F(RetimedFlightTest, KeepsEverythingButTheFrameCounts) {
    std::vector<KeyFrame_s> keyFrames = unevenFlight();
    keyFrames[2].solutionTime = 0.5;
    keyFrames.back().frameCount = 9;
    const AnimationSettings_s settings = vextest::animationSettings(
        vextest::option::FadeIn, vextest::TimeAnimationOperation_e::Loop, 3);
    const std::string in = writeFlight("uneven.keyframe", keyFrames, settings);
    ASSERT_EQ(0, runPath({"retime", in, "-o", directory.file("even.keyframe"), "--frames", "200",
                          "--data", "none"})
                     .exitStatus);
    AnimationSettings_s before, after;
    const std::vector<KeyFrame_s> written = readKeyFrames(in, before);
    const std::vector<KeyFrame_s> retimed = readKeyFrames(directory.file("even.keyframe"), after);
    EXPECT_EQ(settings, after);
    ASSERT_EQ(written.size(), retimed.size());
    for (std::size_t i = 0; i < written.size(); ++i) {
        KeyFrame_s expected = written[i];
        expected.frameCount = retimed[i].frameCount;
        EXPECT_EQ(expected, retimed[i]);
    }
    EXPECT_EQ(9u, retimed.back().frameCount);
    EXPECT_EQ(200u, vexplot::vexutiltools::totalFrameCount(retimed));
}

TEST_F(RetimedFlightTest, NeverWritesOverItsInputUnlessAsked) {
    const std::string in = writeFlight("uneven.keyframe", unevenFlight());
    const Run run = runPath({"retime", in, "-o", in, "--frames", "200", "--data", "none"});
    EXPECT_EQ(2, run.exitStatus);
    EXPECT_EQ("vexpath: -o names the file to retime itself; --in-place replaces it\n", run.err);
}

TEST_F(RetimedFlightTest, TooFewFramesIsAFailure) {
    const std::string in = writeFlight("uneven.keyframe", unevenFlight());
    const Run run = runPath(
        {"retime", in, "-o", directory.file("out.keyframe"), "--frames", "4", "--data", "none"});
    EXPECT_EQ(1, run.exitStatus);
    EXPECT_EQ(
        "vexpath: 4 frames are too few: the holds and cuts keep 0, and each of the 4 legs that "
        "move needs one at least, so the flight needs 5 frames or more\n",
        run.err);
}

}  // namespace
