#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/HostFixture.h"
#include "support/RegisteredAddOnFixture.h"
#include "vexhost/MacroRecorder.h"
#include "vxsdkbase.h"

namespace {

using vextest::ScopedLock;

using MacroRecorderTest = vextest::RegisteredAddOnFixture;

TEST_F(MacroRecorderTest, AddOnCommandIsRecordedAsTheLineThePlayerHandsBack) {
    host().macro().setRecording(true);
    ScopedLock lock(addOn_);
    EXPECT_TRUE(VexUtilMacroIsRecordingActive());
    EXPECT_TRUE(VexUtilMacroRecordExtCommand("Key Frame Animation",
                                             "Animate AnimationDestination = \"ToFile\""));
    EXPECT_TRUE(VexUtilMacroRecordRawCommand("$!EXPORTSETUP ImageWidth = 800"));
    EXPECT_EQ(host().macro().lines(),
              (std::vector<std::string>{
                  "$!ADDON \"Key Frame Animation\" Animate AnimationDestination = \"ToFile\"",
                  "$!EXPORTSETUP ImageWidth = 800"}));
}

TEST_F(MacroRecorderTest, RecordingCallsFailWhileNotRecording) {
    ScopedLock lock(addOn_);
    EXPECT_FALSE(VexUtilMacroIsRecordingActive());
    EXPECT_FALSE(VexUtilMacroRecordExtCommand("Key Frame Animation", "Animate"));
    EXPECT_FALSE(VexUtilMacroRecordRawCommand("$!REDRAW"));
    EXPECT_TRUE(host().macro().lines().empty());
}

TEST_F(MacroRecorderTest, RecordedLinesCanBeTakenAndCleared) {
    host().macro().setRecording(true);
    ScopedLock lock(addOn_);
    VexUtilMacroRecordRawCommand("one");
    EXPECT_EQ(host().macro().take(), std::vector<std::string>{"one"});
    EXPECT_TRUE(host().macro().lines().empty());
    VexUtilMacroRecordRawCommand("two");
    host().macro().clear();
    EXPECT_TRUE(host().macro().lines().empty());
    EXPECT_TRUE(host().macro().isRecording());
}

TEST_F(MacroRecorderTest, MissingTextIsAHostError) {
    host().macro().setRecording(true);
    ScopedLock lock(addOn_);
    EXPECT_FALSE(VexUtilMacroRecordExtCommand(nullptr, "x"));
    EXPECT_FALSE(VexUtilMacroRecordRawCommand(nullptr));
    EXPECT_EQ(takeHostErrors().size(), 2u);
    EXPECT_TRUE(host().macro().lines().empty());
}

}  // namespace
