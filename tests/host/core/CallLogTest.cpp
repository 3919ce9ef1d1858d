#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/CallLogLines.h"
#include "support/HostFixture.h"
#include "vexhost/Bookkeeping.h"
#include "vexhost/CallLog.h"
#include "vexhost/DataSet.h"
#include "vexhost/FrameStack.h"
#include "vexhost/StateNotifier.h"
#include "vexhost/StyleStore.h"
#include "vexhost/UserDialogs.h"
#include "vxappaddonuiaction.h"
#include "vxsdkbase.h"
#include "vxtoolbox.h"

namespace {

using vexplot::toolbox::StyleValue;
using Log = std::vector<std::string>;

class CallLogTest : public vextest::HostFixture {
protected:
    void SetUp() override {
        HostFixture::SetUp();
        addOn_ = registerAddOn("Key Frame Animation");
        createFrame3D();
    }
    VexAddOn_pa addOn_ = nullptr;
};

TEST_F(CallLogTest, CallsAreLoggedWithTheirArgumentsInOrder) {
    startCallLog();
    VexUtilLockStart(addOn_);
    VexUtilViewRotate3D(VexRotateAxis_Alpha, -10, 0, 0, 0, VexRotateOriginLocation_DefinedOrigin);
    StyleValue("ThreeDView", "PSIAngle").set(30.0);
    StyleValue("ThreeDView").set(0.1, "ViewerPosition", "X");
    bool perspective = false;
    StyleValue("ThreeDView", "DrawInPerspective").get(perspective);
    StyleValue("Interface", "UseDisplayLists").set(false);
    StyleValue("ExportSetup", "ImageWidth").set(int64_t{640});
    VexUtilStatusStartPercentDone("Animating.... Press [Esc] or click [Stop] to cancel.", true,
                                  true);
    VexUtilStatusCheckPercentDone(14);
    VexUtilStatusFinishPercentDone();
    double x, y, z;
    VexUtilThreeDViewGetViewerPos(&x, &y, &z);
    VexUtilLockFinish(addOn_);
    EXPECT_EQ(takeCallLog(),
              (Log{vextest::addOnLockStart(), "VexUtilViewRotate3D(5, -10, 0, 0, 0, 0)",
                   "VexUtilStyleSetLowLevelX(\"ThreeDView\", \"PSIAngle\", 30)",
                   "VexUtilStyleSetLowLevelX(\"ThreeDView\", \"ViewerPosition\", \"X\", 0.1)",
                   "VexUtilStyleGetLowLevelX(\"ThreeDView\", \"DrawInPerspective\")",
                   "VexUtilStyleSetLowLevelX(\"Interface\", \"UseDisplayLists\", false)",
                   "VexUtilStyleSetLowLevelX(\"ExportSetup\", \"ImageWidth\", 640)",
                   "VexUtilStatusStartPercentDone(\"Animating.... Press [Esc] or click [Stop] to "
                   "cancel.\", true, true)",
                   "VexUtilStatusCheckPercentDone(14)", "VexUtilStatusFinishPercentDone()",
                   "VexUtilThreeDViewGetViewerPos()", vextest::addOnLockFinish()}));
}

TEST_F(CallLogTest, StringsAreQuotedWithEscapesAndNullIsNull) {
    host().userDialogs().queueAnswer(true);
    host().userDialogs().queueFileName("a.keyframe");
    startCallLog();
    VexUtilDialogMessageBox("Click \"No\" to restore\nthe extension.", VexMessageBox_YesNo);
    char* name = nullptr;
    VexUtilDialogGetFileName(VexSelectFile_WriteFile, &name, "Key Frame Animation", "animation",
                             "*.keyframe");
    VexUtilStringDealloc(&name);
    VexUtilLockStart(addOn_);
    const char* fileName = "movie.mp4";
    VexUtilExportSetup("ExportFName", nullptr, 0, reinterpret_cast<VexArbParam_t>(fileName));
    VexUtilExportSetup("AnimationSpeed", nullptr, 12.5, 0);
    VexUtilLockFinish(addOn_);
    VexUtilStringAlloc(30, "tag");
    EXPECT_EQ(takeCallLog(),
              (Log{"VexUtilDialogMessageBox(\"Click \\\"No\\\" to restore\\nthe extension.\", 4)",
                   "VexUtilDialogGetFileName(3, \"Key Frame Animation\", \"animation\", "
                   "\"*.keyframe\")",
                   "VexUtilStringDealloc(\"a.keyframe\")", vextest::addOnLockStart(),
                   "VexUtilExportSetup(\"ExportFName\", NULL, 0, \"movie.mp4\")",
                   "VexUtilExportSetup(\"AnimationSpeed\", NULL, 12.5, 0)",
                   vextest::addOnLockFinish(), "VexUtilStringAlloc(30, \"tag\")"}));
    host().bookkeeping().reset();  // the string above is left on purpose
}

TEST_F(CallLogTest, LogOffRecordsNothingButCountsEveryCall) {
    const uint64_t before = host().callLog().callCount();
    VexUtilFrameGetCount();
    VexUtilLockIsOn();
    EXPECT_EQ(host().callLog().callCount(), before + 2);
    EXPECT_TRUE(host().callLog().entries().empty());
}

TEST_F(CallLogTest, ControlCallsAreNotLogged) {
    startCallLog();
    host().frames().create();
    host().style().setDouble({"GlobalThreeD", "LightSource", "Intensity"}, 10);
    host().dataSet().setSolutionTime(3);
    host().stateChanges().send(VexStateChange_Style);
    EXPECT_TRUE(takeCallLog().empty());
}

TEST_F(CallLogTest, TakingTheLogLeavesItEmptyAndOn) {
    startCallLog();
    VexUtilFrameGetCount();
    EXPECT_EQ(takeCallLog(), Log{"VexUtilFrameGetCount()"});
    EXPECT_TRUE(host().callLog().isEnabled());
    EXPECT_TRUE(host().callLog().entries().empty());
}

TEST_F(CallLogTest, DoublesAreWrittenInShortestRoundTripForm) {
    startCallLog();
    VexUtilLockStart(addOn_);
    VexUtilSolutionTimeSetCurrent(1.0 / 3);
    VexUtilSolutionTimeSetCurrent(1e-7);
    VexUtilSolutionTimeSetCurrent(-2.5e20);
    VexUtilLockFinish(addOn_);
    const Log log = takeCallLog();
    EXPECT_EQ(log[1], "VexUtilSolutionTimeSetCurrent(0.3333333333333333)");
    EXPECT_EQ(log[2], "VexUtilSolutionTimeSetCurrent(1e-07)");
    EXPECT_EQ(log[3], "VexUtilSolutionTimeSetCurrent(-2.5e+20)");
}

}  // namespace
