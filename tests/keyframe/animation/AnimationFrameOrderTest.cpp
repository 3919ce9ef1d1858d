// What each frame of a run with every stage does to the host, in order.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "AnimationFixture.h"
#include "animation/AnimationManager.h"
#include "support/CallLogLines.h"
#include "vexhost/Host.h"

namespace vexplot {
namespace vexutiltools {
namespace {

// The host writes of a log, by kind, runs of one kind counted once.
std::vector<std::string> writesByKind(const std::vector<std::string>& log) {
    const std::pair<std::string, const char*> kinds[] = {
        {vextest::callLineStart("VexUtilStyleSetLowLevelX", {"ThreeDView"}), "view"},
        {vextest::callLineStart("VexUtilStyleSetLowLevelX", {"GlobalThreeD", "LightSource"}),
         "lighting"},
        {vextest::callLineStart("VexUtilStyleSetLowLevelX",
                                {"StreamAttributes", "StreamTiming", "TimeAnchor"}),
         "anchor"},
        {vextest::callLineStart("VexUtilSolutionTimeSetCurrent"), "time"},
        {vextest::callLineStart("VexUtilRedraw"), "redraw"},
        {vextest::callLineStart("VexUtilExportStart"), "export-start"},
        {vextest::callLineStart("VexUtilExportNextFrame"), "export-frame"},
    };
    std::vector<std::string> writes;
    for (const std::string& line : log)
        for (const auto& [prefix, kind] : kinds)
            if (line.compare(0, std::string(prefix).size(), prefix) == 0) {
                if (writes.empty() || writes.back() != kind)
                    writes.push_back(kind);
                break;
            }
    return writes;
}

// The writes split into frames, each ending with its redraw or exported picture.
std::vector<std::vector<std::string>> frames(const std::vector<std::string>& writes) {
    std::vector<std::vector<std::string>> result(1);
    for (const std::string& write : writes) {
        result.back().push_back(write);
        if (write == "redraw" || write == "export-start" || write == "export-frame")
            result.emplace_back();
    }
    result.pop_back();
    return result;
}

class AnimationFrameOrderTest : public vextest::AnimationFixture {
protected:
    void SetUp() override {
        AnimationFixture::SetUp();
        addZone(0, 1);
        addZone(1, 1);
    }

    static AnimationSettings_s everyStage(Destination_e destination) {
        AnimationSettings_s settings;
        settings.AnimateTime = true;
        settings.AnimateStreamtraces = true;
        settings.FadeIn = true;
        settings.FadeOut = true;
        settings.Destination = destination;
        return settings;
    }

    // The writes of each frame of a run over 20 frames (fade length 2).
    std::vector<std::vector<std::string>> framesOfRun(Destination_e destination) {
        startCallLog();
        EXPECT_EQ("", animateError(keyFramesWithCounts({12, 7, 1}), 0, 3, everyStage(destination)));
        return frames(
            writesByKind(logFrom(takeCallLog(), "VexUtilStatusStartPercentDone(\"Animating")));
    }
};

TEST_F(AnimationFrameOrderTest, EachFrameWritesViewLightingAnchorTimeThenExports) {
    const RestoredState before = restoredState();
    const std::vector<std::vector<std::string>> written = framesOfRun(Destination_e::ToFile);
    ASSERT_EQ(20u, written.size());
    const std::vector<std::string> fading = {"view", "lighting", "anchor", "time", "export-frame"};
    const std::vector<std::string> between = {"view", "anchor", "time", "export-frame"};
    EXPECT_EQ((std::vector<std::string>{"view", "lighting", "anchor", "time", "export-start"}),
              written[0]);
    for (std::size_t frame = 1; frame < 20; ++frame) {
        const bool fades = frame <= 2 || frame >= 18;
        EXPECT_EQ(fades ? fading : between, written[frame]) << "frame " << frame;
    }
    expectRestored(before);
}

TEST_F(AnimationFrameOrderTest, OnScreenEachFrameEndsWithARedraw) {
    const std::vector<std::vector<std::string>> written = framesOfRun(Destination_e::OnScreen);
    ASSERT_EQ(20u, written.size());
    EXPECT_EQ((std::vector<std::string>{"view", "lighting", "anchor", "time", "redraw"}),
              written[19]);
    EXPECT_EQ((std::vector<std::string>{"view", "anchor", "time", "redraw"}), written[10]);
}

}  // namespace
}  // namespace vexutiltools
}  // namespace vexplot
