// What the main dialog does when something observing its key frame list fails while being told of
// an edit: the edit is made in full, the list control and the buttons show it, and the failure is
// shown to the user.
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "HardeningScene.h"
#include "support/AddOnFixture.h"
#include "support/FailingListObserver.h"
#include "ui/DialogMain.h"
#include "vexhost/GuiModel.h"
#include "vexhost/Host.h"
#include "vexhost/UserDialogs.h"

namespace vextest {
namespace {

using namespace vexplot::vexutiltools;

class ObserverFailureTest : public AddOnFixture {
protected:
    void SetUp() override {
        AddOnFixture::SetUp();
        scene::transientScene();
        scene::openMainDialog();
        scene::giveDialog(scene::smallFlight(), AnimationSettings_s());
        dialog().getKeyFrameModel().addObserver(&failing);
    }
    void TearDown() override {
        dialog().getKeyFrameModel().removeObserver(&failing);
        AddOnFixture::TearDown();
    }

    static DialogMain& dialog() { return DialogMain::instance(); }
    static const vexhost::GuiControl& control(int32_t id) {
        return *vexhost::Host::instance().guiModel().control(id);
    }
    std::vector<std::string> errors() const {
        return vexhost::Host::instance().userDialogs().errorMessages();
    }

    FailingListObserver failing{"The observer failed."};
};

TEST_F(ObserverFailureTest, ADeleteStillRemovesEverySelectedKeyFrame) {
    scene::selectLines({1, 3});
    scene::press("Delete");
    ASSERT_EQ(1u, dialog().getKeyFrameModel().getItemCount());
    EXPECT_EQ("Side", dialog().getKeyFrameModel().getName(0));
    EXPECT_EQ(std::vector<std::string>{"Side"}, control(dialog().getControls().keyFrameList).items);
    EXPECT_EQ(std::vector<std::string>{"The observer failed."}, errors());
}

TEST_F(ObserverFailureTest, TheListControlAndTheButtonsFollowAnAppend) {
    dialog().getKeyFrameModel().removeObserver(&failing);
    scene::giveDialog({scene::smallFlight().front()}, AnimationSettings_s());
    dialog().getKeyFrameModel().addObserver(&failing);
    ASSERT_FALSE(control(dialog().getControls().animateAll).sensitive);

    scene::press("Append");
    EXPECT_EQ((std::vector<std::string>{"Front", "View 2"}),
              control(dialog().getControls().keyFrameList).items);
    EXPECT_TRUE(control(dialog().getControls().animateAll).sensitive)
        << "the dialog was refreshed after the edit";
    EXPECT_EQ(std::vector<std::string>{"The observer failed."}, errors());
}

TEST_F(ObserverFailureTest, ClearingShowsTheEmptyListAndDisablesWhatNeedsKeyFrames) {
    scene::press("Clear");
    EXPECT_EQ(0u, dialog().getKeyFrameModel().getItemCount());
    EXPECT_EQ(std::vector<std::string>{"No Key Frames established."},
              control(dialog().getControls().keyFrameList).items);
    EXPECT_FALSE(control(dialog().getControls().clear).sensitive);
    EXPECT_EQ(std::vector<std::string>{"The observer failed."}, errors());
}

}  // namespace
}  // namespace vextest
