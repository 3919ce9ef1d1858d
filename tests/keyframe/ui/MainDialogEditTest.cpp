// Building the key frame list with the main dialog: Append, Insert, Update, Apply, Delete, Clear,
// the View Name and Frame Count fields, the sensitivities and the refresh on the idle queue.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "MainDialogFixture.h"
#include "model/ViewOperations.h"
#include "vexhost/DataSet.h"
#include "vexhost/Frame.h"
#include "vexhost/FrameStack.h"
#include "vexhost/IdleQueue.h"

namespace vextest {
namespace {

using vexplot::vexutiltools::KeyFrame_s;
using Kind = vexhost::GuiControl::Kind;
using Lines = std::vector<std::string>;

class MainDialogEditTest : public MainDialogFixture {
protected:
    void SetUp() override {
        MainDialogFixture::SetUp();
        openMainDialog();
    }
    const KeyFrame_s& keyFrame(uint64_t position) {
        return dialog().getKeyFrameModel().getItem(position);
    }
    std::string fieldText(const std::string& label) {
        return control(Title, label, {Kind::TextField}).text;
    }
    void typeMain(const std::string& field, const std::string& text) { type(Title, field, text); }
};

TEST_F(MainDialogEditTest, ThreeAppendsAreViews1To3With30FramesAndTheFourthTakesAChangedCount) {
    appendKeyFrames(3);
    EXPECT_EQ(listLines(), (Lines{"View 1", "View 2", "View 3"}));
    for (uint64_t i = 0; i < 3; ++i)
        EXPECT_EQ(keyFrame(i).frameCount, 30u);

    selectMain({3});
    typeMain("Frame Count:", "12");
    EXPECT_EQ(keyFrame(2).frameCount, 12u);
    appendKeyFrames(1);
    EXPECT_EQ(listLines(), (Lines{"View 1", "View 2", "View 3", "View 4"}));
    EXPECT_EQ(keyFrame(3).frameCount, 12u);
}

TEST_F(MainDialogEditTest, AppendCapturesTheHostViewAndSolutionTime) {
    host().dataSet().setSolutionTime(2.5);
    turnView(25.0);
    pressMain("Append");
    const KeyFrame_s& captured = keyFrame(0);
    EXPECT_NEAR(captured.view.Psi, host().frames().active()->view().psi(), 1e-9);
    EXPECT_DOUBLE_EQ(captured.solutionTime, 2.5);
}

TEST_F(MainDialogEditTest, InsertWithTheFirstLineSelectedPutsView4InLine1) {
    appendKeyFrames(3);
    selectMain({1});
    pressMain("Insert");
    EXPECT_EQ(listLines(), (Lines{"View 4", "View 1", "View 2", "View 3"}));
    // Deliberately in place of the selected line, although the tool tip says "below".
    EXPECT_EQ(control(Title, "Insert").toolTip,
              "Add the current Vexplot view as a key frame below the selected item(s) in the list");
}

TEST_F(MainDialogEditTest, SensitivitiesFollowTheCountsOfKeyFramesAndSelectedLines) {
    appendKeyFrames(1);
    // One key frame, none selected.
    EXPECT_TRUE(isSensitive("Clear"));
    EXPECT_FALSE(isSensitive("Animate All"));
    EXPECT_FALSE(isSensitive("Apply"));
    EXPECT_FALSE(isSensitive("Delete"));

    appendKeyFrames(2);
    EXPECT_TRUE(isSensitive("Animate All"));

    selectMain({2});
    for (const char* on : {"Apply", "Update", "Delete", "Insert", "Clear", "Append"})
        EXPECT_TRUE(isSensitive(on)) << on;
    EXPECT_TRUE(control(Title, "View Name:", {Kind::TextField}).sensitive);
    EXPECT_TRUE(control(Title, "View Name:", {Kind::Label}).sensitive);
    EXPECT_TRUE(control(Title, "Frame Count:", {Kind::TextField}).sensitive);
    EXPECT_FALSE(isSensitive("Animate Selected"));
    EXPECT_EQ(fieldText("View Name:"), "View 2");
    EXPECT_EQ(fieldText("Frame Count:"), "30");

    selectMain({1, 2});
    EXPECT_TRUE(isSensitive("Animate Selected"));
    EXPECT_FALSE(isSensitive("Apply"));
    EXPECT_FALSE(isSensitive("Update"));
    EXPECT_FALSE(control(Title, "View Name:", {Kind::TextField}).sensitive);
    EXPECT_FALSE(control(Title, "View Name:", {Kind::Label}).sensitive);
    EXPECT_TRUE(isSensitive("Delete"));
    EXPECT_TRUE(control(Title, "Frame Count:", {Kind::TextField}).sensitive);

    selectMain({});
    EXPECT_FALSE(isSensitive("Delete"));
    EXPECT_FALSE(isSensitive("Insert"));
    EXPECT_FALSE(control(Title, "Frame Count:", {Kind::Label}).sensitive);
}

TEST_F(MainDialogEditTest, RefreshesRunOnceFromTheIdleQueue) {
    appendKeyFrames(1);
    EXPECT_FALSE(isSensitive("Animate All"));
    // Two changes in one burst: one refresh request, run when the host is idle.
    user().press(control(Title, "Append").id);
    user().press(control(Title, "Append").id);
    EXPECT_EQ(host().idleQueue().pending(), 1u);
    EXPECT_FALSE(isSensitive("Animate All"));
    runIdle();
    EXPECT_TRUE(isSensitive("Animate All"));
    EXPECT_EQ(lockDepth(), 0);
}

TEST_F(MainDialogEditTest, AnEmptyViewNameIsRefusedAndThePreviousNameRestored) {
    appendKeyFrames(2);
    selectMain({2});
    typeMain("View Name:", "");
    EXPECT_EQ(errorMessages(), Lines{"The view name must be at least one character."});
    EXPECT_EQ(fieldText("View Name:"), "View 2");
    EXPECT_EQ(keyFrame(1).name, "View 2");
    EXPECT_EQ(listLines(), (Lines{"View 1", "View 2"}));
}

TEST_F(MainDialogEditTest, AViewNameRenamesTheSelectedKeyFrameAndItsLine) {
    appendKeyFrames(2);
    selectMain({1});
    typeMain("View Name:", "Left side");
    EXPECT_EQ(keyFrame(0).name, "Left side");
    EXPECT_EQ(listLines(), (Lines{"Left side", "View 2"}));
    EXPECT_EQ(selectedLines(), std::vector<int32_t>{1});
}

TEST_F(MainDialogEditTest, AFrameCountAppliesToEverySelectedKeyFrame) {
    appendKeyFrames(3);
    selectMain({1, 3});
    typeMain("Frame Count:", "45");
    EXPECT_EQ(keyFrame(0).frameCount, 45u);
    EXPECT_EQ(keyFrame(1).frameCount, 30u);
    EXPECT_EQ(keyFrame(2).frameCount, 45u);
}

TEST_F(MainDialogEditTest, ABadFrameCountShowsTheBoundsAndKeepsTheCount) {
    appendKeyFrames(1);
    selectMain({1});
    typeMain("Frame Count:", "0");
    EXPECT_EQ(errorMessages(),
              Lines{"Invalid input. Input must be a number between 1 and 2147483647."});
    EXPECT_EQ(keyFrame(0).frameCount, 30u);
    EXPECT_EQ(fieldText("Frame Count:"), "30");
}

TEST_F(MainDialogEditTest, UpdateRecapturesTheViewAndTimeButKeepsNameAndCount) {
    appendKeyFrames(2);
    selectMain({1});
    typeMain("View Name:", "Start");
    typeMain("Frame Count:", "7");
    turnView(40.0);
    host().dataSet().setSolutionTime(4.0);
    pressMain("Update");
    EXPECT_EQ(keyFrame(0).name, "Start");
    EXPECT_EQ(keyFrame(0).frameCount, 7u);
    EXPECT_NEAR(keyFrame(0).view.Psi, host().frames().active()->view().psi(), 1e-9);
    EXPECT_DOUBLE_EQ(keyFrame(0).solutionTime, 4.0);
}

TEST_F(MainDialogEditTest, ApplyShowsTheSelectedViewAndTimeInTheHost) {
    host().dataSet().setSolutionTime(1.0);
    appendKeyFrames(1);
    const double capturedPsi = keyFrame(0).view.Psi;
    turnView(30.0);
    host().dataSet().setSolutionTime(3.0);
    selectMain({1});
    pressMain("Apply");
    EXPECT_NEAR(host().frames().active()->view().psi(), capturedPsi, 1e-6);
    EXPECT_DOUBLE_EQ(host().dataSet().solutionTime(), 1.0);
}

TEST_F(MainDialogEditTest, DeleteRemovesEverySelectedKeyFrame) {
    appendKeyFrames(4);
    selectMain({2, 4});
    pressMain("Delete");
    EXPECT_EQ(listLines(), (Lines{"View 1", "View 3"}));
}

TEST_F(MainDialogEditTest, ClearRemovesEveryKeyFrame) {
    appendKeyFrames(3);
    pressMain("Clear");
    EXPECT_EQ(dialog().getKeyFrameModel().getItemCount(), 0u);
    EXPECT_EQ(listLines(), Lines{"No Key Frames established."});
    EXPECT_FALSE(isSensitive("Clear"));
}

TEST_F(MainDialogEditTest, AnAppendWithoutA3DFrameShowsTheErrorAndChangesNothing) {
    appendKeyFrames(1);
    // The host changes the plot type between two user actions, before the dropper's idle drop.
    host().frames().setPlotType(host().frames().active()->uniqueId(), VexPlotType_Cartesian2D);
    user().press(control(Title, "Append").id);
    EXPECT_EQ(errorMessages(), Lines{"The current frame must be in 3D Cartesian mode."});
    EXPECT_EQ(dialog().getKeyFrameModel().getItemCount(), 1u);
    EXPECT_EQ(lockDepth(), 0);
    runIdle();
}

}  // namespace
}  // namespace vextest
