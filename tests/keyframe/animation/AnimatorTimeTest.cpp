#include "animation/AnimatorTime.h"

#include <gtest/gtest.h>

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
#include "vexhost/DataSet.h"
#include "vexhost/FrameStack.h"
#include "vexhost/Host.h"
#include "vexhost/ProgressStatus.h"
#include "vexhost/View3D.h"

namespace vexplot {
namespace vexutiltools {
namespace {

struct SpacingCase {
    const char* what;
    double a;
    double b;
    uint64_t count;
    std::vector<double> expected;
};

TEST(EvenlySpacedTimesTest, SpacesTheCountFromStartToEnd) {
    const SpacingCase cases[] = {
        {"five from 0 to 1", 0, 1, 5, {0, 0.25, 0.5, 0.75, 1}},
        {"three from 0 to 1", 0, 1, 3, {0, 0.5, 1}},
        {"two are the ends", 2, 7, 2, {2, 7}},
        {"downwards", 1, 0, 3, {1, 0.5, 0}},
        {"an empty range repeats the start", 2.5, 2.5, 3, {2.5, 2.5, 2.5}},
        {"one takes the start", 3, 9, 1, {3}},
        {"zero gives nothing", 3, 9, 0, {}},
    };
    for (const SpacingCase& c : cases) {
        SCOPED_TRACE(c.what);
        std::vector<double> times = {42, 43};
        AnimatorTime::evenlySpacedTimes(c.a, c.b, c.count, times);
        EXPECT_EQ(c.expected, times);
    }
}

TEST(EvenlySpacedTimesTest, TheFirstIsExactlyTheStartAndTheLastTheEndUpToRounding) {
    std::vector<double> times;
    AnimatorTime::evenlySpacedTimes(0.1, 0.7, 7, times);
    ASSERT_EQ(7u, times.size());
    EXPECT_EQ(0.1, times.front());
    EXPECT_DOUBLE_EQ(0.7, times.back());
}

class AnimatorTimeTest : public vextest::AnimationFixture {
protected:
    // Two key frames over T frames in all, with the given captured solution times.
    std::vector<KeyFrame_s> keyFramesOfTotal(uint64_t total, double firstTime = 0,
                                             double lastTime = 0) {
        std::vector<KeyFrame_s> keyFrames = keyFramesWithCounts({total - 1, 1});
        keyFrames[0].solutionTime = firstTime;
        keyFrames[1].solutionTime = lastTime;
        return keyFrames;
    }

    static AnimationSettings_s timeSettings(TimeAnimationOperation_e operation,
                                            uint64_t cycles = 1) {
        AnimationSettings_s settings;
        settings.AnimateTime = true;
        settings.TimeAnimationOperation = operation;
        settings.NumCycles = cycles;
        return settings;
    }

    std::vector<double> timesOf(const std::vector<KeyFrame_s>& keyFrames,
                                const AnimationSettings_s& settings) {
        LockScope lock;
        AnimatorTime stage(keyFrames, settings, std::make_unique<AnimatorOnScreen>(keyFrames));
        return stage.getSolutionTimes();
    }

    // Zones at times 0, 0.5 and 1, the last one of another strand.
    void addZonesFrom0To1() {
        addZone(0.5, 1);
        addZone(0, 1);
        addZone(1, 2);
    }
};

TEST_F(AnimatorTimeTest, LoopRepeatsTheRunAndPadsWithTheMaximum) {
    addZonesFrom0To1();
    EXPECT_EQ((std::vector<double>{0, 0.5, 1, 0, 0.5, 1, 0, 0.5, 1, 1}),
              timesOf(keyFramesOfTotal(10), timeSettings(TimeAnimationOperation_e::Loop, 3)));
}

TEST_F(AnimatorTimeTest, BounceGoesUpAndDownEachCycleAndPadsWithTheMaximum) {
    addZonesFrom0To1();
    EXPECT_EQ((std::vector<double>{0, 1, 1, 0, 0, 1, 1, 0, 1, 1}),
              timesOf(keyFramesOfTotal(10), timeSettings(TimeAnimationOperation_e::Bounce, 2)));
}

TEST_F(AnimatorTimeTest, BouncePaddingJumpsBackToTheMaximumDeliberately) {
    addZonesFrom0To1();
    // T = 11, two cycles: n = 2, eight times, then three copies of the maximum.
    EXPECT_EQ((std::vector<double>{0, 1, 1, 0, 0, 1, 1, 0, 1, 1, 1}),
              timesOf(keyFramesOfTotal(11), timeSettings(TimeAnimationOperation_e::Bounce, 2)));
}

TEST_F(AnimatorTimeTest, ForwardIsOneRunAndIgnoresTheCycles) {
    addZonesFrom0To1();
    EXPECT_EQ((std::vector<double>{0, 0.25, 0.5, 0.75, 1}),
              timesOf(keyFramesOfTotal(5), timeSettings(TimeAnimationOperation_e::Forward, 0)));
}

TEST_F(AnimatorTimeTest, ForwardWithOneZoneStaysAtItsTime) {
    addZone(2.5, 1);
    EXPECT_EQ(std::vector<double>(6, 2.5),
              timesOf(keyFramesOfTotal(6), timeSettings(TimeAnimationOperation_e::Forward)));
}

TEST_F(AnimatorTimeTest, MoreCyclesThanFramesGiveTheMaximumThroughout) {
    addZonesFrom0To1();
    EXPECT_EQ(std::vector<double>(4, 1.0),
              timesOf(keyFramesOfTotal(4), timeSettings(TimeAnimationOperation_e::Loop, 10)));
    EXPECT_EQ(std::vector<double>(4, 1.0),
              timesOf(keyFramesOfTotal(4), timeSettings(TimeAnimationOperation_e::Bounce, 3)));
}

TEST_F(AnimatorTimeTest, ARunOfOneTimeStandsAtTheMinimum) {
    addZonesFrom0To1();
    // T = 5, four cycles: runs of one time each.
    EXPECT_EQ((std::vector<double>{0, 0, 0, 0, 1}),
              timesOf(keyFramesOfTotal(5), timeSettings(TimeAnimationOperation_e::Loop, 4)));
}

TEST_F(AnimatorTimeTest, AsCapturedGoesFromKeyFrameToKeyFrame) {
    EXPECT_EQ(
        (std::vector<double>{0, 0.25, 0.5, 0.75, 1}),
        timesOf(keyFramesOfTotal(5, 0, 1), timeSettings(TimeAnimationOperation_e::AsCaptured)));
}

TEST_F(AnimatorTimeTest, AsCapturedOverSeveralKeyFramesEndsOnTheLastOnesTime) {
    std::vector<KeyFrame_s> keyFrames = keyFramesWithCounts({2, 1, 3});
    keyFrames[0].solutionTime = 0;
    keyFrames[1].solutionTime = 2;
    keyFrames[2].solutionTime = 1;
    EXPECT_EQ((std::vector<double>{0, 1, 2, 1}),
              timesOf(keyFrames, timeSettings(TimeAnimationOperation_e::AsCaptured)));
}

TEST_F(AnimatorTimeTest, AsCapturedNeedsNoZones) {
    EXPECT_EQ(0, host().dataSet().zoneCount());
    EXPECT_EQ(3u,
              timesOf(keyFramesOfTotal(3, 4, 5), timeSettings(TimeAnimationOperation_e::AsCaptured))
                  .size());
}

TEST_F(AnimatorTimeTest, WithoutAnEnabledZoneForwardLoopAndBounceAreRefused) {
    const int32_t zone = addZone(1, 1);
    host().dataSet().setZoneEnabled(zone, false);
    for (TimeAnimationOperation_e operation :
         {TimeAnimationOperation_e::Forward, TimeAnimationOperation_e::Loop,
          TimeAnimationOperation_e::Bounce}) {
        SCOPED_TRACE(::testing::PrintToString(operation));
        LockScope lock;
        const std::vector<KeyFrame_s> keyFrames = keyFramesOfTotal(5);
        EXPECT_EQ(AnimatorTime::NoEnabledZone, vextest::errorOf([&] {
                      AnimatorTime stage(keyFrames, timeSettings(operation), nullptr);
                  }));
    }
}

TEST_F(AnimatorTimeTest, ARunWithoutAnEnabledZoneIsRefusedBeforeTheViewMoves) {
    const vexhost::View3D viewBefore = host().frames().active()->view();
    const vextest::RestoredState before = restoredState();
    AnimationSettings_s settings = timeSettings(TimeAnimationOperation_e::Loop, 2);
    settings.FadeIn = true;
    startCallLog();
    EXPECT_EQ(AnimatorTime::NoEnabledZone,
              animateError(keyFramesWithCounts({4, 4, 1}), 0, 3, settings));
    EXPECT_TRUE(
        linesStartingWith(takeCallLog(), vextest::callLineStart("VexUtilViewRotate3D")).empty());
    EXPECT_EQ(viewBefore, host().frames().active()->view());
    EXPECT_EQ(0u, host().progress().startCount());
    expectRestored(before);
}

TEST_F(AnimatorTimeTest, LoopAndBounceRefuseZeroCycles) {
    addZonesFrom0To1();
    for (TimeAnimationOperation_e operation :
         {TimeAnimationOperation_e::Loop, TimeAnimationOperation_e::Bounce}) {
        SCOPED_TRACE(::testing::PrintToString(operation));
        EXPECT_EQ(AnimatorTime::NoCycles,
                  animateError(keyFramesOfTotal(5), 0, 2, timeSettings(operation, 0)));
    }
}

TEST_F(AnimatorTimeTest, EachFrameSetsItsTimeAndFramesPastTheListAreOutOfRange) {
    const std::vector<KeyFrame_s> keyFrames = keyFramesOfTotal(5, 0, 1);
    LockScope lock;
    AnimatorTime stage(keyFrames, timeSettings(TimeAnimationOperation_e::AsCaptured), nullptr);
    startCallLog();
    stage.animateFrame(3);
    stage.animateFrame(1);
    EXPECT_EQ(
        (std::vector<std::string>{vextest::callLine("VexUtilSolutionTimeSetCurrent", {0.75}),
                                  vextest::callLine("VexUtilSolutionTimeSetCurrent", {0.25})}),
        takeCallLog());
    EXPECT_EQ("invalid vector subscript", vextest::errorOf([&] { stage.animateFrame(5); }));
    EXPECT_THROW(stage.animateFrame(5), std::out_of_range);
}

TEST_F(AnimatorTimeTest, TheHostKeepsTheTimeOfTheLastFrame) {
    addZonesFrom0To1();
    ASSERT_EQ("", animateError(keyFramesWithCounts({4, 2, 1}), 0, 3,
                               timeSettings(TimeAnimationOperation_e::Bounce, 1)));
    // T = 7, n = 3: 0, 0.5, 1, 1, 0.5, 0, then the maximum.
    EXPECT_EQ(1.0, host().dataSet().solutionTime());
}

TEST_F(AnimatorTimeTest, AnOperationOutsideTheListConfiguresNothing) {
    addZonesFrom0To1();
    const vextest::RestoredState before = restoredState();
    EXPECT_TRUE(timesOf(keyFramesOfTotal(5), timeSettings(static_cast<TimeAnimationOperation_e>(7)))
                    .empty());
    const std::string error = vextest::errorOf([&] {
        AnimationManager::animate(keyFramesOfTotal(5), 0, 2,
                                  timeSettings(static_cast<TimeAnimationOperation_e>(7)),
                                  AnimationManager::SuppressMacroRecording);
    });
    EXPECT_EQ("invalid vector subscript", error);
    expectRestored(before);
}

}  // namespace
}  // namespace vexutiltools
}  // namespace vexplot
