#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/RegisteredAddOnFixture.h"
#include "support/SdkPrinters.h"
#include "vexhost/Frame.h"
#include "vexhost/FrameStack.h"
#include "vexhost/StateNotifier.h"
#include "vxsdkbase.h"

namespace {

using vextest::ScopedLock;

class FrameStackTest : public vextest::RegisteredAddOnFixture {
protected:
    // The unique ids from the top of the stack down.
    std::vector<VexUniqueID_t> order() {
        std::vector<VexUniqueID_t> ids;
        for (int i = 0; i < host().frames().count(); ++i)
            ids.push_back(host().frames().at(static_cast<std::size_t>(i)).uniqueId());
        return ids;
    }
};

using Ids = std::vector<VexUniqueID_t>;

TEST_F(FrameStackTest, NewFrameGoesOnTopAndBecomesActiveWithIdsFromOne) {
    EXPECT_EQ(createFrame3D().uniqueId(), 1);
    EXPECT_EQ(createFrame(VexPlotType_XYLine).uniqueId(), 2);
    EXPECT_EQ(VexUtilFrameGetCount(), 2);
    EXPECT_EQ(VexUtilFrameGetUniqueID(), 2);
    EXPECT_EQ(VexUtilFrameGetPlotType(), VexPlotType_XYLine);
    EXPECT_EQ(order(), (Ids{2, 1}));
}

TEST_F(FrameStackTest, PlotTypeWithoutFramesIsSketchWithoutError) {
    EXPECT_EQ(VexUtilFrameGetPlotType(), VexPlotType_Sketch);
    EXPECT_EQ(VexUtilFrameGetCount(), 0);
}

TEST_F(FrameStackTest, FrameQueryWithoutFramesIsAHostError) {
    EXPECT_EQ(VexUtilFrameGetUniqueID(), VEX_BAD_ID);
    EXPECT_EQ(takeHostErrors(),
              std::vector<std::string>{"VexUtilFrameGetUniqueID: there is no frame"});
}

TEST_F(FrameStackTest, PushTopMovesTheTopFrameToTheBack) {
    createFrame3D();
    createFrame3D();
    createFrame3D();
    ScopedLock lock(addOn_);
    ASSERT_TRUE(VexUtilFramePushTop());
    EXPECT_EQ(order(), (Ids{2, 1, 3}));
    EXPECT_EQ(VexUtilFrameGetUniqueID(), 2);
}

TEST_F(FrameStackTest, ActivateByUniqueIdBringsThatFrameToTheTop) {
    createFrame3D();
    createFrame3D();
    createFrame3D();
    ScopedLock lock(addOn_);
    ASSERT_TRUE(VexUtilFrameActivateByUniqueID(1));
    EXPECT_EQ(order(), (Ids{1, 3, 2}));
    EXPECT_TRUE(VexUtilFrameActivateTop());
    EXPECT_EQ(order(), (Ids{1, 3, 2}));
}

TEST_F(FrameStackTest, ActivateByUnknownIdIsAHostError) {
    createFrame3D();
    ScopedLock lock(addOn_);
    EXPECT_FALSE(VexUtilFrameActivateByUniqueID(7));
    EXPECT_EQ(takeHostErrors(), std::vector<std::string>{"VexUtilFrameActivateByUniqueID: no "
                                                         "frame has the unique id 7"});
}

TEST_F(FrameStackTest, LightweightPoppingVisitsEveryFrameTopFirstWithoutReordering) {
    createFrame3D().setPosAndSize(0, 0, 4, 3);
    createFrame3D().setPosAndSize(1, 1, 5, 2);
    createFrame3D().setPosAndSize(2, 2, 6, 1);
    const uint64_t newTopsBefore = host().stateChanges().sentCount(VexStateChange_NewTopFrame);
    ScopedLock lock(addOn_);
    std::vector<VexUniqueID_t> visited;
    std::vector<double> widths;
    ASSERT_TRUE(VexUtilFrameLightweightPopStart());
    do {
        visited.push_back(VexUtilFrameGetUniqueID());
        double x, y, w, h;
        VexUtilFrameGetPosAndSize(&x, &y, &w, &h);
        widths.push_back(w);
    } while (VexUtilFrameLightweightPopNext());
    EXPECT_FALSE(VexUtilFrameLightweightPopNext());
    VexUtilFrameLightweightPopEnd();
    EXPECT_EQ(visited, (Ids{3, 2, 1}));
    EXPECT_EQ(widths, (std::vector<double>{6, 5, 4}));
    EXPECT_EQ(order(), (Ids{3, 2, 1}));
    EXPECT_EQ(VexUtilFrameGetUniqueID(), 3);
    EXPECT_EQ(host().stateChanges().sentCount(VexStateChange_NewTopFrame), newTopsBefore);
}

TEST_F(FrameStackTest, LightweightPopNextWithoutStartIsAHostError) {
    createFrame3D();
    ScopedLock lock(addOn_);
    EXPECT_FALSE(VexUtilFrameLightweightPopNext());
    VexUtilFrameLightweightPopEnd();
    EXPECT_EQ(takeHostErrors(),
              (std::vector<std::string>{
                  "VexUtilFrameLightweightPopNext: no VexUtilFrameLightweightPopStart before it",
                  "VexUtilFrameLightweightPopEnd: no VexUtilFrameLightweightPopStart before it"}));
}

TEST_F(FrameStackTest, DefaultFrameIsEightBySixInchesOr800By600Pixels) {
    createFrame3D();
    double x, y, w, h;
    VexUtilFrameGetPosAndSize(&x, &y, &w, &h);
    EXPECT_EQ(w, 8);
    EXPECT_EQ(h, 6);
    EXPECT_EQ(VexUtilConvertXDimension(VexCoordSys_Paper, VexCoordSys_Screen, w), 800);
    EXPECT_EQ(VexUtilConvertYDimension(VexCoordSys_Paper, VexCoordSys_Screen, h), 600);
    EXPECT_EQ(VexUtilConvertXDimension(VexCoordSys_Screen, VexCoordSys_Paper, 250), 2.5);
}

TEST_F(FrameStackTest, FrameUnitsArePercentOfTheCurrentFrame) {
    createFrame3D();
    EXPECT_EQ(VexUtilConvertXDimension(VexCoordSys_Frame, VexCoordSys_Paper, 50), 4);
    EXPECT_EQ(VexUtilConvertYDimension(VexCoordSys_Frame, VexCoordSys_Screen, 50), 300);
    EXPECT_EQ(VexUtilConvertXDimension(VexCoordSys_Paper, VexCoordSys_Hardcopy, 1), 72);
}

TEST_F(FrameStackTest, GridConversionIsAHostErrorAndKeepsTheValue) {
    createFrame3D();
    EXPECT_EQ(VexUtilConvertXDimension(VexCoordSys_Grid, VexCoordSys_Paper, 3), 3);
    EXPECT_EQ(takeHostErrors(),
              std::vector<std::string>{"VexUtilConvertXDimension: conversion from coordinate "
                                       "system 0 is not supported"});
}

TEST_F(FrameStackTest, WorkAreaIs1024By768UnlessSet) {
    int32_t width = 0, height = 0;
    VexUtilWorkAreaGetDimensions(&width, &height);
    EXPECT_EQ(width, 1024);
    EXPECT_EQ(height, 768);
    host().frames().setWorkArea(1920, 1080);
    VexUtilWorkAreaGetDimensions(&width, &height);
    EXPECT_EQ(width, 1920);
    EXPECT_EQ(height, 1080);
    EXPECT_THROW(host().frames().setWorkArea(0, 10), std::invalid_argument);
}

TEST_F(FrameStackTest, FrameChangesSendTheirStateChanges) {
    vexhost::StateNotifier& changes = host().stateChanges();
    const VexUniqueID_t first = createFrame3D().uniqueId();
    createFrame3D();
    EXPECT_EQ(changes.sentCount(VexStateChange_FrameCreated), 2u);
    EXPECT_TRUE(host().frames().setPlotType(first, VexPlotType_Cartesian2D));
    EXPECT_EQ(changes.sentCount(VexStateChange_PlotType), 1u);
    {
        ScopedLock lock(addOn_);
        VexUtilFramePushTop();
    }
    EXPECT_EQ(changes.sentCount(VexStateChange_NewTopFrame), 1u);
    EXPECT_TRUE(host().frames().remove(first));
    EXPECT_EQ(changes.sentCount(VexStateChange_FrameDeleted), 1u);
    EXPECT_FALSE(host().frames().remove(first));
    host().frames().removeAll();
    EXPECT_TRUE(host().frames().empty());
}

TEST_F(FrameStackTest, FrameRefusesASizeOfZero) {
    EXPECT_THROW(createFrame3D().setPosAndSize(0, 0, 0, 5), std::invalid_argument);
}

}  // namespace
