// The last run's frames in the studio: kept as the add-on draws or exports them, shown again by
// the scrubber, with the camera path over the pictures when the person asks; and the messages for
// them, whose hostile values change nothing.
#include <gtest/gtest.h>

#include <array>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "host/studio/StudioLoopFixture.h"
#include "support/RecordingRenderer.h"
#include "vexhost/Drawing.h"
#include "vexhost/Frame.h"
#include "vexhost/FrameStack.h"
#include "vexhost/MacroError.h"
#include "vexhost/MacroFileRunner.h"
#include "vexhost/ProgressStatus.h"

namespace {

using vextest::RecordingRenderer;
using namespace std::chrono_literals;

using Position = std::array<double, 3>;
const Position AtA = {0, -20, 10};
const Position AtB = {0, 20, 10};

// Key frames A and B, `frames` frames from the one to the other.
std::string flightFile(int frames) {
    const auto keyFrame = [](const char* name, const Position& at, double theta, int count) {
        return std::string("%KeyFrameView\n Name \"") + name + "\"\n Position " +
               std::to_string(at[0]) + " " + std::to_string(at[1]) + " " + std::to_string(at[2]) +
               "\n Angle 60 " + std::to_string(theta) + " 0\n Width 10\n FrameCount " +
               std::to_string(count) + "\n SolutionTime 0\n%KeyFrameView\n\n";
    };
    return "#!KeyFrame 1\n\n" + keyFrame("A", AtA, 0, frames - 1) + keyFrame("B", AtB, 90, 1);
}

Position positionOf(const vexhost::SceneState& scene) {
    return {scene.camera.position[0], scene.camera.position[1], scene.camera.position[2]};
}

class StudioFlightTest : public vextest::StudioLoopFixture {
protected:
    void SetUp() override {
        StudioLoopFixture::SetUp();
        host().drawing().setRenderer(std::make_unique<RecordingRenderer>(&pictures_));
        openMainDialog();
    }

    // Opens a flight of `frames` frames through the dialog's File menu and the file chooser.
    void openFlight(int frames) {
        const std::string name = "flight" + std::to_string(frames) + ".keyframe";
        std::ofstream(scratch_.file(name)) << flightFile(frames);
        answerNext(R"("file":{"root":0,"path":")" + name + "\"}");
        chooseFileMenu("&Open Animation File...");
        ASSERT_EQ((std::vector<std::string>{"A", "B"}), keyFrameNames());
    }
    // The page says its panel's size only now: a page that has it waits for each frame of an
    // on-screen run to be shown, which a test does not answer.
    void showPictures() { deliver(R"({"type":"viewport","width":400,"height":300})"); }
    // The next picture the page gets, which it then takes.
    const vexhost::SceneState& nextPicture() {
        const std::size_t before = pictures_.size();
        EXPECT_TRUE(stepUntil([&] { return pictures_.size() > before; }, 10s));
        deliver(R"({"type":"ack","frame":)" + std::to_string(pictures_.size()) + "}");
        return pictures_.back().scene;
    }
    Json flight() const { return stateOf("flight"); }

    std::vector<RecordingRenderer::Call> pictures_;
};

TEST_F(StudioFlightTest, BeforeAnyRunThereAreNoFrames) {
    stepNow();
    EXPECT_EQ((Json{{"frames", 0}, {"running", false}, {"frame", nullptr}, {"path", false}}),
              flight());
}

TEST_F(StudioFlightTest, TheFramesOfARunAreKeptAndTheScrubberShowsThemAgain) {
    openFlight(11);
    press("Animate All");
    stepNow();
    EXPECT_EQ((Json{{"frames", 11}, {"running", false}, {"frame", nullptr}, {"path", false}}),
              flight());
    const vexhost::View3D live = host().frames().active()->view();

    showPictures();
    EXPECT_EQ(AtB, positionOf(nextPicture())) << "live: the run ended at B";
    deliver(R"({"type":"scrub","frame":0})");
    EXPECT_EQ(AtA, positionOf(nextPicture()));
    EXPECT_EQ(0, flight()["frame"]);
    EXPECT_LE(pictures_.back().width, 200) << "drag quality while the slider moves";
    EXPECT_TRUE(stepUntil([&] { return pictures_.back().width > 200; }, 10s))
        << "the full picture once it rests";
    EXPECT_EQ(AtA, positionOf(pictures_.back().scene));
    deliver(R"({"type":"ack","frame":)" + std::to_string(pictures_.size()) + "}");
    deliver(R"({"type":"scrub","frame":10})");
    EXPECT_EQ(AtB, positionOf(nextPicture()));
    EXPECT_EQ(live, host().frames().active()->view()) << "a preview: the host's view stays";
}

TEST_F(StudioFlightTest, ThePathOfTheRunIsDrawnOverThePicturesWhenAsked) {
    openFlight(11);
    press("Animate All");
    showPictures();
    EXPECT_EQ(nullptr, nextPicture().cameraPath);

    deliver(R"({"type":"path","show":true})");
    const vexhost::SceneState& live = nextPicture();
    ASSERT_NE(nullptr, live.cameraPath);
    EXPECT_EQ(11u, live.cameraPath->frameCount());
    EXPECT_EQ(AtA[1], live.cameraPath->positions[1]);
    // Without a path check (no vexpath), its first and last frames are marked, unnamed.
    ASSERT_EQ(2u, live.cameraPath->keyFrames.size());
    EXPECT_EQ(10u, live.cameraPath->keyFrames[1].frame);
    EXPECT_EQ("", live.cameraPath->keyFrames[1].name);
    EXPECT_EQ(true, flight()["path"]);

    deliver(R"({"type":"scrub","frame":4})");
    const vexhost::SceneState& scrubbed = nextPicture();
    ASSERT_NE(nullptr, scrubbed.cameraPath);
    EXPECT_EQ(5u, scrubbed.cameraPath->frameCount()) << "the line ends where the camera stands";

    deliver(R"({"type":"path","show":false})");
    EXPECT_EQ(nullptr, nextPicture().cameraPath);
}

TEST_F(StudioFlightTest, LiveAndEveryChangeOfTheViewGoBackToTheLiveView) {
    openFlight(11);
    press("Animate All");
    for (const char* back :
         {R"({"type":"live"})",
          R"({"type":"drag","seq":1,"mode":"rotate","dx":5,"dy":0,"active":false})",
          R"({"type":"wheel","seq":2,"delta":1})", R"({"type":"fit"})"}) {
        deliver(R"({"type":"scrub","frame":3})");
        stepNow();
        ASSERT_EQ(3, flight()["frame"]);
        deliver(back);
        stepNow();
        EXPECT_EQ(nullptr, flight()["frame"]) << back;
    }
}

TEST_F(StudioFlightTest, ANewRunReplacesTheFramesAndIsShownLive) {
    openFlight(11);
    press("Animate All");
    openFlight(6);
    send(R"({"type":"scrub","frame":7})");
    // A run the person did not start from the page (a macro file's, say) is a new run as well.
    vexhost::MacroFileRunner(host()).runLine(
        "$!ADDON \"Key Frame Animation\" Animate AnimationDestination=OnScreen");
    stepNow();
    EXPECT_EQ(6, flight()["frames"]);
    EXPECT_EQ(nullptr, flight()["frame"]);
}

TEST_F(StudioFlightTest, AStoppedRunKeepsTheFramesMadeSoFar) {
    openFlight(11);
    // The add-on checks once for each view it computes (9 between A and B), then once a frame:
    // Stop at the fifth frame's check. Through a macro line, the add-on's "Animation canceled."
    // is the line's failure rather than a message for the person.
    host().progress().pressStopAt(9 + 5);
    EXPECT_THROW(vexhost::MacroFileRunner(host()).runLine(
                     "$!ADDON \"Key Frame Animation\" Animate AnimationDestination=OnScreen"),
                 vexhost::MacroError);
    stepNow();
    EXPECT_EQ(5, flight()["frames"]);
    EXPECT_EQ(false, flight()["running"]);
}

TEST_F(StudioFlightTest, TheFramesOfARunToAMovieAreKeptAsWell) {
    openFlight(11);
    vexhost::MacroFileRunner macro(host());
    macro.runLine("$!EXPORTSETUP ExportFormat = MPEG4");
    macro.runLine("$!EXPORTSETUP ExportFName = \"" + scratch_.file("flight.mp4") + "\"");
    macro.runLine("$!ADDON \"Key Frame Animation\" Animate AnimationDestination=ToFile");
    stepNow();
    EXPECT_EQ(11, flight()["frames"]);
    showPictures();
    deliver(R"({"type":"scrub","frame":0})");
    EXPECT_EQ(AtA, positionOf(nextPicture()));
}

TEST_F(StudioFlightTest, HostileScrubAndPathMessagesChangeNothing) {
    send(R"({"type":"scrub","frame":0})");
    stepNow();
    EXPECT_EQ(0, flight()["frames"]);
    EXPECT_EQ(nullptr, flight()["frame"]);

    openFlight(11);
    press("Animate All");
    const vexhost::View3D view = host().frames().active()->view();
    for (const char* message : {
             R"({"type":"scrub"})",
             R"({"type":"scrub","frame":-1})",
             R"({"type":"scrub","frame":11})",
             R"({"type":"scrub","frame":1.5})",
             R"({"type":"scrub","frame":"3"})",
             R"({"type":"scrub","frame":null})",
             R"({"type":"scrub","frame":18446744073709551615})",
             R"({"type":"scrub","frame":[2]})",
             R"({"type":"path"})",
             R"({"type":"path","show":"yes"})",
             R"({"type":"path","show":1})",
         })
        send(message);
    stepNow();
    EXPECT_EQ((Json{{"frames", 11}, {"running", false}, {"frame", nullptr}, {"path", false}}),
              flight());
    EXPECT_EQ(view, host().frames().active()->view());
}

}  // namespace
