// Key frame files flown by the key frame add-on loaded into the host as a plug-in: every frame's
// view as the host drew it, the key frames at their frames, the add-on's own messages.
#include "FlightViews.h"

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "support/HostFixture.h"
#include "support/KeyFrameData.h"
#include "support/TemporaryDirectory.h"
#include "vexhost/AddOnLibrary.h"
#include "vexhost/Drawing.h"
#include "vexhost/Frame.h"
#include "vexhost/DataSet.h"
#include "vexhost/FrameTrace.h"
#include "vexhost/MacroError.h"

namespace {

using vexplot::flight::FlightViews;
using vextest::keyFrame;
using vextest::KeyFrame_s;
using vextest::KeyFrameView_s;

class FlightViewsTest : public vextest::HostFixture {
protected:
    void SetUp() override {
        HostFixture::SetUp();
        addOn_ = vexhost::AddOnLibrary::load(VEX_ADDON_LIBRARY_PATH);
        frame_ = &createFrame3D();
        frame_->view().setRotateOrigin({1, 2, 3});
    }

    std::string write(const std::vector<KeyFrame_s>& keyFrames) const {
        const std::string path = directory_.file("flight.keyframe");
        vextest::writeSettingsFile(path, keyFrames, vextest::animationSettings(0));
        return path;
    }

    vexhost::Frame* frame_ = nullptr;
    vextest::TemporaryDirectory directory_{"flight-views-test"};

private:
    std::unique_ptr<vexhost::AddOnLibrary> addOn_;
};

// Theta alone turns on the first leg: the viewer goes round the rotation origin (1, 2, 3) at 10
// units, 5 above it. The second leg moves and zooms.
std::vector<KeyFrame_s> twoLegs() {
    return {keyFrame("A", {11, 2, 8, 60, 90, 0, 10}, 4),
            keyFrame("B", {1, 12, 8, 60, 180, 0, 10}, 3),
            keyFrame("C", {1, 12, 5, 60, 180, 0, 5}, 1)};
}

TEST_F(FlightViewsTest, GivesTheViewOfEveryFrameWithEachKeyFrameAtItsFrame) {
    const FlightViews flight = FlightViews::fly(host(), write(twoLegs()));
    ASSERT_EQ(8u, flight.views().size());
    EXPECT_EQ((std::vector<uint64_t>{0, 4, 7}), flight.keyFrameFrames());
    EXPECT_EQ(2u, flight.legCount());
    for (std::size_t k = 0; k < 3; ++k)
        EXPECT_EQ(twoLegs()[k].view, flight.views()[flight.keyFrameFrames()[k]]) << k;
    EXPECT_EQ(twoLegs(), flight.keyFrames());
    EXPECT_EQ((vexhost::View3D::Vector{1, 2, 3}), flight.rotateOrigin());
}

TEST_F(FlightViewsTest, GivesTheSolutionTimeOfEveryFrame) {
    host().dataSet().setSolutionTime(2.5);
    const FlightViews flight = FlightViews::fly(host(), write(twoLegs()));
    // Time is not animated here: every frame shows the host's time.
    EXPECT_EQ(std::vector<double>(8, 2.5), flight.solutionTimes());
}

TEST_F(FlightViewsTest, AViewBetweenKeyFramesIsOnTheArcAboutTheRotationOrigin) {
    const FlightViews flight = FlightViews::fly(host(), write(twoLegs()));
    for (uint64_t frame = 1; frame < 4; ++frame) {
        const KeyFrameView_s& view = flight.views()[frame];
        EXPECT_NEAR(10, std::hypot(view.X - 1, view.Y - 2), 1e-9) << frame;
        EXPECT_NEAR(90 + 22.5 * frame, view.Theta, 1e-9) << frame;
    }
}

TEST_F(FlightViewsTest, PutsTheFramesViewBackAndClosesItsTrace) {
    const vexhost::View3D before = frame_->view();
    FlightViews::fly(host(), write(twoLegs()));
    EXPECT_EQ(before, frame_->view());
    EXPECT_FALSE(host().trace().isOpen());
    EXPECT_EQ(8u, host().drawing().drawnFrames());
}

TEST_F(FlightViewsTest, AFileTheAddOnCannotReadFailsWithTheAddOnsMessage) {
    const std::string path = directory_.file("bad.keyframe");
    std::ofstream(path) << "#!Keyframes 1\n";
    try {
        FlightViews::fly(host(), path);
        FAIL() << "no error";
    } catch (const vexhost::MacroError& error) {
        EXPECT_STREQ("Key Frame Animation error:\nInvalid file header.", error.what());
    }
}

TEST_F(FlightViewsTest, AFileTheAddOnCannotAnimateFailsWithTheAddOnsMessage) {
    const std::string path = write({twoLegs().front()});
    try {
        FlightViews::fly(host(), path);
        FAIL() << "no error";
    } catch (const vexhost::MacroError& error) {
        EXPECT_STREQ(
            "Key Frame Animation error:\n"
            "At least two keyFrame views must be established to perform an animation.",
            error.what());
    }
    EXPECT_FALSE(host().trace().isOpen());
}

TEST_F(FlightViewsTest, OpenReadsASingleViewWithoutAnimating) {
    const FlightViews file = FlightViews::open(host(), write({twoLegs().front()}));
    EXPECT_EQ(std::vector<KeyFrame_s>{twoLegs().front()}, file.keyFrames());
    EXPECT_EQ(0u, file.legCount());
    EXPECT_TRUE(file.views().empty());
    EXPECT_EQ(0u, host().drawing().drawnFrames());
}

TEST_F(FlightViewsTest, AFileNameWithADoubleQuoteCannotBeHandedToTheAddOn) {
    EXPECT_THROW(FlightViews::fly(host(), directory_.file("a\"b.keyframe")), std::invalid_argument);
}

TEST_F(FlightViewsTest, ATraceAlreadyOpenIsLeftAlone) {
    host().trace().open(directory_.file("mine.jsonl"));
    EXPECT_THROW(FlightViews::fly(host(), write(twoLegs())), std::logic_error);
    EXPECT_TRUE(host().trace().isOpen());
    host().trace().close();
}

}  // namespace
