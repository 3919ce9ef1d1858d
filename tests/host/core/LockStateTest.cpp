#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "support/HostFixture.h"
#include "vexhost/HostErrors.h"
#include "vexhost/LockState.h"
#include "vxappaddonuiaction.h"
#include "vxsdkbase.h"
#include "vxtoolbox.h"

namespace {

using vextest::ScopedLock;

class LockStateTest : public vextest::HostFixture {};

bool contains(const std::vector<std::string>& texts, const std::string& wanted) {
    for (const std::string& text : texts) {
        if (text == wanted)
            return true;
    }
    return false;
}

TEST_F(LockStateTest, StartsAndFinishesNestAndBalance) {
    VexAddOn_pa addOn = registerAddOn();
    EXPECT_FALSE(VexUtilLockIsOn());
    VexUtilLockStart(addOn);
    VexUtilLockStart(addOn);
    EXPECT_EQ(host().lock().depth(), 2);
    EXPECT_TRUE(VexUtilLockIsOn());
    VexUtilLockFinish(addOn);
    EXPECT_EQ(host().lock().depth(), 1);
    VexUtilLockFinish(addOn);
    EXPECT_EQ(host().lock().depth(), 0);
    EXPECT_FALSE(VexUtilLockIsOn());
}

TEST_F(LockStateTest, FinishWithoutStartIsAHostError) {
    VexAddOn_pa addOn = registerAddOn();
    VexUtilLockFinish(addOn);
    EXPECT_EQ(
        takeHostErrors(),
        std::vector<std::string>{"VexUtilLockFinish: no lock is held (finish of \"Test Add-On\")"});
    EXPECT_EQ(host().lock().depth(), 0);
}

TEST_F(LockStateTest, FinishWithAnotherHandleIsAHostErrorAndStillPops) {
    VexAddOn_pa first = registerAddOn("First");
    VexAddOn_pa second = registerAddOn("Second");
    VexUtilLockStart(first);
    VexUtilLockFinish(second);
    EXPECT_EQ(takeHostErrors(),
              std::vector<std::string>{"VexUtilLockFinish: finish of \"Second\" does not match the "
                                       "innermost start, which is of \"First\""});
    EXPECT_EQ(host().lock().depth(), 0);
}

TEST_F(LockStateTest, HostLockSharesTheDepthWithAddOnLocks) {
    VexAddOn_pa addOn = registerAddOn();
    VexUtilLockOn();
    VexUtilLockStart(addOn);
    EXPECT_EQ(host().lock().depth(), 2);
    VexUtilLockFinish(addOn);
    EXPECT_TRUE(VexUtilLockIsOn());
    VexUtilLockOff();
    EXPECT_FALSE(VexUtilLockIsOn());
}

TEST_F(LockStateTest, HostLockOffAgainstAnAddOnLockIsAHostError) {
    VexAddOn_pa addOn = registerAddOn();
    VexUtilLockStart(addOn);
    VexUtilLockOff();
    EXPECT_EQ(takeHostErrors(),
              std::vector<std::string>{"VexUtilLockOff: finish of the host lock does not match the "
                                       "innermost start, which is of \"Test Add-On\""});
}

TEST_F(LockStateTest, UnregisteredHandleIsAHostErrorReportedOnce) {
    int notAnAddOn = 0;
    VexAddOn_pa bogus = reinterpret_cast<VexAddOn_pa>(&notAnAddOn);
    VexUtilLockStart(bogus);
    VexUtilLockFinish(bogus);
    EXPECT_EQ(takeHostErrors(),
              std::vector<std::string>{"VexUtilLockStart: the add-on handle <unknown add-on> was "
                                       "not handed out by VexUtilAddOnRegister"});
    EXPECT_EQ(host().lock().depth(), 0);
}

// Every call that changes host state belongs inside the caller's lock.
struct UnlockedCall {
    const char* function;
    std::function<void()> call;
};

TEST_F(LockStateTest, StateChangingCallsWithoutTheLockAreHostErrors) {
    createFrame3D();
    const std::vector<UnlockedCall> calls = {
        {"VexUtilStyleSetLowLevelX",
         [] { vexplot::toolbox::StyleValue("ThreeDView", "PSIAngle").set(10.0); }},
        {"VexUtilViewRotate3D",
         [] {
             VexUtilViewRotate3D(VexRotateAxis_Psi, 5, 0, 0, 0,
                                 VexRotateOriginLocation_DefinedOrigin);
         }},
        {"VexUtilSolutionTimeSetCurrent", [] { VexUtilSolutionTimeSetCurrent(1); }},
        {"VexUtilDrawGraphics", [] { VexUtilDrawGraphics(false); }},
        {"VexUtilDrawGraphics", [] { VexUtilDrawGraphics(true); }},
        {"VexUtilRedraw", [] { VexUtilRedraw(true); }},
        {"VexUtilExportSetup", [] { VexUtilExportSetup("ImageWidth", nullptr, 0, 640); }},
        {"VexUtilExportStart", [] { VexUtilExportStart(); }},
        {"VexUtilExportNextFrame", [] { VexUtilExportNextFrame(); }},
        {"VexUtilExportFinish", [] { VexUtilExportFinish(); }},
        {"VexUtilStatusStartPercentDone",
         [] { VexUtilStatusStartPercentDone("Working", true, true); }},
        {"VexUtilStatusSetPercentDoneText", [] { VexUtilStatusSetPercentDoneText("Still"); }},
        {"VexUtilStatusCheckPercentDone", [] { VexUtilStatusCheckPercentDone(50); }},
        {"VexUtilStatusFinishPercentDone", [] { VexUtilStatusFinishPercentDone(); }},
        {"VexUtilExportStart", [] { VexUtilExportStart(); }},
        {"VexUtilExportCancel", [] { VexUtilExportCancel(); }},
        {"VexUtilFrameActivateTop", [] { VexUtilFrameActivateTop(); }},
        {"VexUtilFramePushTop", [] { VexUtilFramePushTop(); }},
        {"VexUtilFrameActivateByUniqueID", [] { VexUtilFrameActivateByUniqueID(1); }},
        {"VexUtilFrameLightweightPopStart", [] { VexUtilFrameLightweightPopStart(); }},
        {"VexUtilFrameLightweightPopNext", [] { VexUtilFrameLightweightPopNext(); }},
        {"VexUtilFrameLightweightPopEnd", [] { VexUtilFrameLightweightPopEnd(); }},
        {"VexUtilMacroRecordExtCommand", [] { VexUtilMacroRecordExtCommand("Test Add-On", "Go"); }},
        {"VexUtilMacroRecordRawCommand", [] { VexUtilMacroRecordRawCommand("$!REDRAW"); }},
    };
    for (const UnlockedCall& unlocked : calls) {
        unlocked.call();
        EXPECT_TRUE(contains(takeHostErrors(),
                             std::string(unlocked.function) + ": called while no lock is held"))
            << unlocked.function;
    }
}

TEST_F(LockStateTest, QueriesAndDialogsNeedNoLock) {
    createFrame3D();
    addZone(0);
    double x, y, z;
    VexUtilThreeDViewGetViewerPos(&x, &y, &z);
    VexUtilFrameGetCount();
    VexUtilFrameGetPlotType();
    VexUtilFrameGetUniqueID();
    VexUtilSolutionTimeGetCurrent();
    bool perspective = true;
    vexplot::toolbox::StyleValue("ThreeDView", "DrawInPerspective").get(perspective);
    VexUtilDialogErrMsg("Something went wrong.");
    VexUtilDialogMessageBox("Done.", VexMessageBox_Information);
    VexUtilHelp("addons.html#top");
    char* name = nullptr;
    VexUtilDialogGetFileName(VexSelectFile_ReadSingleFile, &name, "Files", "a", "*.a");
    VexUtilExportIsRecording();
    VexUtilMacroIsRecordingActive();
    EXPECT_TRUE(host().errors().empty());
}

}  // namespace
