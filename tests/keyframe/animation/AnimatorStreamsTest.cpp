#include "animation/AnimatorStreams.h"

#include <gtest/gtest.h>

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

const std::string AnchorSet = vextest::callLineStart(
    "VexUtilStyleSetLowLevelX", {"StreamAttributes", "StreamTiming", "TimeAnchor"});

class AnimatorStreamsTest : public vextest::AnimationFixture {
protected:
    void SetUp() override {
        AnimationFixture::SetUp();
        host().style().setDouble({"StreamAttributes", "StreamTiming", "TimeAnchor"}, 0.5);
        host().style().setDouble({"StreamAttributes", "StreamTiming", "DeltaTime"}, 2);
    }
};

TEST_F(AnimatorStreamsTest, EachFrameAdvancesTheAnchorByAFifthOfTheDeltaTimeAndTheEndPutsItBack) {
    const std::vector<KeyFrame_s> keyFrames = keyFramesWithCounts({2, 1});
    LockScope lock;
    startCallLog();
    {
        AnimatorStreams stage(keyFrames, std::make_unique<AnimatorOnScreen>(keyFrames));
        EXPECT_DOUBLE_EQ(0.4, stage.getAnchorStep());
        // The frame number plays no part: the anchor moves on each time.
        stage.animateFrame(2);
        stage.animateFrame(0);
        stage.animateFrame(1);
    }
    const std::vector<std::string> writes = linesStartingWith(takeCallLog(), AnchorSet);
    ASSERT_EQ(4u, writes.size());
    EXPECT_NEAR(0.5 + 2 / 5.0, loggedValue(writes[0]), 1e-12);
    EXPECT_NEAR(0.5 + 2 * 2 / 5.0, loggedValue(writes[1]), 1e-12);
    EXPECT_NEAR(0.5 + 3 * 2 / 5.0, loggedValue(writes[2]), 1e-12);
    EXPECT_EQ(AnchorSet + ", 0.5)", writes[3]);
    EXPECT_EQ(0.5, host().style().getDouble({"StreamAttributes", "StreamTiming", "TimeAnchor"}));
}

TEST_F(AnimatorStreamsTest, ACanceledRunPutsTheAnchorBack) {
    AnimationSettings_s settings;
    settings.AnimateStreamtraces = true;
    const vextest::RestoredState before = restoredState();
    host().progress().pressStopAt(3 + 4);
    EXPECT_EQ("Animation canceled.", animateError(keyFramesWithCounts({3, 2, 1}), 0, 3, settings));
    expectRestored(before);
}

TEST_F(AnimatorStreamsTest, ARefusedDeltaTimeLeavesTheMarkersStill) {
    host().style().refuse({"StreamAttributes", "StreamTiming", "DeltaTime"}, true, false);
    const std::vector<KeyFrame_s> keyFrames = keyFramesWithCounts({2, 1});
    LockScope lock;
    AnimatorStreams stage(keyFrames, nullptr);
    EXPECT_EQ(0.0, stage.getAnchorStep());
    stage.animateFrame(0);
    EXPECT_EQ(0.5, host().style().getDouble({"StreamAttributes", "StreamTiming", "TimeAnchor"}));
}

TEST_F(AnimatorStreamsTest, ARefusedAnchorReadLeavesTheAnchorAsItWas) {
    host().style().setDouble({"StreamAttributes", "StreamTiming", "TimeAnchor"}, 0.3);
    host().style().refuse({"StreamAttributes", "StreamTiming", "TimeAnchor"}, true, false);
    const std::vector<KeyFrame_s> keyFrames = keyFramesWithCounts({3, 1});
    LockScope lock;
    startCallLog();
    {
        AnimatorStreams stage(keyFrames, nullptr);
        stage.animateFrame(0);
        stage.animateFrame(1);
    }
    EXPECT_TRUE(linesStartingWith(takeCallLog(), AnchorSet).empty());
    EXPECT_EQ(0.3, host().style().getDouble({"StreamAttributes", "StreamTiming", "TimeAnchor"}));
}

}  // namespace
}  // namespace vexutiltools
}  // namespace vexplot
