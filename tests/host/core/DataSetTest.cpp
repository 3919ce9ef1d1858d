#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "support/HostFixture.h"
#include "support/SdkPrinters.h"
#include "vexhost/ColourMap.h"
#include "vexhost/DataSet.h"
#include "vexhost/Host.h"
#include "vexhost/SceneState.h"
#include "vexhost/StateNotifier.h"
#include "vexhost/Streamtrace.h"
#include "vexhost/Zone.h"
#include "vexhost/ZoneGeometry.h"
#include "vxsdkbase.h"

namespace {

using vextest::ScopedLock;

class DataSetTest : public vextest::HostFixture {};

// Every state change code sent so far, counted.
std::vector<uint64_t> sentCounts() {
    std::vector<uint64_t> counts;
    for (int32_t code = 0; code < 32; ++code)
        counts.push_back(vexhost::Host::instance().stateChanges().sentCount(code));
    return counts;
}

std::vector<VexSetIndex_t> walk(VexSet_pa set) {
    std::vector<VexSetIndex_t> members;
    for (VexSetIndex_t m = VexUtilSetGetNextMember(set, VEX_SET_NO_MEMBER); m != VEX_SET_NO_MEMBER;
         m = VexUtilSetGetNextMember(set, m))
        members.push_back(m);
    return members;
}

TEST_F(DataSetTest, DataSetIsAvailableOnceItHasAZone) {
    EXPECT_FALSE(VexUtilDataSetIsAvailable());
    EXPECT_EQ(VexUtilDataSetGetNumZones(), 0);
    addZone(0);
    EXPECT_TRUE(VexUtilDataSetIsAvailable());
    EXPECT_EQ(VexUtilDataSetGetNumZones(), 1);
}

TEST_F(DataSetTest, EnabledZonesAreWalkedAsAHostSetInZoneOrder) {
    for (int i = 0; i < 4; ++i)
        addZone(i);
    host().dataSet().setZoneEnabled(2, false);
    VexSet_pa set = nullptr;
    ASSERT_TRUE(VexUtilZoneGetEnabled(&set));
    EXPECT_EQ(host().bookkeeping().outstanding(vexhost::Bookkeeping::Kind::Set), 1u);
    EXPECT_EQ(walk(set), (std::vector<VexSetIndex_t>{1, 3, 4}));
    EXPECT_EQ(VexUtilSetGetMemberCount(set), 3);
    VexUtilSetDealloc(&set);
    EXPECT_EQ(set, nullptr);
}

TEST_F(DataSetTest, NoEnabledZoneSetWithoutADataSet) {
    VexSet_pa set = nullptr;
    EXPECT_FALSE(VexUtilZoneGetEnabled(&set));
    EXPECT_EQ(set, nullptr);
}

TEST_F(DataSetTest, UsingAFreedSetIsAHostError) {
    addZone(0);
    VexSet_pa set = nullptr;
    ASSERT_TRUE(VexUtilZoneGetEnabled(&set));
    VexSet_pa copy = set;
    VexUtilSetDealloc(&set);
    EXPECT_EQ(VexUtilSetGetNextMember(copy, 0), VEX_SET_NO_MEMBER);
    VexUtilSetDealloc(&copy);
    EXPECT_EQ(takeHostErrors(),
              (std::vector<std::string>{
                  "VexUtilSetGetNextMember: the set was not handed out by the host, or was freed",
                  "VexUtilSetDealloc: the set was not handed out by the host, or was freed "
                  "already"}));
}

TEST_F(DataSetTest, ZoneQueriesAnswerSolutionTimeAndStrand) {
    addZone(0.5, 3);
    EXPECT_EQ(VexUtilZoneGetSolutionTime(1), 0.5);
    EXPECT_EQ(VexUtilZoneGetStrandID(1), 3);
    EXPECT_EQ(VexUtilZoneGetSolutionTime(2), 0);
    EXPECT_EQ(VexUtilZoneGetStrandID(0), 0);
    EXPECT_EQ(takeHostErrors(),
              (std::vector<std::string>{
                  "VexUtilZoneGetSolutionTime: there is no zone 2 (the data set has 1)",
                  "VexUtilZoneGetStrandID: there is no zone 0 (the data set has 1)"}));
}

TEST_F(DataSetTest, SolutionTimeIsStoredAsGivenAndAnnounced) {
    addZone(0);
    addZone(1);
    VexAddOn_pa addOn = registerAddOn();
    {
        ScopedLock lock(addOn);
        EXPECT_EQ(VexUtilSolutionTimeSetCurrent(0.3333), VexSetValue_Ok);
    }
    EXPECT_EQ(VexUtilSolutionTimeGetCurrent(), 0.3333);
    EXPECT_EQ(host().stateChanges().sentCount(VexStateChange_SolutionTime), 1u);
}

TEST_F(DataSetTest, ShownZonesAreTheLatestOfEachStrandAndEveryUnstrandedZone) {
    const int32_t a0 = addZone(0, 1), a1 = addZone(1, 1), a2 = addZone(2, 1);
    const int32_t b0 = addZone(0.5, 2), b1 = addZone(1.5, 2);
    const int32_t fixed = addZone(7, 0);
    const vexhost::DataSet& data = host().dataSet();
    EXPECT_EQ(data.zonesShownAt(1.2), (std::vector<int32_t>{a1, b0, fixed}));
    EXPECT_EQ(data.zonesShownAt(2), (std::vector<int32_t>{a2, b1, fixed}));
    EXPECT_EQ(data.zonesShownAt(-1), (std::vector<int32_t>{fixed}));
    host().dataSet().setZoneEnabled(a1, false);
    EXPECT_EQ(data.zonesShownAt(1.2), (std::vector<int32_t>{a0, b0, fixed}));
}

TEST_F(DataSetTest, AddingZonesAndClearingAreAnnounced) {
    vexhost::Zone zone;
    host().dataSet().addZones({zone, zone, zone});
    EXPECT_EQ(host().dataSet().zoneCount(), 3);
    EXPECT_EQ(host().stateChanges().sentCount(VexStateChange_ZonesAdded), 1u);
    host().dataSet().setSolutionTime(4);
    host().dataSet().clear();
    EXPECT_EQ(host().dataSet().zoneCount(), 0);
    EXPECT_EQ(host().dataSet().solutionTime(), 0);
    EXPECT_EQ(host().stateChanges().sentCount(VexStateChange_DataSetReset), 1u);
    EXPECT_THROW(host().dataSet().zone(1), std::out_of_range);
}

TEST_F(DataSetTest, ColouringIsRainbowWithoutAVariableUntilSetAndAfterClearingAndReset) {
    vexhost::DataSet& data = host().dataSet();
    EXPECT_EQ(data.colouring().variable, "");
    EXPECT_EQ(data.colouring().map, vexhost::ColourMap::Rainbow);
    const std::vector<uint64_t> sentBefore = sentCounts();
    data.setColouring({"Pressure", vexhost::ColourMap::Viridis});
    EXPECT_EQ(sentCounts(), sentBefore);
    EXPECT_EQ(data.colouring().variable, "Pressure");
    EXPECT_EQ(data.colouring().map, vexhost::ColourMap::Viridis);
    data.clear();
    EXPECT_EQ(data.colouring().variable, "");
    EXPECT_EQ(data.colouring().map, vexhost::ColourMap::Rainbow);
    data.setColouring({"T", vexhost::ColourMap::CoolWarm});
    data.reset();
    EXPECT_EQ(data.colouring().variable, "");
    EXPECT_EQ(data.colouring().map, vexhost::ColourMap::Rainbow);
}

TEST_F(DataSetTest, SceneOfTheActiveFrameCarriesTheColouring) {
    EXPECT_EQ(host().scene().colourMap, vexhost::ColourMap::Rainbow);
    EXPECT_EQ(host().scene().colourVariable, "");
    host().dataSet().setColouring({"Velocity", vexhost::ColourMap::CoolWarm});
    const vexhost::SceneState scene = host().scene();
    EXPECT_EQ(scene.colourMap, vexhost::ColourMap::CoolWarm);
    EXPECT_EQ(scene.colourVariable, "Velocity");
}

TEST_F(DataSetTest, ExtentCoversEveryZoneAndStreamtrace) {
    auto geometry = std::make_shared<vexhost::ZoneGeometry>();
    geometry->positions = {0, 0, 0, 1, 2, 3, -1, 0.5f, 0};
    geometry->triangles = {0, 1, 2};
    geometry->scalars = {5, -2, 8};
    vexhost::Zone zone;
    zone.geometry = geometry;
    host().dataSet().addZone(zone);
    auto trace = std::make_shared<vexhost::Streamtrace>();
    trace->points = {0, 0, 10};
    trace->times = {0};
    host().dataSet().addStreamtrace(trace);
    const vexhost::DataSet::Extent& e = host().dataSet().extent();
    EXPECT_EQ(e.scalarMin, -2);
    EXPECT_EQ(e.scalarMax, 8);
    EXPECT_EQ(e.boundsMin, (std::array<float, 3>{-1, 0, 0}));
    EXPECT_EQ(e.boundsMax, (std::array<float, 3>{1, 2, 10}));
}

}  // namespace
