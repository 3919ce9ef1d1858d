#include "addon/ResetAddOnState.h"

#include <gtest/gtest.h>

#include "addon/AddOn.h"
#include "model/KeyFrame_s.h"
#include "support/AddOnFixture.h"
#include "ui/DialogMain.h"
#include "vexhost/AddOnRegistry.h"
#include "vexhost/FrameStack.h"
#include "vexhost/Host.h"
#include "vexhost/IdleQueue.h"
#include "vexhost/LockState.h"

namespace vexplot {
namespace vexutiltools {
namespace {

class ResetAddOnStateTest : public vextest::AddOnFixture {};

TEST_F(ResetAddOnStateTest, EveryTestStartsWithAFreshMainDialog) {
    // Whatever a test before left in the process, the fixture's reset dropped it.
    EXPECT_EQ(DialogMain::instance().getKeyFrameModel().getItemCount(), 0u);
    EXPECT_EQ(DialogMain::instance().getSettings(), AnimationSettings_s());
    EXPECT_FALSE(DialogMain::instance().isCreated());
    EXPECT_NE(AddOn::getIdentifier(), nullptr);
}

TEST_F(ResetAddOnStateTest, DropsTheMainDialogsStateAndForgetsTheIdentifier) {
    host().frames().create(VexPlotType_Cartesian3D);
    ASSERT_TRUE(host().addOns().chooseMenuOption("Animate", "&Key Frame Animation..."));
    DialogMain::instance().getKeyFrameModel().setItems({KeyFrame_s{}, KeyFrame_s{}});
    DialogMain::instance().getSettings().FadeOut = true;
    host().idleQueue().runUntilEmpty();
    ASSERT_TRUE(DialogMain::instance().isCreated());

    resetAddOnState();

    EXPECT_EQ(AddOn::getIdentifier(), nullptr);
    EXPECT_EQ(host().lock().depth(), 0);
    EXPECT_FALSE(DialogMain::instance().isCreated());
    EXPECT_EQ(DialogMain::instance().getKeyFrameModel().getItemCount(), 0u);
    EXPECT_FALSE(DialogMain::instance().getSettings().FadeOut);
}

}  // namespace
}  // namespace vexutiltools
}  // namespace vexplot
