#include "animation/AnimatorFade.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include "AnimationFixture.h"
#include "addon/LockScope.h"
#include "animation/AnimatorOnScreen.h"
#include "support/CallLogLines.h"
#include "vexhost/Host.h"
#include "vexhost/ProgressStatus.h"
#include "vexhost/StyleStore.h"

namespace vexplot {
namespace vexutiltools {
namespace {

using StyleStorePath = vexhost::StyleStore::Path;

const std::string IntensitySet = vextest::callLineStart(
    "VexUtilStyleSetLowLevelX", {"GlobalThreeD", "LightSource", "Intensity"});
const std::string BackgroundSet = vextest::callLineStart(
    "VexUtilStyleSetLowLevelX", {"GlobalThreeD", "LightSource", "BackgroundLight"});

AnimationSettings_s fadeSettings(bool fadeIn, bool fadeOut) {
    AnimationSettings_s settings;
    settings.FadeIn = fadeIn;
    settings.FadeOut = fadeOut;
    return settings;
}

class AnimatorFadeTest : public vextest::AnimationFixture {
protected:
    void SetUp() override {
        AnimationFixture::SetUp();
        host().style().setDouble({"GlobalThreeD", "LightSource", "Intensity"}, 80);
        host().style().setDouble({"GlobalThreeD", "LightSource", "BackgroundLight"}, 20);
    }

    // Two key frames over T frames in all.
    std::vector<KeyFrame_s> keyFramesOfTotal(uint64_t total) {
        return keyFramesWithCounts({total - 1, 1});
    }

    std::unique_ptr<AnimatorFade> fadeStage(uint64_t total, bool fadeIn, bool fadeOut) {
        const std::vector<KeyFrame_s> keyFrames = keyFramesOfTotal(total);
        return std::make_unique<AnimatorFade>(keyFrames, fadeSettings(fadeIn, fadeOut),
                                              std::make_unique<AnimatorOnScreen>(keyFrames));
    }

    // Runs the frames from `first` on; per frame the lighting factor written (NaN when nothing was
    // written), checked to be one factor for both values.
    std::vector<double> factorsWritten(AnimatorFade& stage, uint64_t total, uint64_t first = 0) {
        std::vector<double> factors;
        for (uint64_t frame = first; frame < total; ++frame) {
            startCallLog();
            stage.animateFrame(frame);
            const std::vector<std::string> log = takeCallLog();
            const std::vector<std::string> intensity = linesStartingWith(log, IntensitySet);
            const std::vector<std::string> background = linesStartingWith(log, BackgroundSet);
            EXPECT_EQ(intensity.size(), background.size()) << "frame " << frame;
            if (intensity.empty()) {
                factors.push_back(std::nan(""));
                continue;
            }
            EXPECT_EQ(1u, intensity.size()) << "frame " << frame;
            const double factor = loggedValue(intensity.front()) / 80.0;
            EXPECT_NEAR(factor * 20.0, loggedValue(background.front()), 1e-12) << frame;
            factors.push_back(factor);
        }
        return factors;
    }
};

struct LengthCase {
    uint64_t total;
    uint64_t length;
};

TEST_F(AnimatorFadeTest, FadesOverATenthOfShortRunsAndThirtyFramesOfLongerOnes) {
    // The jump from 9 frames at 90 to 30 at 91 is deliberate.
    const LengthCase cases[] = {{2, 0},  {9, 0},  {10, 1},  {19, 1},   {50, 5},
                                {89, 8}, {90, 9}, {91, 30}, {100, 30}, {5000, 30}};
    LockScope lock;
    for (const LengthCase& c : cases) {
        SCOPED_TRACE("T = " + std::to_string(c.total));
        const std::unique_ptr<AnimatorFade> both = fadeStage(c.total, true, true);
        EXPECT_EQ(c.length, both->getFadeInFrameCount());
        EXPECT_EQ(c.length, both->getFadeOutFrameCount());
        const std::unique_ptr<AnimatorFade> inOnly = fadeStage(c.total, true, false);
        EXPECT_EQ(c.length, inOnly->getFadeInFrameCount());
        EXPECT_EQ(0u, inOnly->getFadeOutFrameCount());
        const std::unique_ptr<AnimatorFade> outOnly = fadeStage(c.total, false, true);
        EXPECT_EQ(0u, outOnly->getFadeInFrameCount());
        EXPECT_EQ(c.length, outOnly->getFadeOutFrameCount());
    }
}

TEST_F(AnimatorFadeTest, FadeInOnlyRampsUpOverTheFirstFramesAndThenLeavesTheLighting) {
    LockScope lock;
    const std::unique_ptr<AnimatorFade> stage = fadeStage(50, true, false);
    const std::vector<double> factors = factorsWritten(*stage, 50);
    for (uint64_t frame = 0; frame <= 5; ++frame)
        EXPECT_DOUBLE_EQ(frame / 5.0, factors[frame]) << frame;
    for (uint64_t frame = 6; frame < 50; ++frame)
        EXPECT_TRUE(std::isnan(factors[frame])) << "frame " << frame << " wrote " << factors[frame];
    EXPECT_EQ(80.0, host().style().getDouble({"GlobalThreeD", "LightSource", "Intensity"}))
        << "the middle keeps what the last fade-in frame wrote";
}

TEST_F(AnimatorFadeTest, FadeOutOnlyRampsDownOverTheLastFrames) {
    LockScope lock;
    const std::unique_ptr<AnimatorFade> stage = fadeStage(50, false, true);
    const std::vector<double> factors = factorsWritten(*stage, 50);
    for (uint64_t frame = 0; frame <= 44; ++frame)
        EXPECT_TRUE(std::isnan(factors[frame])) << "frame " << frame << " wrote " << factors[frame];
    const double expected[] = {0.8, 0.6, 0.4, 0.2, 0.0};
    for (uint64_t frame = 45; frame < 50; ++frame)
        EXPECT_NEAR(expected[frame - 45], factors[frame], 1e-12) << frame;
    EXPECT_EQ(0.0, host().style().getDouble({"GlobalThreeD", "LightSource", "Intensity"}));
}

TEST_F(AnimatorFadeTest, BothFadesInAShortRunWriteNothingInTheMiddle) {
    LockScope lock;
    const std::unique_ptr<AnimatorFade> stage = fadeStage(20, true, true);
    const std::vector<double> factors = factorsWritten(*stage, 20);
    EXPECT_DOUBLE_EQ(0.0, factors[0]);
    EXPECT_DOUBLE_EQ(0.5, factors[1]);
    EXPECT_DOUBLE_EQ(1.0, factors[2]);
    for (uint64_t frame = 3; frame < 18; ++frame)
        EXPECT_TRUE(std::isnan(factors[frame])) << frame;
    EXPECT_DOUBLE_EQ(0.5, factors[18]);
    EXPECT_DOUBLE_EQ(0.0, factors[19]);
}

TEST_F(AnimatorFadeTest, AShortRunFadesOutNowhere) {
    LockScope lock;
    const std::unique_ptr<AnimatorFade> stage = fadeStage(9, false, true);
    for (double factor : factorsWritten(*stage, 9))
        EXPECT_TRUE(std::isnan(factor));
}

TEST_F(AnimatorFadeTest, AShortRunFadingInWritesZeroOverZeroAtFrameZeroOnly) {
    // Kept as it is: with a fade length of 0 the first frame's factor is 0 / 0. The host refuses
    // the NaN and keeps its lighting.
    LockScope lock;
    const std::unique_ptr<AnimatorFade> stage = fadeStage(9, true, false);
    startCallLog();
    stage->animateFrame(0);
    const std::vector<std::string> log = takeCallLog();
    const std::vector<std::string> intensity = linesStartingWith(log, IntensitySet);
    const std::vector<std::string> background = linesStartingWith(log, BackgroundSet);
    ASSERT_EQ(1u, intensity.size());
    ASSERT_EQ(1u, background.size());
    EXPECT_TRUE(std::isnan(loggedValue(intensity.front()))) << intensity.front();
    EXPECT_TRUE(std::isnan(loggedValue(background.front()))) << background.front();
    EXPECT_EQ(80.0, host().style().getDouble({"GlobalThreeD", "LightSource", "Intensity"}));
    for (double factor : factorsWritten(*stage, 9, 1))
        EXPECT_TRUE(std::isnan(factor)) << "a later frame wrote " << factor;
}

TEST_F(AnimatorFadeTest, HidesTheAxisWhileItExistsAndPutsEverythingBack) {
    host().style().setBool({"ThreeDAxis", "FrameAxis", "Show"}, true);
    const vextest::RestoredState before = restoredState();
    {
        LockScope lock;
        std::unique_ptr<AnimatorFade> stage = fadeStage(50, true, true);
        EXPECT_FALSE(host().style().getBool({"ThreeDAxis", "FrameAxis", "Show"}));
        stage->animateFrame(0);
        stage->animateFrame(47);
        EXPECT_DOUBLE_EQ(0.4 * 80,
                         host().style().getDouble({"GlobalThreeD", "LightSource", "Intensity"}));
    }
    expectRestored(before);
}

TEST_F(AnimatorFadeTest, AHiddenAxisStaysHidden) {
    host().style().setBool({"ThreeDAxis", "FrameAxis", "Show"}, false);
    LockScope lock;
    fadeStage(50, true, false).reset();
    EXPECT_FALSE(host().style().getBool({"ThreeDAxis", "FrameAxis", "Show"}));
}

TEST_F(AnimatorFadeTest, ASelectionAwayFromBothEndsRunsWithoutFading) {
    // T = 51, fade length 5: frames 10 to 30 lie between the fades of the whole list.
    const vextest::RestoredState before = restoredState();
    startCallLog();
    ASSERT_EQ("",
              animateError(keyFramesWithCounts({10, 20, 20, 1}), 1, 1, fadeSettings(true, true)));
    const std::vector<std::string> run =
        logFrom(takeCallLog(), "VexUtilStatusStartPercentDone(\"Animating");
    EXPECT_EQ(21u, linesStartingWith(run, vextest::callLineStart("VexUtilRedraw")).size());
    const std::vector<std::string> lighting = linesStartingWith(run, IntensitySet);
    EXPECT_EQ(std::vector<std::string>{IntensitySet + ", 80)"}, lighting) << "only the restoration";
    expectRestored(before);
}

TEST_F(AnimatorFadeTest, ACanceledRunPutsTheLightingAndAxisBack) {
    const vextest::RestoredState before = restoredState();
    // Stop in the middle of the fade out (the 48 views between take the first 48 checks).
    host().progress().pressStopAt(48 + 48);
    EXPECT_EQ("Animation canceled.",
              animateError(keyFramesOfTotal(50), 0, 2, fadeSettings(true, true)));
    expectRestored(before);
}

TEST_F(AnimatorFadeTest, ValuesWhoseReadIsRefusedAreLeftAsTheyWere) {
    const StyleStorePath intensity = {"GlobalThreeD", "LightSource", "Intensity"};
    const StyleStorePath background = {"GlobalThreeD", "LightSource", "BackgroundLight"};
    const StyleStorePath axisShow = {"ThreeDAxis", "FrameAxis", "Show"};
    host().style().setBool(axisShow, false);
    host().style().refuse(intensity, true, false);
    host().style().refuse(axisShow, true, false);
    LockScope lock;
    {
        std::unique_ptr<AnimatorFade> stage = fadeStage(20, true, true);
        stage->animateFrame(0);
        EXPECT_EQ(80, host().style().getDouble(intensity));
        EXPECT_EQ(0, host().style().getDouble(background)) << "the value read still fades";
        EXPECT_FALSE(host().style().getBool(axisShow));
        stage->animateFrame(19);
    }
    EXPECT_EQ(80, host().style().getDouble(intensity));
    EXPECT_EQ(20, host().style().getDouble(background));
    EXPECT_FALSE(host().style().getBool(axisShow));
}

}  // namespace
}  // namespace vexutiltools
}  // namespace vexplot
