#include "ui/DialogMain.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

#include "support/AddOnFixture.h"
#include "support/RecordingListObserver.h"
#include "vexhost/GuiModel.h"
#include "vexhost/LockState.h"

namespace {

using vexplot::vexutiltools::AnimationSettings_s;
using vexplot::vexutiltools::KeyFrame_s;
using vexplot::vexutiltools::ListModelChange;

class DialogMainTest : public vextest::AddOnFixture {
protected:
};

TEST_F(DialogMainTest, IsOneInstanceCreatedOnFirstUse) {
    EXPECT_EQ(&DialogMain::instance(), &DialogMain::instance());
}

TEST_F(DialogMainTest, StartsWithAnEmptyListDefaultSettingsAndTheSettingsFileChooser) {
    DialogMain& dialog = DialogMain::instance();
    EXPECT_EQ(dialog.getKeyFrameModel().getItemCount(), 0u);
    EXPECT_EQ(dialog.getSettings(), AnimationSettings_s());
    EXPECT_EQ(dialog.getSettingsFileChooser().getFileName(), "animation.keyframe");
    EXPECT_EQ(dialog.getSettingsFileChooser().getDefaultExtension(), "keyframe");
    EXPECT_EQ(dialog.getSettingsFileChooser().getFileTypeName(), "Key Frame Animation");
    EXPECT_FALSE(dialog.getSettingsFileChooser().isChosen());
}

TEST_F(DialogMainTest, NoHostControlExistsBeforeTheDialogIsCreated) {
    const DialogMain::Controls& controls = DialogMain::instance().getControls();
    for (const int32_t id :
         {controls.dialog, controls.keyFrameList, controls.destination, controls.animateTime,
          controls.animateStreamtraces, controls.fadeIn, controls.fadeOut})
        EXPECT_EQ(id, -2);
}

TEST_F(DialogMainTest, TheStateOutlivesEveryUseUntilReset) {
    DialogMain::instance().getKeyFrameModel().setItems({KeyFrame_s{}});
    DialogMain::instance().getSettings().FadeIn = true;
    EXPECT_EQ(DialogMain::instance().getKeyFrameModel().getItemCount(), 1u);
    EXPECT_TRUE(DialogMain::instance().getSettings().FadeIn);

    DialogMain::resetInstance();
    EXPECT_EQ(DialogMain::instance().getKeyFrameModel().getItemCount(), 0u);
    EXPECT_FALSE(DialogMain::instance().getSettings().FadeIn);
}

TEST_F(DialogMainTest, RefreshingWithoutControlsTouchesNothing) {
    DialogMain& dialog = DialogMain::instance();
    vextest::RecordingListObserver observer;
    dialog.getKeyFrameModel().addObserver(&observer);
    startCallLog();
    dialog.refreshList();
    dialog.refreshOptions();
    EXPECT_TRUE(observer.changes.empty());
    EXPECT_TRUE(takeCallLog().empty());
    dialog.getKeyFrameModel().removeObserver(&observer);
}

TEST_F(DialogMainTest, RefreshingTheListControlResetsTheModelItFollows) {
    DialogMain& dialog = DialogMain::instance();
    dialog.getKeyFrameModel().setItems({KeyFrame_s{}, KeyFrame_s{}});
    vextest::RecordingListObserver listControl;
    dialog.getKeyFrameModel().addObserver(&listControl);
    dialog.getControls().keyFrameList = 17;
    dialog.refreshList();
    EXPECT_EQ(listControl.changes, std::vector<ListModelChange>{ListModelChange{}});
    EXPECT_EQ(dialog.getKeyFrameModel().getItemCount(), 2u);
    dialog.getKeyFrameModel().removeObserver(&listControl);
}

TEST_F(DialogMainTest, RefreshOptionsShowsTheSettingsInTheCreatedControls) {
    createFrame3D();
    DialogMain& dialog = DialogMain::instance();
    dialog.create();
    dialog.getSettings().Destination = vexplot::vexutiltools::Destination_e::ToFile;
    dialog.getSettings().FadeOut = true;
    // Before the menu bar exists only the destination menu is there to show a setting.
    dialog.refreshOptions();
    EXPECT_EQ(host().guiModel().control(dialog.getControls().destination)->choice, 2);
    dialog.addMenuBar();
    EXPECT_TRUE(host().guiModel().control(dialog.getControls().fadeOut)->isOn);
    EXPECT_FALSE(host().guiModel().control(dialog.getControls().fadeIn)->isOn);
    EXPECT_EQ(host().lock().depth(), 0);
}

TEST_F(DialogMainTest, TheDialogAndItsMenuBarAreMadeOnlyOnce) {
    createFrame3D();
    DialogMain& dialog = DialogMain::instance();
    dialog.create();
    dialog.addMenuBar();
    EXPECT_THROW(dialog.create(), std::logic_error);
    EXPECT_THROW(dialog.addMenuBar(), std::logic_error);
}

}  // namespace
