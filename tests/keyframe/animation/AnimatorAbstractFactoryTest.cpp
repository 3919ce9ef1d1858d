#include "animation/AnimatorAbstractFactory.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <typeinfo>
#include <vector>

#include "AnimationFixture.h"
#include "addon/LockScope.h"
#include "animation/AnimatorAbstract.h"
#include "animation/AnimatorFade.h"
#include "animation/AnimatorKeyFrame.h"
#include "animation/AnimatorOnScreen.h"
#include "animation/AnimatorStreams.h"
#include "animation/AnimatorTime.h"
#include "animation/AnimatorToFile.h"
#include "vexhost/Host.h"
#include "vexhost/ProgressStatus.h"
#include "vexhost/StyleStore.h"

namespace vexplot {
namespace vexutiltools {
namespace {

// The stages of a chain from the head, by class.
std::vector<std::string> stagesOf(const AnimatorInterface* stage) {
    std::vector<std::string> stages;
    while (stage != nullptr) {
        if (dynamic_cast<const AnimatorKeyFrame*>(stage))
            stages.push_back("KeyFrame");
        else if (dynamic_cast<const AnimatorFade*>(stage))
            stages.push_back("Fade");
        else if (dynamic_cast<const AnimatorStreams*>(stage))
            stages.push_back("Streams");
        else if (dynamic_cast<const AnimatorTime*>(stage))
            stages.push_back("Time");
        else if (dynamic_cast<const AnimatorOnScreen*>(stage))
            stages.push_back("OnScreen");
        else if (dynamic_cast<const AnimatorToFile*>(stage))
            stages.push_back("ToFile");
        else
            stages.push_back(typeid(*stage).name());
        const AnimatorAbstract* base = dynamic_cast<const AnimatorAbstract*>(stage);
        stage = base != nullptr ? base->getSuccessor() : nullptr;
    }
    return stages;
}

struct ChainCase {
    const char* what;
    bool animateTime;
    bool streamtraces;
    bool fadeIn;
    bool fadeOut;
    Destination_e destination;
    std::vector<std::string> stages;
};

class AnimatorAbstractFactoryTest : public vextest::AnimationFixture {};

TEST_F(AnimatorAbstractFactoryTest, BuildsTheChainTheSettingsAskFor) {
    addZone(0, 1);
    addZone(1, 1);
    const ChainCase cases[] = {
        {"plain settings",
         false,
         false,
         false,
         false,
         Destination_e::OnScreen,
         {"KeyFrame", "OnScreen"}},
        {"to file", false, false, false, false, Destination_e::ToFile, {"KeyFrame", "ToFile"}},
        {"any destination but the screen",
         false,
         false,
         false,
         false,
         static_cast<Destination_e>(5),
         {"KeyFrame", "ToFile"}},
        {"time",
         true,
         false,
         false,
         false,
         Destination_e::OnScreen,
         {"KeyFrame", "Time", "OnScreen"}},
        {"streamtraces",
         false,
         true,
         false,
         false,
         Destination_e::OnScreen,
         {"KeyFrame", "Streams", "OnScreen"}},
        {"fade in",
         false,
         false,
         true,
         false,
         Destination_e::OnScreen,
         {"KeyFrame", "Fade", "OnScreen"}},
        {"fade out",
         false,
         false,
         false,
         true,
         Destination_e::OnScreen,
         {"KeyFrame", "Fade", "OnScreen"}},
        {"everything",
         true,
         true,
         true,
         true,
         Destination_e::ToFile,
         {"KeyFrame", "Fade", "Streams", "Time", "ToFile"}},
    };
    const std::vector<KeyFrame_s> keyFrames = keyFramesWithCounts({3, 1});
    LockScope lock;
    for (const ChainCase& c : cases) {
        SCOPED_TRACE(c.what);
        AnimationSettings_s settings;
        settings.AnimateTime = c.animateTime;
        settings.AnimateStreamtraces = c.streamtraces;
        settings.FadeIn = c.fadeIn;
        settings.FadeOut = c.fadeOut;
        settings.Destination = c.destination;
        const std::unique_ptr<AnimatorInterface> chain =
            AnimatorAbstractFactory().createAnimator(keyFrames, settings);
        EXPECT_EQ(c.stages, stagesOf(chain.get()));
    }
}

TEST_F(AnimatorAbstractFactoryTest, EveryStageKnowsTheTotalFrameCountOfTheWholeList) {
    addZone(0, 1);
    AnimationSettings_s settings;
    settings.AnimateTime = true;
    settings.AnimateStreamtraces = true;
    settings.FadeIn = true;
    LockScope lock;
    const std::unique_ptr<AnimatorInterface> chain =
        AnimatorAbstractFactory().createAnimator(keyFramesWithCounts({3, 2, 7}), settings);
    for (const AnimatorAbstract* stage = dynamic_cast<const AnimatorAbstract*>(chain.get());
         stage != nullptr; stage = dynamic_cast<const AnimatorAbstract*>(stage->getSuccessor()))
        EXPECT_EQ(6u, stage->getTotalFrameCount());
}

TEST_F(AnimatorAbstractFactoryTest, AStageThatRefusesDestroysTheStagesBuiltBeforeIt) {
    // The key frame stage, built last, is ended by Stop: the fade and streamtrace stages built
    // before it put the axis, the lighting and the anchor back as they go.
    host().style().setDouble({"StreamAttributes", "StreamTiming", "TimeAnchor"}, 3);
    const vextest::RestoredState before = restoredState();
    AnimationSettings_s settings;
    settings.AnimateStreamtraces = true;
    settings.FadeIn = true;
    settings.FadeOut = true;
    host().progress().pressStopAt(1);
    {
        LockScope lock;
        EXPECT_EQ(
            "Animation canceled.", vextest::errorOf([&] {
                AnimatorAbstractFactory().createAnimator(keyFramesWithCounts({3, 1}), settings);
            }));
    }
    expectRestored(before);
}

}  // namespace
}  // namespace vexutiltools
}  // namespace vexplot
