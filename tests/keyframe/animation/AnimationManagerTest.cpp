#include "animation/AnimationManager.h"

#include <gtest/gtest.h>

#include <cmath>
#include <stdexcept>
#include <string>
#include <vector>

#include "AnimationFixture.h"
#include "addon/KeyFrameError.h"
#include "addon/LockScope.h"
#include "support/CallLogLines.h"
#include "vexhost/Drawing.h"
#include "vexhost/Exporter.h"
#include "vexhost/FrameStack.h"
#include "vexhost/Host.h"
#include "vexhost/MacroRecorder.h"
#include "vexhost/ProgressStatus.h"
#include "vexhost/StyleStore.h"

namespace vexplot {
namespace vexutiltools {
namespace {

const std::string AnimatingText = "Animating.... Press [Esc] or click [Stop] to cancel.";

class AnimationManagerTest : public vextest::AnimationFixture {
protected:
    // Frame counts 3, 2, 7 with psi 0, 30, 50: frame f of the whole list shows psi 10 f.
    std::vector<KeyFrame_s> threeKeyFrames() { return keyFramesWithPsi({0, 30, 50}, {3, 2, 7}); }

    // The frames that a run drew, recovered from the psi angle set before each redraw.
    std::vector<int> framesDrawn(const std::vector<std::string>& log) {
        std::vector<int> frames;
        for (double psi :
             psiAtEachRedraw(logFrom(log, "VexUtilStatusStartPercentDone(\"Animating")))
            frames.push_back(static_cast<int>(std::lround(psi / 10.0)));
        return frames;
    }
};

struct RangeCase {
    const char* what;
    uint64_t first;
    uint64_t count;
    uint64_t start;
    uint64_t end;
    std::vector<int> frames;
    std::vector<int32_t> percents;
};

TEST_F(AnimationManagerTest, RunsTheFramesOfTheRange) {
    const RangeCase cases[] = {
        {"the whole list", 0, 3, 0, 6, {0, 1, 2, 3, 4, 5}, {14, 28, 42, 57, 71, 85}},
        {"the first two key frames selected", 0, 1, 0, 4, {0, 1, 2, 3}, {20, 40, 60, 80}},
        {"the second and third selected", 1, 1, 3, 6, {3, 4, 5}, {25, 50, 75}},
        {"one key frame alone", 1, 0, 3, 4, {3}, {50}},
    };
    for (const RangeCase& c : cases) {
        SCOPED_TRACE(c.what);
        {
            LockScope lock;
            AnimationManager manager(threeKeyFrames(), c.first, c.count, AnimationSettings_s());
            EXPECT_EQ(c.start, manager.getStartFrame());
            EXPECT_EQ(c.end, manager.getEndFrame());
        }
        startCallLog();
        EXPECT_EQ("", animateError(threeKeyFrames(), c.first, c.count, AnimationSettings_s()));
        EXPECT_EQ(c.frames, framesDrawn(takeCallLog()));
        EXPECT_EQ(AnimatingText, host().progress().texts().back());
        // The interpolation's checks come first; the run's are the last ones.
        const std::vector<int32_t>& percents = host().progress().checkedPercents();
        ASSERT_GE(percents.size(), c.percents.size());
        EXPECT_EQ(c.percents,
                  std::vector<int32_t>(percents.end() - c.percents.size(), percents.end()));
    }
}

TEST_F(AnimationManagerTest, TheProgressTotalIsOneMoreThanTheFramesRun) {
    // 6 frames, total 7: after the last frame the bar stands at 6/7 and never at 100.
    startCallLog();
    ASSERT_EQ("", animateError(threeKeyFrames(), 0, 3, AnimationSettings_s()));
    const std::vector<std::string> starts =
        linesStartingWith(takeCallLog(), "VexUtilStatusStartPercentDone(\"Animating");
    EXPECT_EQ((std::vector<std::string>{"VexUtilStatusStartPercentDone(\"" + AnimatingText +
                                        "\", true, true)"}),
              starts);
    EXPECT_EQ(85, host().progress().checkedPercents().back());
}

TEST_F(AnimationManagerTest, ARangeThatEndsOnNoKeyFrameIsAProgrammingError) {
    for (const auto& [first, count] :
         std::vector<std::pair<uint64_t, uint64_t>>{{1, 2}, {2, 1}, {3, 0}, {5, 1}, {0, 4}}) {
        const std::string error = vextest::errorOf([&] {
            AnimationManager::animate(threeKeyFrames(), first, count, AnimationSettings_s(),
                                      AnimationManager::SuppressMacroRecording);
        });
        EXPECT_EQ(0u, error.find("AnimationManager::AnimationManager: ")) << error;
    }
    EXPECT_THROW(AnimationManager::animate(threeKeyFrames(), 1, 2, AnimationSettings_s(),
                                           AnimationManager::SuppressMacroRecording),
                 std::invalid_argument);
    EXPECT_EQ(0u, host().progress().startCount()) << "nothing was built";
}

TEST_F(AnimationManagerTest, AFrameThatIsNot3DIsRefusedBeforeAnythingIsBuilt) {
    host().frames().create(VexPlotType_XYLine);
    startCallLog();
    EXPECT_EQ("The current frame must be in 3D Cartesian mode.",
              animateError(threeKeyFrames(), 0, 3, AnimationSettings_s()));
    EXPECT_EQ((std::vector<std::string>{vextest::addOnLockStart(),
                                        vextest::callLine("VexUtilFrameGetPlotType"),
                                        vextest::addOnLockFinish()}),
              takeCallLog());
}

TEST_F(AnimationManagerTest, FewerThanTwoKeyFramesAreRefusedWhileTheChainIsBuilt) {
    const RestoredState before = restoredState();
    for (std::size_t size : {0u, 1u}) {
        const std::vector<KeyFrame_s> keyFrames =
            keyFramesWithCounts(std::vector<uint64_t>(size, 4));
        EXPECT_EQ("At least two keyFrame views must be established to perform an animation.",
                  animateError(keyFrames, 0, size, AnimationSettings_s()));
    }
    EXPECT_EQ(0u, host().progress().startCount());
    expectRestored(before);
}

TEST_F(AnimationManagerTest, StopAtTheFirstCheckCancelsAfterOneFrameAndRedraws) {
    const RestoredState before = restoredState();
    // The three views between the key frames take the first three checks.
    host().progress().pressStopAt(4);
    startCallLog();
    EXPECT_EQ("Animation canceled.", animateError(threeKeyFrames(), 0, 3, AnimationSettings_s()));
    const std::vector<std::string> run =
        logFrom(takeCallLog(), "VexUtilStatusStartPercentDone(\"Animating");
    // Frame 0 drawn, the check that answered Stop, then the redraw of the cancel.
    EXPECT_EQ((std::vector<double>{0, 0}), psiAtEachRedraw(run));
    const std::vector<std::string> afterFrame =
        logFrom(run, vextest::callLineStart("VexUtilStatusCheckPercentDone"));
    ASSERT_GE(afterFrame.size(), 2u);
    EXPECT_EQ(vextest::callLine("VexUtilStatusCheckPercentDone", {14}), afterFrame[0]);
    EXPECT_EQ(vextest::callLine("VexUtilRedraw", {true}), afterFrame[1]);
    EXPECT_EQ(2u, host().drawing().drawnFrames());
    expectRestored(before);
}

TEST_F(AnimationManagerTest, StopAtTheLastFramesCheckStillCancels) {
    host().progress().pressStopAt(3 + 6);
    EXPECT_EQ("Animation canceled.", animateError(threeKeyFrames(), 0, 3, AnimationSettings_s()));
    EXPECT_EQ(7u, host().drawing().drawnFrames()) << "six frames and the cancel's redraw";
}

TEST_F(AnimationManagerTest, DisplayListsAreOffDuringTheRunAndSwitchedBack) {
    startCallLog();
    ASSERT_EQ("", animateError(threeKeyFrames(), 0, 3, AnimationSettings_s()));
    const std::vector<std::string> log = takeCallLog();
    const std::vector<std::string> displayLists = linesStartingWith(log, "VexUtilStyle");
    std::vector<std::string> interfaceCalls;
    for (const std::string& line : displayLists)
        if (line.find("\"Interface\"") != std::string::npos)
            interfaceCalls.push_back(line);
    EXPECT_EQ(
        (std::vector<std::string>{
            vextest::callLine("VexUtilStyleGetLowLevelX", {"Interface", "UseDisplayLists"}),
            vextest::callLine("VexUtilStyleSetLowLevelX", {"Interface", "UseDisplayLists", false}),
            vextest::callLine("VexUtilStyleSetLowLevelX", {"Interface", "UseDisplayLists", true})}),
        interfaceCalls);
    // Off before the first frame is drawn.
    const std::vector<std::string> fromOff = logFrom(
        log,
        vextest::callLine("VexUtilStyleSetLowLevelX", {"Interface", "UseDisplayLists", false}));
    EXPECT_EQ(6u, linesStartingWith(fromOff, vextest::callLineStart("VexUtilRedraw")).size());
}

TEST_F(AnimationManagerTest, DisplayListsThatWereOffStayOff) {
    host().style().setBool({"Interface", "UseDisplayLists"}, false);
    ASSERT_EQ("", animateError(threeKeyFrames(), 0, 3, AnimationSettings_s()));
    EXPECT_FALSE(host().style().getBool({"Interface", "UseDisplayLists"}));
}

TEST_F(AnimationManagerTest, AfterANormalRunTheHostKeepsTheLastFramesView) {
    ASSERT_EQ("", animateError(threeKeyFrames(), 1, 1, AnimationSettings_s()));
    EXPECT_NEAR(50.0, host().frames().active()->view().psi(), 1e-9);
}

TEST_F(AnimationManagerTest, TheRunEndsInOrderDisplayListsStatusChainLock) {
    AnimationSettings_s settings;
    settings.FadeIn = true;
    settings.AnimateStreamtraces = true;
    settings.Destination = Destination_e::ToFile;
    startCallLog();
    ASSERT_EQ("", animateError(threeKeyFrames(), 0, 3, settings, AnimationManager::RecordMacro));
    const std::vector<std::string> tail =
        logFrom(takeCallLog(), vextest::callLine("VexUtilStatusCheckPercentDone", {85}));
    EXPECT_EQ(
        (std::vector<std::string>{
            vextest::callLine("VexUtilStatusCheckPercentDone", {85}),
            vextest::callLine("VexUtilMacroIsRecordingActive"),
            vextest::callLine("VexUtilStyleSetLowLevelX", {"Interface", "UseDisplayLists", true}),
            vextest::callLine("VexUtilStatusFinishPercentDone"),
            vextest::callLine("VexUtilStyleSetLowLevelX",
                              {"GlobalThreeD", "LightSource", "Intensity", 75}),
            "VexUtilStyleSetLowLevelX(\"GlobalThreeD\", \"LightSource\", "
            "\"BackgroundLight\", 25)",
            vextest::callLine("VexUtilStyleSetLowLevelX",
                              {"ThreeDAxis", "FrameAxis", "Show", true}),
            "VexUtilStyleSetLowLevelX(\"StreamAttributes\", \"StreamTiming\", "
            "\"TimeAnchor\", 0)",
            vextest::callLine("VexUtilExportIsRecording"), vextest::callLine("VexUtilExportFinish"),
            vextest::addOnLockFinish()}),
        tail);
}

// ---- Recording "Animate" ----

TEST_F(AnimationManagerTest, ARunRecordsAnimateWithItsDestinationWhileRecording) {
    host().macro().setRecording(true);
    ASSERT_EQ("", animateError(threeKeyFrames(), 0, 3, AnimationSettings_s(),
                               AnimationManager::RecordMacro));
    AnimationSettings_s toFile;
    toFile.Destination = Destination_e::ToFile;
    ASSERT_EQ("", animateError(threeKeyFrames(), 0, 3, toFile, AnimationManager::RecordMacro));
    EXPECT_EQ((std::vector<std::string>{
                  "$!ADDON \"Key Frame Animation\" Animate AnimationDestination=OnScreen",
                  "$!ADDON \"Key Frame Animation\" Animate AnimationDestination=ToFile"}),
              host().macro().lines());
}

TEST_F(AnimationManagerTest, ASuppressedRunRecordsNothing) {
    host().macro().setRecording(true);
    startCallLog();
    ASSERT_EQ("", animateError(threeKeyFrames(), 0, 3, AnimationSettings_s(),
                               AnimationManager::SuppressMacroRecording));
    EXPECT_TRUE(host().macro().lines().empty());
    EXPECT_TRUE(linesStartingWith(takeCallLog(), "VexUtilMacro").empty());
}

TEST_F(AnimationManagerTest, ARunWhileNotRecordingRecordsNothing) {
    ASSERT_EQ("", animateError(threeKeyFrames(), 0, 3, AnimationSettings_s(),
                               AnimationManager::RecordMacro));
    EXPECT_TRUE(host().macro().lines().empty());
}

TEST_F(AnimationManagerTest, ACanceledRunRecordsNothing) {
    host().macro().setRecording(true);
    host().progress().pressStopAt(5);
    EXPECT_EQ("Animation canceled.", animateError(threeKeyFrames(), 0, 3, AnimationSettings_s(),
                                                  AnimationManager::RecordMacro));
    EXPECT_TRUE(host().macro().lines().empty());
}

TEST_F(AnimationManagerTest, ADestinationWithoutANameFailsToRecordAfterExporting) {
    const RestoredState before = restoredState();
    host().macro().setRecording(true);
    AnimationSettings_s settings;
    settings.Destination = static_cast<Destination_e>(7);
    const std::string error = vextest::errorOf([&] {
        AnimationManager::animate(threeKeyFrames(), 0, 3, settings, AnimationManager::RecordMacro);
    });
    EXPECT_EQ("Enumeration out of range.", error);
    EXPECT_EQ(1u, host().exporter().counts().finishes) << "any destination but 0 exports";
    EXPECT_EQ(6u, host().exporter().counts().frames);
    EXPECT_TRUE(host().macro().lines().empty());
    expectRestored(before);
}

// ---- A key frame with a frame count of 0 ----

TEST_F(AnimationManagerTest, AFrameCountOfZeroRunsUntilStopAndLeavesTheHostRestored) {
    // Unguarded: the segment's view count wraps around, so only Stop ends the interpolation.
    const RestoredState before = restoredState();
    AnimationSettings_s settings;
    settings.FadeIn = true;
    settings.FadeOut = true;
    settings.AnimateStreamtraces = true;
    settings.Destination = Destination_e::ToFile;
    host().progress().pressStopAt(5);
    EXPECT_EQ("Animation canceled.", animateError(keyFramesWithCounts({0, 1, 1}), 0, 3, settings,
                                                  AnimationManager::RecordMacro));
    EXPECT_EQ((std::vector<std::string>{
                  "Creating interpolated views.... Press [Esc] or click [Stop] to cancel."}),
              host().progress().texts());
    EXPECT_EQ(5u, host().progress().checkedPercents().size());
    EXPECT_EQ(0u, host().drawing().drawnFrames());
    EXPECT_EQ(0u, host().exporter().counts().starts);
    expectRestored(before);
}

}  // namespace
}  // namespace vexutiltools
}  // namespace vexplot
