// The built vexpath run as a user runs it, and the files it writes animated by the built vexplot:
// the frame trace vexplot writes shows what a user's movie does.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "PathFixture.h"
#include "SpeedMeasure.h"
#include "model/ShortWay.h"
#include "support/VexplotProcess.h"

namespace {

using vextest::contains;
using vextest::keyFrame;
using vextest::KeyFrameView_s;
using vextest::linesOf;
using Result = vextest::VexplotProcess::Result;

class VexpathProgramTest : public vextest::PathFixture {
protected:
    Result vexpath(const std::vector<std::string>& arguments) const {
        return process.runProgram(VEXPATH_PATH, arguments);
    }

    // The views of the frames vexplot drew when it animated the file with the demo.
    std::vector<KeyFrameView_s> animatedViews(const std::string& file) const {
        const Result result = process.runMacro(
            "$!ADDON \"Key Frame Animation\" OpenSettingsFile FileName=\"" + file +
                "\"\n$!ADDON \"Key Frame Animation\" Animate AnimationDestination=OnScreen\n",
            {"--trace", "trace.jsonl"});
        EXPECT_EQ(0, result.exitStatus) << result.err;
        std::vector<KeyFrameView_s> views;
        for (const std::string& line : linesOf(process.readFile("trace.jsonl"))) {
            const nlohmann::json event = nlohmann::json::parse(line);
            if (event["event"] != "redraw")
                continue;
            const nlohmann::json& v = event["view"];
            views.push_back({v[0], v[1], v[2], v[3], v[4], v[5], v[6]});
        }
        return views;
    }

    vextest::VexplotProcess process;
};

TEST_F(VexpathProgramTest, HelpAndAnUnusableCommandLine) {
    const Result help = vexpath({"--help"});
    EXPECT_EQ(0, help.exitStatus);
    EXPECT_EQ(0u, help.out.find("Usage: vexpath check FILE"));
    EXPECT_EQ(0, vexpath({"orbit", "--help"}).exitStatus);
    const Result wrong = vexpath({"check"});
    EXPECT_EQ(2, wrong.exitStatus);
    EXPECT_EQ(
        "vexpath: the key frame file to read is missing\nTry 'vexpath --help' for the commands.\n",
        wrong.err);
}

TEST_F(VexpathProgramTest, CheckOfAnUnreadableFilePrintsTheAddOnsMessage) {
    process.writeFile("bad.keyframe", "#!KeyFrame 1\n\n%Frames\n");
    const Result result = vexpath({"check", "bad.keyframe"});
    EXPECT_EQ(2, result.exitStatus);
    EXPECT_EQ(
        "vexpath: bad.keyframe: Key Frame Animation error:\nError reading key frame settings "
        "file.\n\nUnknown section header: %Frames\n\nError occurred on line number 3.\n",
        result.err);
}

TEST_F(VexpathProgramTest, ARetimedFlightMovesAtAConstantSpeedInVexplot) {
    // The example flight: legs of unlike lengths, 30 frames each.
    const Result copy = vexpath(
        {"retime", std::string(std::getenv("VEX_TEST_SOURCE_DIR")) + "/examples/flight.keyframe",
         "-o", "flight.keyframe", "--frames", "301"});
    ASSERT_EQ(0, copy.exitStatus) << copy.err;
    const std::vector<KeyFrameView_s> views = animatedViews("flight.keyframe");
    ASSERT_EQ(301u, views.size());
    const Result check = vexpath({"check", "flight.keyframe", "--json"});
    EXPECT_EQ(0, check.exitStatus) << check.out;
    const nlohmann::json report = nlohmann::json::parse(check.out);
    std::vector<double> speeds;
    for (const nlohmann::json& leg : report["legs"]) {
        const uint64_t first = leg["firstFrame"], frames = leg["frames"];
        ASSERT_GE(frames, 20u);
        double length = 0;
        for (uint64_t f = first; f < first + frames; ++f)
            length += vexplot::path::SpeedMeasure::step(views[f], views[f + 1]);
        speeds.push_back(length / static_cast<double>(frames));
    }
    ASSERT_EQ(3u, speeds.size());
    EXPECT_LT(*std::max_element(speeds.begin(), speeds.end()) /
                  *std::min_element(speeds.begin(), speeds.end()),
              1.05);
}

TEST_F(VexpathProgramTest, AnOrbitTurnsEvenlyInVexplot) {
    const Result orbit = vexpath({"orbit", "-o", "orbit.keyframe", "--frames", "121"});
    ASSERT_EQ(0, orbit.exitStatus) << orbit.err;
    EXPECT_EQ("orbit.keyframe: 5 key frames, 121 frames\n", orbit.out);
    const std::vector<KeyFrameView_s> views = animatedViews("orbit.keyframe");
    ASSERT_EQ(121u, views.size());
    for (std::size_t f = 0; f + 1 < views.size(); ++f)
        EXPECT_NEAR(3, vexplot::vexutiltools::shortWay(views[f + 1].Theta - views[f].Theta), 0.01)
            << f;
}

}  // namespace
