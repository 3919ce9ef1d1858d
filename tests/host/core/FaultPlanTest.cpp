// The host's fault plan: every place where the host can fail an add-on counts as a site; a
// recorded run lists its sites, and an armed plan fails exactly the k-th one.
#include "vexhost/FaultPlan.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/HostFixture.h"
#include "vexhost/Bookkeeping.h"
#include "vexhost/Exporter.h"
#include "vexhost/FrameStack.h"
#include "vexhost/Host.h"
#include "vexhost/StateNotifier.h"
#include "vexhost/StyleStore.h"
#include "vexhost/UserDialogs.h"
#include "vxsdkbase.h"
#include "vxtoolbox.h"

namespace {

using vexhost::FaultPlan;
using Fault = FaultPlan::Fault;
using vexplot::toolbox::StyleValue;

class FaultPlanTest : public vextest::HostFixture {
protected:
    void SetUp() override {
        HostFixture::SetUp();
        addOn = registerAddOn();
        host().frames().create(VexPlotType_Cartesian3D);
    }

    FaultPlan& plan() { return host().faults(); }

    VexAddOn_pa addOn = nullptr;
};

TEST_F(FaultPlanTest, AnIdlePlanFailsNothingAndCountsNothing) {
    vextest::ScopedLock lock(addOn);
    EXPECT_FALSE(plan().isActive());
    EXPECT_EQ(VexSetValue_Ok, StyleValue("GlobalThreeD", "LightSource").set(50.0, "Intensity"));
    double intensity = 0;
    EXPECT_EQ(VexGetValue_Ok,
              StyleValue("GlobalThreeD", "LightSource").get(intensity, "Intensity"));
    EXPECT_EQ(0u, plan().siteCount());
}

TEST_F(FaultPlanTest, ARecordedRunListsEverySiteInOrderWithItsCall) {
    plan().record();
    {
        vextest::ScopedLock lock(addOn);
        StyleValue("GlobalThreeD", "LightSource").set(50.0, "Intensity");
        bool show = false;
        StyleValue("ThreeDAxis", "FrameAxis", "Show").get(show);
        VexUtilStatusStartPercentDone("Working", true, true);
        VexUtilStatusCheckPercentDone(10);
        VexUtilStatusFinishPercentDone();
        char* text = VexUtilStringAlloc(4, "test");
        VexUtilStringDealloc(&text);
        VexUtilExportStart();
        VexUtilExportCancel();
    }
    plan().stop();
    std::vector<std::string> sites;
    for (const FaultPlan::Site& site : plan().sites())
        sites.push_back(std::string(toString(site.fault)) + " " + site.description);
    EXPECT_EQ((std::vector<std::string>{
                  "StyleSetRefused VexUtilStyleSetLowLevelX(\"GlobalThreeD\", \"LightSource\", "
                  "\"Intensity\", 50)",
                  "StyleGetRefused VexUtilStyleGetLowLevelX(\"ThreeDAxis\", \"FrameAxis\", "
                  "\"Show\")",
                  "StopPressed VexUtilStatusCheckPercentDone(10)",
                  "StringAllocationFails a host string of 4 characters",
                  "ExportStartRefused VexUtilExportStart()"}),
              sites);
    EXPECT_FALSE(plan().struck());
}

TEST_F(FaultPlanTest, TheKthSiteFailsOnceAndNoOther) {
    vextest::ScopedLock lock(addOn);
    const StyleValue lightSource("GlobalThreeD", "LightSource");
    plan().failSite(2);
    EXPECT_EQ(VexSetValue_Ok, lightSource.set(40.0, "Intensity"));
    EXPECT_EQ(VexSetValue_ContextError, lightSource.set(30.0, "Intensity"));
    EXPECT_EQ(VexSetValue_Ok, lightSource.set(20.0, "BackgroundLight"));
    EXPECT_TRUE(plan().struck());
    EXPECT_EQ(Fault::StyleSetRefused, plan().struckSite().fault);
    EXPECT_EQ(40, host().style().getDouble({"GlobalThreeD", "LightSource", "Intensity"}))
        << "a refused set changes nothing";
}

TEST_F(FaultPlanTest, ARefusedGetLeavesTheValueAsItWas) {
    const StyleValue lightSource("GlobalThreeD", "LightSource");
    double intensity = -1;
    plan().failSite(1);
    EXPECT_EQ(VexGetValue_ContextError, lightSource.get(intensity, "Intensity"));
    EXPECT_EQ(-1, intensity);
}

TEST_F(FaultPlanTest, ARefusedSetSendsNoStateChange) {
    vextest::ScopedLock lock(addOn);
    const uint64_t before = host().stateChanges().sentCount(VexStateChange_Style);
    plan().failSite(1);
    StyleValue("GlobalThreeD", "LightSource").set(10.0, "Intensity");
    EXPECT_EQ(before, host().stateChanges().sentCount(VexStateChange_Style));
}

TEST_F(FaultPlanTest, StopPressedAtACheckHoldsForTheRestOfThatStatusOnly) {
    vextest::ScopedLock lock(addOn);
    VexUtilStatusStartPercentDone("Working", true, true);
    plan().failSite(2);
    EXPECT_TRUE(VexUtilStatusCheckPercentDone(10));
    EXPECT_FALSE(VexUtilStatusCheckPercentDone(20));
    EXPECT_FALSE(VexUtilStatusCheckPercentDone(30));
    VexUtilStatusFinishPercentDone();
    VexUtilStatusStartPercentDone("Again", true, true);
    EXPECT_TRUE(VexUtilStatusCheckPercentDone(10));
    VexUtilStatusFinishPercentDone();
}

TEST_F(FaultPlanTest, ARefusedExportStartOpensNoExport) {
    vextest::ScopedLock lock(addOn);
    plan().failSite(1);
    EXPECT_FALSE(VexUtilExportStart());
    EXPECT_FALSE(host().exporter().isRecording());
    EXPECT_EQ(0u, host().exporter().counts().starts);
}

TEST_F(FaultPlanTest, EveryHostStringCanFailGettersIncluded) {
    host().userDialogs().queueFileName("picked.keyframe");
    plan().failSite(1);
    char* name = nullptr;
    EXPECT_FALSE(
        VexUtilDialogGetFileName(VexSelectFile_ReadSingleFile, &name, "Files", "x", "*.x"));
    EXPECT_EQ(nullptr, name);
    EXPECT_EQ(Fault::StringAllocationFails, plan().struckSite().fault);
    EXPECT_EQ(0u, host().bookkeeping().outstandingTotal());
}

TEST_F(FaultPlanTest, SitesCalledFromOutsideTheHostCountInTheSameSequence) {
    vextest::ScopedLock lock(addOn);
    plan().failSite(2);
    EXPECT_FALSE(plan().strike(Fault::ListModelObserverThrows, "observer"));
    EXPECT_EQ(VexSetValue_ContextError,
              StyleValue("GlobalThreeD", "LightSource").set(10.0, "Intensity"));
    EXPECT_FALSE(plan().strike(Fault::StateChangeListenerThrows, "listener"));
    EXPECT_EQ(3u, plan().siteCount());
}

TEST_F(FaultPlanTest, TheHostResetForgetsThePlan) {
    plan().record();
    plan().failSite(3);
    plan().strike(Fault::StyleGetRefused, "get");
    host().reset();
    EXPECT_FALSE(plan().isActive());
    EXPECT_FALSE(plan().isRecording());
    EXPECT_TRUE(plan().sites().empty());
    EXPECT_EQ(0u, plan().siteCount());
    addOn = registerAddOn();
}

}  // namespace
