#include "animation/AnimatorToFile.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "AnimationFixture.h"
#include "addon/KeyFrameError.h"
#include "addon/LockScope.h"
#include "support/CallLogLines.h"
#include "vexhost/Exporter.h"
#include "vexhost/Host.h"
#include "vexhost/ProgressStatus.h"
#include "vexhost/StyleStore.h"

namespace vexplot {
namespace vexutiltools {
namespace {

const std::string FormatMessage =
    "The export file format must be set to an animation format \nbefore animating to file.";
const std::string InProgressMessage =
    "Unable to start animation export. Another export is already in progress.";

class AnimatorToFileTest : public vextest::AnimationFixture {
protected:
    void setExportFormat(int64_t format) {
        host().style().setInt({"ExportSetup", "ExportFormat"}, format);
    }

    // The export calls of a stage that runs `frames` frames and is then destroyed.
    std::vector<std::string> exportCallsOfFrames(uint64_t frames) {
        const std::vector<KeyFrame_s> keyFrames = keyFramesWithCounts({frames, 1});
        LockScope lock;
        startCallLog();
        {
            AnimatorToFile stage(keyFrames);
            for (uint64_t frame = 0; frame < frames; ++frame)
                stage.animateFrame(frame);
        }
        return linesStartingWith(takeCallLog(), "VexUtilExport");
    }

    AnimationSettings_s toFile() const {
        AnimationSettings_s settings;
        settings.Destination = Destination_e::ToFile;
        return settings;
    }
};

TEST_F(AnimatorToFileTest, AOneFrameRunStartsAndFinishes) {
    EXPECT_EQ((std::vector<std::string>{vextest::callLine("VexUtilExportIsRecording"),
                                        vextest::callLine("VexUtilExportStart"),
                                        vextest::callLine("VexUtilExportIsRecording"),
                                        vextest::callLine("VexUtilExportFinish")}),
              exportCallsOfFrames(1));
    EXPECT_EQ(1u, host().exporter().counts().starts);
    EXPECT_EQ(1u, host().exporter().counts().frames);
    EXPECT_EQ(1u, host().exporter().counts().finishes);
}

TEST_F(AnimatorToFileTest, ARunOfNFramesAddsNMinusOneFrames) {
    const std::vector<std::string> calls = exportCallsOfFrames(5);
    EXPECT_EQ(1u, linesStartingWith(calls, vextest::callLine("VexUtilExportStart")).size());
    EXPECT_EQ(4u, linesStartingWith(calls, vextest::callLine("VexUtilExportNextFrame")).size());
    EXPECT_EQ(1u, linesStartingWith(calls, vextest::callLine("VexUtilExportFinish")).size());
    EXPECT_EQ(5u, host().exporter().counts().frames);
    EXPECT_EQ(1u, host().exporter().counts().finishes);
}

TEST_F(AnimatorToFileTest, TheFormatIsReadAsAnIntegerBeforeTheStart) {
    const std::vector<KeyFrame_s> keyFrames = keyFramesWithCounts({1, 1});
    LockScope lock;
    AnimatorToFile stage(keyFrames);
    startCallLog();
    stage.animateFrame(0);
    EXPECT_EQ((std::vector<std::string>{
                  vextest::callLine("VexUtilExportIsRecording"),
                  vextest::callLine("VexUtilStyleGetLowLevelX", {"ExportSetup", "ExportFormat"}),
                  vextest::callLine("VexUtilExportStart")}),
              takeCallLog());
}

TEST_F(AnimatorToFileTest, OnlyAnimationFormatsAreAccepted) {
    const std::vector<KeyFrame_s> keyFrames = keyFramesWithCounts({1, 1});
    for (int64_t format = 0; format <= 22; ++format) {
        SCOPED_TRACE("format " + std::to_string(format));
        setExportFormat(format);
        const bool animation = format == 0 || format == 14 || format == 17 || format == 20 ||
                               format == 21 || format == 22;
        LockScope lock;
        {
            AnimatorToFile stage(keyFrames);
            EXPECT_EQ(animation ? "" : FormatMessage,
                      vextest::errorOf([&] { stage.animateFrame(0); }));
        }
        EXPECT_FALSE(host().exporter().isRecording());
    }
    EXPECT_EQ(6u, host().exporter().counts().starts);
}

TEST_F(AnimatorToFileTest, AStillImageFormatStartsNothingAndEndsTheRun) {
    setExportFormat(13);
    const vextest::RestoredState before = restoredState();
    AnimationSettings_s settings = toFile();
    settings.FadeIn = true;
    EXPECT_EQ(FormatMessage, animateError(keyFramesWithCounts({3, 1}), 0, 2, settings));
    EXPECT_EQ(0u, host().exporter().counts().starts);
    expectRestored(before);
}

TEST_F(AnimatorToFileTest, AnUnreadableFormatCountsAsNoAnimationFormat) {
    host().style().refuse({"ExportSetup", "ExportFormat"}, true, false);
    EXPECT_EQ(FormatMessage, animateError(keyFramesWithCounts({3, 1}), 0, 2, toFile()));
}

TEST_F(AnimatorToFileTest, AnotherExportInProgressIsReportedBeforeTheFormatIsLookedAt) {
    setExportFormat(13);
    const VexAddOn_pa another = registerAddOn("Another Add-On");
    {
        vextest::ScopedLock lock(another);
        ASSERT_TRUE(VexUtilExportStart());
    }
    startCallLog();
    EXPECT_EQ(InProgressMessage, animateError(keyFramesWithCounts({3, 1}), 0, 2, toFile()));
    const std::vector<std::string> log = takeCallLog();
    EXPECT_TRUE(
        linesStartingWith(log, vextest::callLineStart("VexUtilStyleGetLowLevelX", {"ExportSetup"}))
            .empty());
    // The stage closes whatever export the host reports open when it is destroyed.
    EXPECT_EQ(1u, linesStartingWith(log, vextest::callLineStart("VexUtilExportFinish")).size());
    EXPECT_FALSE(host().exporter().isRecording());
}

TEST_F(AnimatorToFileTest, ARefusedStartIsReported) {
    host().exporter().setRefuseStart(true);
    const vextest::RestoredState before = restoredState();
    EXPECT_EQ("Unable to start animation export.",
              animateError(keyFramesWithCounts({3, 1}), 0, 2, toFile()));
    expectRestored(before);
}

TEST_F(AnimatorToFileTest, CancelAbandonsTheMovieOnceAndNothingIsFinished) {
    host().progress().pressStopAt(2 + 2);
    startCallLog();
    EXPECT_EQ("Animation canceled.", animateError(keyFramesWithCounts({3, 2}), 0, 2, toFile()));
    const std::vector<std::string> log = takeCallLog();
    EXPECT_EQ(1u, linesStartingWith(log, vextest::callLine("VexUtilExportCancel")).size());
    EXPECT_TRUE(linesStartingWith(log, vextest::callLine("VexUtilExportFinish")).empty());
    EXPECT_EQ(1u, host().exporter().counts().cancels);
    EXPECT_EQ(0u, host().exporter().counts().finishes);
    EXPECT_EQ(2u, host().exporter().counts().frames);
}

TEST_F(AnimatorToFileTest, CancelBeforeTheStartTouchesNoExport) {
    const std::vector<KeyFrame_s> keyFrames = keyFramesWithCounts({1, 1});
    LockScope lock;
    startCallLog();
    {
        AnimatorToFile stage(keyFrames);
        stage.cancel();
    }
    // Cancel and destruction only ask whether an export is open; with none, they close nothing.
    EXPECT_EQ((std::vector<std::string>{vextest::callLine("VexUtilExportIsRecording"),
                                        vextest::callLine("VexUtilExportIsRecording")}),
              linesStartingWith(takeCallLog(), "VexUtilExport"));
}

}  // namespace
}  // namespace vexutiltools
}  // namespace vexplot
