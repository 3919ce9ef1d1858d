// Long animations: the views of a run are computed before its first frame and held once, so their
// memory grows with the number of frames and nothing else. The heavy measurement (a run of
// 1,000,000 frames, its time and peak memory) is bench_large_animation's; these runs stay short.
#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "HardeningScene.h"
#include "addon/LockScope.h"
#include "animation/AnimatorKeyFrame.h"
#include "model/KeyFrame_s.h"
#include "support/AddOnFixture.h"
#include "ui/DialogMain.h"
#include "vexhost/Drawing.h"
#include "vexhost/Host.h"
#include "vexhost/LockState.h"
#include "vexhost/ProgressStatus.h"
#include "vexhost/StyleStore.h"

namespace vextest {
namespace {

using namespace vexplot::vexutiltools;

// Two key frames `frames` frames apart, turned in every angle and moved.
std::vector<KeyFrame_s> twoKeyFrames(uint64_t frames) {
    std::vector<KeyFrame_s> keyFrames = scene::smallFlight();
    keyFrames.resize(2);
    keyFrames[0].frameCount = frames;
    return keyFrames;
}

class LargeAnimationTest : public AddOnFixture {
protected:
    void SetUp() override {
        AddOnFixture::SetUp();
        scene::transientScene();
    }
};

TEST_F(LargeAnimationTest, TheViewsOfARunTakeOneViewOfMemoryPerFrame) {
    for (const uint64_t frames : {1000u, 10000u, 100000u}) {
        LockScope lock;
        AnimatorKeyFrame stage(twoKeyFrames(frames), nullptr);
        EXPECT_EQ(frames + 1, stage.getViews().size());
        // Reserved once for the whole run: no growth by doubling, no second copy.
        EXPECT_EQ(stage.getViews().size(), stage.getViews().capacity()) << frames << " frames";
        vexhost::Host::instance().progress().reset();
    }
}

TEST_F(LargeAnimationTest, AHundredThousandFrameRunWithEveryStageShowsEveryFrame) {
    AnimationSettings_s settings = scene::everyStage(Destination_e::OnScreen);
    scene::giveDialog(twoKeyFrames(100000), settings);
    const auto result = scene::runCommand("Animate AnimationDestination=OnScreen");
    ASSERT_TRUE(result.ok) << result.error;
    vexhost::Host& host = vexhost::Host::instance();
    EXPECT_EQ(100001u, host.drawing().drawnFrames());
    // The fades last 30 frames of a run this long and end dark; the host is then put back.
    EXPECT_EQ(60, host.style().getDouble({"GlobalThreeD", "LightSource", "Intensity"}));
    EXPECT_EQ(0, host.lock().depth());
}

TEST_F(LargeAnimationTest, StopEndsALongRunAtOnceWhileItsViewsAreComputed) {
    scene::giveDialog(twoKeyFrames(10000000), AnimationSettings_s());
    vexhost::Host::instance().progress().pressStopAt(3);
    const auto result = scene::runCommand("Animate AnimationDestination=OnScreen");
    EXPECT_FALSE(result.ok);
    EXPECT_EQ("Key Frame Animation error:\nAnimation canceled.", result.error);
    EXPECT_EQ(0u, vexhost::Host::instance().drawing().drawnFrames());
}

}  // namespace
}  // namespace vextest
