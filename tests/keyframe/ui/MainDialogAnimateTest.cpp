// Animating from the main dialog: Animate Selected with its range, continuity check and
// destination reset; Animate All on screen and to file; the concurrency checks; the Options menu.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "MainDialogFixture.h"
#include "support/TemporaryDirectory.h"
#include "vexhost/DataSet.h"
#include "vexhost/Exporter.h"
#include "vexhost/Frame.h"
#include "vexhost/FrameStack.h"
#include "vexhost/MacroRecorder.h"
#include "vexhost/ProgressStatus.h"
#include "vexhost/UserDialogs.h"

namespace vextest {
namespace {

using vexhost::GuiUser;
using vexplot::vexutiltools::Destination_e;
using Kind = vexhost::GuiControl::Kind;
using Lines = std::vector<std::string>;

const std::string AnimateOnScreen =
    "$!ADDON \"Key Frame Animation\" Animate AnimationDestination=OnScreen";
const std::string AnimateToFile =
    "$!ADDON \"Key Frame Animation\" Animate AnimationDestination=ToFile";

class MainDialogAnimateTest : public MainDialogFixture {
protected:
    void SetUp() override {
        MainDialogFixture::SetUp();
        openMainDialog();
    }
    double hostPsi() { return host().frames().active()->view().psi(); }
    double keyFramePsi(uint64_t position) {
        return dialog().getKeyFrameModel().getItem(position).view.Psi;
    }
    bool animated(const std::vector<std::string>& log) {
        for (const std::string& call : log) {
            if (call.find("Animating....") != std::string::npos)
                return true;
        }
        return false;
    }
    std::vector<vexhost::UserDialogs::MessageBox> messageBoxes() {
        return host().userDialogs().messageBoxes();
    }
};

TEST_F(MainDialogAnimateTest, AnimateSelectedRunsFromTheFirstToTheLastSelectedKeyFrame) {
    appendKeyFrames(3);
    selectMain({1, 2});
    startCallLog();
    pressMain("Animate Selected");
    EXPECT_TRUE(animated(takeCallLog()));
    // It ends on the second key frame, not on the one after the selection.
    EXPECT_NEAR(hostPsi(), keyFramePsi(1), 1e-6);
    EXPECT_TRUE(errorMessages().empty());
}

TEST_F(MainDialogAnimateTest, AnimateSelectedIsNotRecorded) {
    appendKeyFrames(2);
    host().macro().setRecording(true);
    selectMain({1, 2});
    pressMain("Animate Selected");
    EXPECT_TRUE(host().macro().lines().empty());
}

TEST_F(MainDialogAnimateTest, AnimateSelectedNeedsAContinuousRange) {
    appendKeyFrames(3);
    selectMain({1, 3});
    startCallLog();
    pressMain("Animate Selected");
    EXPECT_EQ(errorMessages(), Lines{"Selected items must be a continuous range."});
    EXPECT_FALSE(animated(takeCallLog()));
}

TEST_F(MainDialogAnimateTest, AnimateSelectedToFileResetsTheDestinationToOnScreen) {
    appendKeyFrames(2);
    chooseOption(Title, "Destination:", "To File");
    selectMain({1, 2});
    pressMain("Animate Selected");
    ASSERT_EQ(messageBoxes().size(), 1u);
    EXPECT_EQ(messageBoxes()[0].type, VexMessageBox_Information);
    EXPECT_EQ(messageBoxes()[0].text,
              "\"Animate Selected\" does not support output to file.\nThe destination has been "
              "reset to \"On Screen\".");
    EXPECT_EQ(control(Title, "Destination:", {Kind::OptionMenu}).choice, 1);
    EXPECT_EQ(dialog().getSettings().Destination, Destination_e::OnScreen);
    EXPECT_EQ(host().exporter().counts().starts, 0u);
}

TEST_F(MainDialogAnimateTest, AnimateAllOnScreenRunsTheWholeListAndIsRecorded) {
    appendKeyFrames(3);
    host().macro().setRecording(true);
    pressMain("Animate All");
    EXPECT_NEAR(hostPsi(), keyFramePsi(2), 1e-6);
    EXPECT_EQ(host().macro().lines(), Lines{AnimateOnScreen});
}

TEST_F(MainDialogAnimateTest, AnimateAllToFileAsksForTheExportOptionsFirst) {
    appendKeyFrames(2);
    host().macro().setRecording(true);
    chooseOption(Title, "Destination:", "To File");
    pressMain("Animate All", 1);
    EXPECT_TRUE(dialogNamed("Export Options").up);
    EXPECT_EQ(host().exporter().counts().starts, 0u);

    TemporaryDirectory directory;
    host().userDialogs().queueFileName(directory.file("movie.mp4"));
    pressDialogButton("Export Options", GuiUser::DialogButton::Ok);
    EXPECT_FALSE(dialogNamed("Export Options").up);
    EXPECT_EQ(host().exporter().counts().starts, 1u);
    EXPECT_EQ(host().exporter().counts().finishes, 1u);
    EXPECT_EQ(host().exporter().settings().fileName, directory.file("movie.mp4"));
    EXPECT_EQ(dialog().getSettings().Destination, Destination_e::ToFile);
    EXPECT_EQ(host().macro().lines().back(), AnimateToFile);
}

TEST_F(MainDialogAnimateTest, CancelingTheExportOptionsAnimatesNothing) {
    appendKeyFrames(2);
    chooseOption(Title, "Destination:", "To File");
    pressMain("Animate All", 1);
    pressDialogButton("Export Options", GuiUser::DialogButton::Cancel);
    EXPECT_EQ(host().exporter().counts().starts, 0u);
}

TEST_F(MainDialogAnimateTest, TimeAnimationWithoutATransientDataSetIsSwitchedOffWithAMessage) {
    appendKeyFrames(2);
    chooseMenu(Title, {"&Options", "Animate &Time Concurrently"});
    EXPECT_TRUE(dialog().getSettings().AnimateTime);
    pressMain("Animate All");
    ASSERT_EQ(messageBoxes().size(), 1u);
    EXPECT_EQ(messageBoxes()[0].text,
              "The current data set is not transient.\nConcurrent time animation will be "
              "disabled.");
    EXPECT_FALSE(dialog().getSettings().AnimateTime);
    EXPECT_FALSE(
        user().findMenuEntry(dialogNamed(Title), {"Options", "Animate Time Concurrently"}).isOn);
    EXPECT_NEAR(hostPsi(), keyFramePsi(1), 1e-6);
}

TEST_F(MainDialogAnimateTest, StreamtraceAnimationWithoutMarkersOrDashesIsSwitchedOffWithAMessage) {
    appendKeyFrames(2);
    chooseMenu(Title, {"Options", "Animate Streamtraces Concurrently"});
    pressMain("Animate All");
    ASSERT_EQ(messageBoxes().size(), 1u);
    EXPECT_EQ(messageBoxes()[0].text,
              "Neither streamtrace markers nor dashes are enabled.\nConcurrent streamtrace "
              "animation will be disabled.");
    EXPECT_FALSE(dialog().getSettings().AnimateStreamtraces);
}

TEST_F(MainDialogAnimateTest, TransientDataAnimatesTimeWithoutAMessage) {
    addZone(1.0, 1);
    addZone(2.0, 1);
    appendKeyFrames(2);
    chooseMenu(Title, {"Options", "Animate Time Concurrently"});
    pressMain("Animate All");
    EXPECT_TRUE(messageBoxes().empty());
    EXPECT_TRUE(dialog().getSettings().AnimateTime);
    EXPECT_DOUBLE_EQ(host().dataSet().solutionTime(), 2.0);
}

TEST_F(MainDialogAnimateTest, TheOptionsToggleTheSettings) {
    chooseMenu(Title, {"Options", "Fade In"});
    chooseMenu(Title, {"Options", "Fade Out"});
    EXPECT_TRUE(dialog().getSettings().FadeIn);
    EXPECT_TRUE(dialog().getSettings().FadeOut);
    chooseMenu(Title, {"Options", "Fade In"});
    EXPECT_FALSE(dialog().getSettings().FadeIn);
}

TEST_F(MainDialogAnimateTest, AnAnimationErrorIsShownAndTheLockReleased) {
    appendKeyFrames(2);
    host().progress().pressStopAt(3);
    pressMain("Animate All");
    EXPECT_EQ(errorMessages(), Lines{"Animation canceled."});
}

}  // namespace
}  // namespace vextest
