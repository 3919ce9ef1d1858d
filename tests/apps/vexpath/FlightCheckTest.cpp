// vexpath check on files made for each surprise: what it reports of each leg, each warning, the
// JSON report and the exit statuses.
#include "FlightCheck.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iterator>

#include <nlohmann/json.hpp>

#include "PathFixture.h"
#include "support/VexplotProcess.h"

namespace {

using vexplot::path::FlightCheck;
using vextest::AnimationSettings_s;
using vextest::keyFrame;
using vextest::KeyFrame_s;
using vextest::KeyFrameView_s;

class FlightCheckTest : public vextest::PathFixture {
protected:
    FlightCheck check(const std::vector<KeyFrame_s>& keyFrames,
                      const AnimationSettings_s& settings = AnimationSettings_s()) const {
        return FlightCheck(fly(writeFlight("flight.keyframe", keyFrames, settings)));
    }

    static std::vector<std::string> kinds(const FlightCheck& report) {
        std::vector<std::string> found;
        for (const FlightCheck::Warning& warning : report.warnings())
            found.push_back(warning.kind);
        return found;
    }

    // A view round the origin at theta, 20 units out.
    static KeyFrameView_s round(double theta, double width = 10) {
        return lookingAt({0, 0, 0}, 60, theta, 20, width);
    }
};

TEST_F(FlightCheckTest, ReportsEachLegsTurnsMovementWidthsAndSpeed) {
    const FlightCheck report = check({keyFrame("A", round(0), 30), keyFrame("B", round(90, 8), 30),
                                      keyFrame("C", round(150, 8), 1)});
    EXPECT_TRUE(report.warnings().empty());
    ASSERT_EQ(2u, report.legs().size());
    const FlightCheck::Leg& leg = report.legs()[0];
    EXPECT_EQ(0u, leg.firstFrame);
    EXPECT_EQ(30u, leg.frames);
    EXPECT_DOUBLE_EQ(0, leg.psi);
    EXPECT_NEAR(90, leg.theta, 1e-3);
    EXPECT_DOUBLE_EQ(0, leg.alpha);
    // Along the arc of radius 20 sin 60 about the vertical axis, not its chord.
    const double radius = 20 * std::sin(std::acos(-1.0) / 3);
    EXPECT_NEAR(radius * std::acos(-1.0) / 2, leg.distance, 0.01 * radius);
    EXPECT_DOUBLE_EQ(10, leg.widthFrom);
    EXPECT_DOUBLE_EQ(8, leg.widthTo);
    EXPECT_DOUBLE_EQ(leg.length / 30, leg.speed);
    EXPECT_EQ(30u, report.legs()[1].firstFrame);
}

TEST_F(FlightCheckTest, WarnsOfATurnNearAHalfTurn) {
    const FlightCheck report = check({keyFrame("A", round(0), 40), keyFrame("B", round(179.5), 1)});
    ASSERT_EQ(std::vector<std::string>{"half-turn"}, kinds(report));
    EXPECT_EQ(1u, report.warnings()[0].leg);
    EXPECT_EQ(
        "leg 1 (\"A\" -> \"B\"): theta turns +179.50 degrees, within 1 degree of a half turn: "
        "which way it turns depends on rounding",
        report.warnings()[0].message);
}

TEST_F(FlightCheckTest, WarnsOfTwoKeyFramesInARowWithTheSameView) {
    const FlightCheck report = check({keyFrame("A", round(0), 20), keyFrame("B", round(40), 15),
                                      keyFrame("B again", round(40), 1)});
    ASSERT_EQ(std::vector<std::string>{"same-view"}, kinds(report));
    EXPECT_EQ(
        "key frames 2 and 3 (\"B\", \"B again\") have the same view: a pause of 15 frames, or a "
        "mistake",
        report.warnings()[0].message);
}

TEST_F(FlightCheckTest, WarnsOfACut) {
    const FlightCheck report = check(
        {keyFrame("A", round(0), 20), keyFrame("B", round(40), 1), keyFrame("C", round(60), 1)});
    ASSERT_EQ(std::vector<std::string>{"cut"}, kinds(report));
    EXPECT_EQ(2u, report.warnings()[0].leg);
    EXPECT_EQ("leg 2 (\"B\" -> \"C\") has a frame count of 1: a cut", report.warnings()[0].message);
}

TEST_F(FlightCheckTest, WarnsOfASpeedThatJumpsMoreThanThreeTimesOver) {
    const FlightCheck report = check({keyFrame("A", round(0), 40), keyFrame("B", round(10), 10),
                                      keyFrame("C", round(100), 10), keyFrame("D", round(140), 1)});
    ASSERT_EQ(std::vector<std::string>{"speed-jump"}, kinds(report));
    EXPECT_EQ(2u, report.warnings()[0].leg);
    EXPECT_EQ(0u, report.warnings()[0].message.find(
                      "the speed jumps 36.0 times from leg 1 (\"A\" -> \"B\") to leg 2 (\"B\" -> "
                      "\"C\"): "))
        << report.warnings()[0].message;
}

TEST_F(FlightCheckTest, ASpeedThreeTimesOverIsNoJump) {
    const FlightCheck report = check(
        {keyFrame("A", round(0), 30), keyFrame("B", round(10), 10), keyFrame("C", round(19), 1)});
    EXPECT_TRUE(report.warnings().empty());
}

TEST_F(FlightCheckTest, WarnsOfASolutionTimeGoingBackUnderAsCaptured) {
    const std::vector<KeyFrame_s> keyFrames = {keyFrame("A", round(0), 20, 0),
                                               keyFrame("B", round(40), 20, 1),
                                               keyFrame("C", round(80), 1, 0.5)};
    const FlightCheck report =
        check(keyFrames, vextest::animationSettings(vextest::option::AnimateTime,
                                                    vextest::TimeAnimationOperation_e::AsCaptured));
    ASSERT_EQ(std::vector<std::string>{"time-backwards"}, kinds(report));
    EXPECT_EQ(3u, report.warnings()[0].keyFrame);
    EXPECT_EQ(
        "the solution time goes back from 1 to 0.5 from key frame 2 (\"B\") to key frame 3 "
        "(\"C\") under AsCaptured time animation",
        report.warnings()[0].message);
    // Without time animation the times do nothing.
    EXPECT_TRUE(check(keyFrames).warnings().empty());
}

TEST_F(FlightCheckTest, WarnsOfAWidthTheHostDoesNotTake) {
    const FlightCheck report = check({keyFrame("A", round(0), 20), keyFrame("B", round(40, 0), 20),
                                      keyFrame("C", round(80, -3), 1)});
    const std::vector<std::string> found = kinds(report);
    ASSERT_EQ(2, std::count(found.begin(), found.end(), "width")) << report.warnings().size();
    EXPECT_EQ(
        "key frame 2 (\"B\") has width 0: the host takes only widths above 0 and keeps the width "
        "it had",
        report.warnings()[found.size() - 2].message);
}

TEST_F(FlightCheckTest, ExitsWith0WithoutWarningsAnd1WithThem) {
    const std::string clean =
        writeFlight("clean.keyframe", {keyFrame("A", round(0), 20), keyFrame("B", round(30), 1)});
    const Run quiet = runPath({"check", clean, "--data", "none"});
    EXPECT_EQ(0, quiet.exitStatus) << quiet.err;
    EXPECT_EQ(clean + ": 2 key frames, 21 frames", vextest::linesOf(quiet.out).front());
    EXPECT_EQ("no warnings", vextest::linesOf(quiet.out).back());

    const std::string cut =
        writeFlight("cut.keyframe", {keyFrame("A", round(0), 1), keyFrame("B", round(30), 1)});
    const Run warned = runPath({"check", cut, "--data", "none"});
    EXPECT_EQ(1, warned.exitStatus);
    EXPECT_EQ("warning: leg 1 (\"A\" -> \"B\") has a frame count of 1: a cut",
              vextest::linesOf(warned.out).end()[-2]);
    EXPECT_EQ("1 warning", vextest::linesOf(warned.out).back());
    EXPECT_EQ("", warned.err);
}

TEST_F(FlightCheckTest, WritesTheReportAsJson) {
    const std::string path =
        writeFlight("cut.keyframe", {keyFrame("A", round(0), 1), keyFrame("B", round(30), 1)});
    const Run run = runPath({"check", path, "--json", "--data", "none"});
    EXPECT_EQ(1, run.exitStatus);
    const nlohmann::json report = nlohmann::json::parse(run.out);
    EXPECT_EQ(path, report["file"]);
    EXPECT_EQ(2, report["keyFrames"]);
    EXPECT_EQ(2, report["frames"]);
    ASSERT_EQ(1u, report["legs"].size());
    EXPECT_EQ("A", report["legs"][0]["from"]);
    EXPECT_EQ("B", report["legs"][0]["to"]);
    EXPECT_NEAR(30, report["legs"][0]["turn"]["theta"].get<double>(), 1e-3);
    ASSERT_EQ(1u, report["warnings"].size());
    EXPECT_EQ("cut", report["warnings"][0]["kind"]);
    EXPECT_EQ(1, report["warnings"][0]["leg"]);
}

TEST_F(FlightCheckTest, AFileTheAddOnCannotReadExitsWith2AndItsMessage) {
    const std::string path = directory.file("bad.keyframe");
    std::ofstream(path) << "#!KeyFrame 2\n";
    const Run run = runPath({"check", path, "--data", "none"});
    EXPECT_EQ(2, run.exitStatus);
    EXPECT_EQ("vexpath: " + path +
                  ": Key Frame Animation error:\nFile created with a newer version of the Key "
                  "Frame add-on.\n",
              run.err);
    EXPECT_EQ("", run.out);
}

TEST_F(FlightCheckTest, AWidthBeyondTheFilesLimitIsTheAddOnsError) {
    const std::string path =
        writeFlight("wide.keyframe", {keyFrame("A", round(0), 20), keyFrame("B", round(30), 1)});
    std::string text;
    {
        std::ifstream in(path);
        text.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    }
    text.replace(text.rfind("Width 10"), 8, "Width 2e150");
    std::ofstream(path, std::ios::trunc) << text;
    const Run run = runPath({"check", path, "--data", "none"});
    EXPECT_EQ(2, run.exitStatus);
    EXPECT_EQ("vexpath: " + path +
                  ": Key Frame Animation error:\nError reading key frame settings file.\n\nInvalid "
                  "width value. Width must be between -1e150 and 1e150\n\nError occurred on line "
                  "number 25.\n",
              run.err);
}

TEST_F(FlightCheckTest, AMissingFileIsTheAddOnsErrorToo) {
    const Run run = runPath({"check", "no such.keyframe", "--data", "none"});
    EXPECT_EQ(2, run.exitStatus);
    EXPECT_EQ(
        "vexpath: no such.keyframe: Key Frame Animation error:\nUnable to open file for "
        "reading.\n",
        run.err);
}

}  // namespace
