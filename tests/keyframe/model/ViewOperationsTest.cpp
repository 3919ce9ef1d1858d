#include "model/ViewOperations.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "addon/KeyFrameError.h"
#include "addon/LockScope.h"
#include "support/AddOnFixture.h"
#include "support/CallLogLines.h"
#include "vexhost/CallLog.h"
#include "vexhost/Drawing.h"
#include "vexhost/FrameStack.h"
#include "vexhost/Host.h"
#include "vexhost/LockState.h"
#include "vexhost/StyleStore.h"
#include "vexhost/View3D.h"

namespace vexplot {
namespace vexutiltools {
namespace {

// Angles travel through radians on the way back from the host().
constexpr double Tolerance = 1e-9;

void expectNear(const KeyFrameView_s& expected, const KeyFrameView_s& actual) {
    EXPECT_NEAR(expected.X, actual.X, Tolerance);
    EXPECT_NEAR(expected.Y, actual.Y, Tolerance);
    EXPECT_NEAR(expected.Z, actual.Z, Tolerance);
    EXPECT_NEAR(expected.Psi, actual.Psi, Tolerance);
    EXPECT_NEAR(expected.Theta, actual.Theta, Tolerance);
    EXPECT_NEAR(expected.Alpha, actual.Alpha, Tolerance);
    EXPECT_NEAR(expected.Width, actual.Width, Tolerance);
}

TEST(FormatViewTest, WritesEveryNumberWithTwoDecimalsOnOneLine) {
    EXPECT_EQ("X=1.00 Y=2.00 Z=3.00 Psi=30.00 Theta=45.00 Alpha=0.00 Width=10.00",
              formatView(KeyFrameView_s{1, 2, 3, 30, 45, 0, 10}));
}

TEST(FormatViewTest, RoundsToTwoDecimalsAndKeepsSigns) {
    EXPECT_EQ(
        "X=-1.50 Y=0.13 Z=1234567.89 Psi=-179.99 Theta=0.00 Alpha=360.00 Width=0.01",
        formatView(KeyFrameView_s{-1.5, 0.125001, 1234567.891, -179.994, 0.004, 359.999, 0.0149}));
}

class ViewOperationsTest : public vextest::AddOnFixture {
protected:
    vexhost::View3D& hostView() { return host().frames().active()->view(); }
};

TEST_F(ViewOperationsTest, CaptureOfAFrameThatIsNot3DFailsAndReadsNothing) {
    host().frames().create(VexPlotType_Cartesian2D);
    host().callLog().setEnabled(true);
    try {
        captureCurrentView();
        FAIL() << "a 2D frame was captured";
    } catch (const KeyFrameError& error) {
        EXPECT_STREQ("The current frame must be in 3D Cartesian mode.", error.what());
    }
    EXPECT_EQ(std::vector<std::string>{vextest::callLine("VexUtilFrameGetPlotType")},
              host().callLog().take());
}

TEST_F(ViewOperationsTest, CaptureWithoutFramesFails) {
    EXPECT_THROW(captureCurrentView(), KeyFrameError);
}

TEST_F(ViewOperationsTest, CaptureReadsPositionAnglesInDegreesAndWidth) {
    host().frames().create(VexPlotType_Cartesian3D);
    hostView().setPosition({1.5, -20, 3.25});
    hostView().setPsi(30);
    hostView().setTheta(-45);
    hostView().setAlpha(170);
    hostView().setWidth(12.5);
    expectNear(KeyFrameView_s{1.5, -20, 3.25, 30, -45, 170, 12.5}, captureCurrentView());
}

TEST_F(ViewOperationsTest, CaptureWithPerspectiveOnStoresOnlyTheWidth) {
    host().frames().create(VexPlotType_Cartesian3D);
    hostView().setPerspective(true);
    hostView().setFieldOfView(40);
    hostView().setWidth(7.5);
    const KeyFrameView_s view = captureCurrentView();
    EXPECT_EQ(7.5, view.Width);
    EXPECT_TRUE(hostView().perspective()) << "capturing changes nothing";
}

TEST_F(ViewOperationsTest, ApplyMakesHostCallsInTheExactOrder) {
    host().frames().create(VexPlotType_Cartesian3D);
    host().callLog().setEnabled(true);
    applyView(KeyFrameView_s{1, 2, 3, 30, 45, 0, 10});
    const std::string lock = vextest::addOnLockStart();
    const std::string unlock = vextest::addOnLockFinish();
    EXPECT_EQ(
        (std::vector<std::string>{
            lock,
            lock,
            vextest::callLine("VexUtilDrawGraphics", {false}),
            vextest::callLine("VexUtilStyleSetLowLevelX", {"ThreeDView", "PSIAngle", 30}),
            vextest::callLine("VexUtilStyleSetLowLevelX", {"ThreeDView", "ThetaAngle", 45}),
            vextest::callLine("VexUtilStyleSetLowLevelX", {"ThreeDView", "AlphaAngle", 0}),
            vextest::callLine("VexUtilStyleSetLowLevelX", {"ThreeDView", "ViewerPosition", "X", 1}),
            vextest::callLine("VexUtilStyleSetLowLevelX", {"ThreeDView", "ViewerPosition", "Y", 2}),
            vextest::callLine("VexUtilStyleSetLowLevelX", {"ThreeDView", "ViewerPosition", "Z", 3}),
            vextest::callLine("VexUtilStyleGetLowLevelX", {"ThreeDView", "DrawInPerspective"}),
            vextest::callLine("VexUtilStyleSetLowLevelX",
                              {"ThreeDView", "DrawInPerspective", false}),
            vextest::callLine("VexUtilStyleSetLowLevelX", {"ThreeDView", "ViewWidth", 10}),
            vextest::callLine("VexUtilStyleSetLowLevelX",
                              {"ThreeDView", "DrawInPerspective", false}),
            vextest::callLine("VexUtilDrawGraphics", {true}),
            unlock,
            unlock,
        }),
        host().callLog().take());
}

TEST_F(ViewOperationsTest, ApplySetsTheWidthWithPerspectiveOffAndThenTurnsItBackOn) {
    host().frames().create(VexPlotType_Cartesian3D);
    hostView().setPerspective(true);
    host().callLog().setEnabled(true);
    applyView(KeyFrameView_s{1, 2, 3, 30, 45, 0, 8});
    const std::vector<std::string> log = host().callLog().take();
    ASSERT_EQ(16u, log.size());
    EXPECT_EQ(
        vextest::callLine("VexUtilStyleSetLowLevelX", {"ThreeDView", "DrawInPerspective", false}),
        log[10]);
    EXPECT_EQ(vextest::callLine("VexUtilStyleSetLowLevelX", {"ThreeDView", "ViewWidth", 8}),
              log[11]);
    EXPECT_EQ(
        vextest::callLine("VexUtilStyleSetLowLevelX", {"ThreeDView", "DrawInPerspective", true}),
        log[12]);
    EXPECT_TRUE(hostView().perspective()) << "the perspective state is unchanged";
    EXPECT_EQ(8, hostView().width());
}

TEST_F(ViewOperationsTest, ApplyLeavesPerspectiveOffWhenItWasOff) {
    host().frames().create(VexPlotType_Cartesian3D);
    applyView(KeyFrameView_s{1, 2, 3, 30, 45, 0, 8});
    EXPECT_FALSE(hostView().perspective());
}

TEST_F(ViewOperationsTest, AppliedViewIsCapturedBack) {
    host().frames().create(VexPlotType_Cartesian3D);
    const KeyFrameView_s view{1.5, -20, 3.25, 30, -45, 170, 12.5};
    applyView(view);
    expectNear(view, captureCurrentView());
    EXPECT_EQ(1.5, hostView().position()[0]);
    EXPECT_EQ(-45, hostView().theta());
}

TEST_F(ViewOperationsTest, CapturedViewAppliedAgainLeavesTheHostViewAsItWas) {
    host().frames().create(VexPlotType_Cartesian3D);
    {
        LockScope lock;
        VexUtilViewRotate3D(VexRotateAxis_Theta, 25, 0, 0, 0,
                            VexRotateOriginLocation_DefinedOrigin);
    }
    const vexhost::View3D before = hostView();
    applyView(captureCurrentView());
    EXPECT_NEAR(before.psi(), hostView().psi(), Tolerance);
    EXPECT_NEAR(before.theta(), hostView().theta(), Tolerance);
    EXPECT_NEAR(before.alpha(), hostView().alpha(), Tolerance);
    for (int axis = 0; axis < 3; ++axis)
        EXPECT_EQ(before.position()[axis], hostView().position()[axis]);
    EXPECT_EQ(before.width(), hostView().width());
    EXPECT_EQ(before.perspective(), hostView().perspective());
}

TEST_F(ViewOperationsTest, RefusedStyleValueIsNotReportedAndTheOthersAreSet) {
    host().frames().create(VexPlotType_Cartesian3D);
    const double widthBefore = hostView().width();
    host().style().refuse({"ThreeDView", "ViewWidth"}, false, true);
    applyView(KeyFrameView_s{1, 2, 3, 30, 45, 0, widthBefore + 5});
    EXPECT_EQ(widthBefore, hostView().width());
    EXPECT_EQ(30, hostView().psi());
    EXPECT_EQ(3, hostView().position()[2]);
    EXPECT_EQ(0, host().lock().depth());
    EXPECT_FALSE(host().drawing().isSuspended());
}

TEST_F(ViewOperationsTest, RefusedPerspectiveReadPutsTheNormalProjectionBack) {
    host().frames().create(VexPlotType_Cartesian3D);
    hostView().setPerspective(true);
    host().style().refuse({"ThreeDView", "DrawInPerspective"}, true, false);
    applyView(KeyFrameView_s{1, 2, 3, 30, 45, 0, 8});
    EXPECT_FALSE(hostView().perspective());
    EXPECT_EQ(8, hostView().width());
}

}  // namespace
}  // namespace vexutiltools
}  // namespace vexplot
