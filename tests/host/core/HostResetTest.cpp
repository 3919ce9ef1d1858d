#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "support/HostFixture.h"
#include "vexhost/AddOnRegistry.h"
#include "vexhost/Bookkeeping.h"
#include "vexhost/CallLog.h"
#include "vexhost/DataSet.h"
#include "vexhost/Drawing.h"
#include "vexhost/Exporter.h"
#include "vexhost/Frame.h"
#include "vexhost/FrameStack.h"
#include "vexhost/HostErrors.h"
#include "vexhost/IdleQueue.h"
#include "vexhost/LockState.h"
#include "vexhost/MacroRecorder.h"
#include "vexhost/ProgressStatus.h"
#include "vexhost/SceneState.h"
#include "vexhost/StateNotifier.h"
#include "vexhost/StyleStore.h"
#include "vexhost/UserDialogs.h"
#include "vexhost/ZoneGeometry.h"
#include "vxappaddonuiaction.h"
#include "vxsdkbase.h"

namespace {

using vextest::ScopedLock;

class HostResetTest : public vextest::HostFixture {};

void nothing(void*) {}
void nothingMenu() {}
void nothingChanged(int32_t, void*) {}

TEST_F(HostResetTest, ResetLeavesACleanHost) {
    VexAddOn_pa addOn = registerAddOn();
    VexUtilMenuAddOption("Animate", "&Go", 1, &nothingMenu);
    createFrame3D();
    addZone(1, 1);
    host().callLog().setEnabled(true);
    VexUtilLockStart(addOn);
    VexUtilDrawGraphics(false);
    VexUtilStatusStartPercentDone("x", true, true);
    VexUtilExportStart();
    VexUtilOnIdleQueueAddCallback(&nothing, nullptr);
    VexUtilStateChangeAddCallback(VexStateChangeMode_v100, &nothingChanged, nullptr);
    VexUtilStringAlloc(3, "left");
    host().errors().record("Test", "an error");
    host().macro().setRecording(true);
    host().userDialogs().queueAnswer(true);
    host().userDialogs().queueFileName("f");
    host().progress().pressStopAt(1);
    host().bookkeeping().failStringAllocation(1);
    host().exporter().setRefuseStart(true);
    host().style().refuse({"Interface", "UseDisplayLists"}, true, true);
    host().frames().setWorkArea(10, 10);

    host().reset();

    vexhost::Host& h = host();
    EXPECT_EQ(h.addOns().addOnCount(), 0u);
    EXPECT_TRUE(h.addOns().menuOptions().empty());
    EXPECT_EQ(h.frames().count(), 0);
    EXPECT_EQ(h.frames().workAreaWidth(), 1024);
    EXPECT_EQ(h.dataSet().zoneCount(), 0);
    EXPECT_FALSE(h.callLog().isEnabled());
    EXPECT_TRUE(h.callLog().entries().empty());
    EXPECT_EQ(h.callLog().callCount(), 0u);
    EXPECT_TRUE(h.errors().empty());
    EXPECT_EQ(h.lock().depth(), 0);
    EXPECT_FALSE(h.drawing().isSuspended());
    EXPECT_FALSE(h.progress().isOpen());
    EXPECT_TRUE(h.progress().texts().empty());
    EXPECT_FALSE(h.exporter().isRecording());
    EXPECT_EQ(h.idleQueue().pending(), 0u);
    EXPECT_EQ(h.stateChanges().listenerCount(), 0u);
    EXPECT_EQ(h.bookkeeping().outstandingTotal(), 0u);
    EXPECT_FALSE(h.macro().isRecording());
    EXPECT_EQ(h.userDialogs().pendingAnswers(), 0u);
    EXPECT_EQ(h.userDialogs().pendingFileNames(), 0u);
    // Fault settings are gone too.
    char* text = VexUtilStringAlloc(2, "ok");
    EXPECT_NE(text, nullptr);
    VexUtilStringDealloc(&text);
    bool useDisplayLists = false;
    const char* p1 = "Interface";
    const char* p2 = "UseDisplayLists";
    VexArg_s args[3] = {};
    args[0].name = VEXARG_P1;
    args[0].type = VexArgType_String;
    args[0].value.s = p1;
    args[1].name = VEXARG_P2;
    args[1].type = VexArgType_String;
    args[1].value.s = p2;
    args[2].name = VEXARG_VALUE;
    args[2].type = VexArgType_BoolPtr;
    args[2].value.bp = &useDisplayLists;
    EXPECT_EQ(VexUtilStyleGetLowLevelX(args, 3), VexGetValue_Ok);
    createFrame3D();
    EXPECT_EQ(h.frames().active()->uniqueId(), 1) << "ids count from 1 again";
    ScopedLock lock(registerAddOn());
    EXPECT_TRUE(VexUtilExportStart());
    VexUtilExportCancel();
}

TEST_F(HostResetTest, SceneShowsTheActiveFrameAndTheZonesOfTheCurrentTime) {
    auto surface = [](float z) {
        auto g = std::make_shared<vexhost::ZoneGeometry>();
        g->positions = {0, 0, z, 1, 0, z, 0, 1, z};
        g->triangles = {0, 1, 2};
        g->scalars = {0, 1, 2};
        return g;
    };
    vexhost::DataSet& data = host().dataSet();
    const auto early = surface(0), late = surface(1), fixed = surface(2);
    data.addZone({"early", 0, 1, true, early});
    data.addZone({"late", 1, 1, true, late});
    data.addZone({"fixed", 5, 0, true, fixed});
    data.addZone({"empty", 0, 2, true, nullptr});
    data.setSolutionTime(0.5);
    createFrame3D().view().setWidth(4);
    host().style().setBool({"StreamAttributes", "StreamTiming", "ShowMarkers"}, true);
    const vexhost::SceneState scene = host().scene();
    EXPECT_EQ(scene.camera.viewWidth, 4);
    EXPECT_EQ(scene.camera.psi, 60);
    EXPECT_EQ(scene.lightIntensity, 75);
    EXPECT_EQ(scene.backgroundLight, 25);
    EXPECT_TRUE(scene.axisShow);
    EXPECT_TRUE(scene.showMarkers);
    EXPECT_EQ(scene.deltaTime, 1);
    EXPECT_EQ(scene.solutionTime, 0.5);
    ASSERT_EQ(scene.zones.size(), 2u);
    EXPECT_EQ(scene.zones[0], early);
    EXPECT_EQ(scene.zones[1], fixed);
    EXPECT_EQ(scene.scalarMax, 2);
    EXPECT_EQ(scene.boundsMax[2], 2);
}

}  // namespace
