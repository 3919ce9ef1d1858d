// vexpath picture and sheet: the camera path of a flight from the add-on's own views, the view
// that shows all of it, the key frames' pictures with their captions, and the PNG files.
#include "PathPicture.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>

#include "ContactSheet.h"
#include "PathFixture.h"
#include "vexhost/DataSet.h"
#include "vexhost/Frame.h"
#include "vexhost/FrameStack.h"
#include "vexhost/PngReader.h"
#include "vexhost/View3D.h"

namespace {

using vexplot::path::ContactSheet;
using vexplot::path::FlightHost;
using vexplot::path::PathPicture;
using vextest::keyFrame;
using vextest::KeyFrame_s;

// Three legs round the origin, the third a cut.
std::vector<KeyFrame_s> threeLegs() {
    return {keyFrame("South", {0, -10, 6, 60, 0, 0, 8}, 4),
            keyFrame("East", {10, 0, 6, 60, 90, 0, 8}, 3),
            keyFrame("North", {0, 10, 6, 60, 180, 0, 6}, 1),
            keyFrame("Close", {0, 8, 4, 60, 180, 0, 3}, 1)};
}

// Pixels near the path's amber (255, 199, 51).
int amberPixels(const vexhost::Image& image) {
    int n = 0;
    for (std::size_t i = 0; i + 2 < image.rgb.size(); i += 3) {
        n += image.rgb[i] > 215 && std::abs(image.rgb[i + 1] - 199) < 40 && image.rgb[i + 2] < 110
                 ? 1
                 : 0;
    }
    return n;
}

int whitePixels(const vexhost::Image& image, int left, int top, int right, int bottom) {
    int n = 0;
    for (int y = top; y < bottom; ++y) {
        for (int x = left; x < right; ++x) {
            const uint8_t* p = &image.rgb[(static_cast<std::size_t>(y) * image.width + x) * 3];
            n += p[0] > 200 && p[1] > 200 && p[2] > 200 ? 1 : 0;
        }
    }
    return n;
}

class PathPictureTest : public vextest::PathFixture {};

TEST_F(PathPictureTest, TheCameraPathIsTheViewerAtEveryFrameWithTheKeyFramesNamed) {
    const auto flight = fly(writeFlight("legs.keyframe", threeLegs()));
    const vexhost::CameraPath path = PathPicture::cameraPath(flight);
    ASSERT_EQ(flight.views().size(), path.frameCount());
    for (std::size_t f = 0; f < flight.views().size(); ++f) {
        EXPECT_EQ(flight.views()[f].X, path.positions[3 * f]) << f;
        EXPECT_EQ(flight.views()[f].Y, path.positions[3 * f + 1]) << f;
        EXPECT_EQ(flight.views()[f].Z, path.positions[3 * f + 2]) << f;
    }
    ASSERT_EQ(4u, path.keyFrames.size());
    const std::size_t frames[] = {0, 4, 7, 8};
    const char* names[] = {"South", "East", "North", "Close"};
    for (std::size_t k = 0; k < 4; ++k) {
        EXPECT_EQ(frames[k], path.keyFrames[k].frame) << k;
        EXPECT_EQ(names[k], path.keyFrames[k].name) << k;
    }
}

TEST_F(PathPictureTest, CaptionsNameEachKeyFrameAndItsFrames) {
    const auto flight = fly(writeFlight("legs.keyframe", threeLegs()));
    EXPECT_EQ((std::vector<std::string>{"South", "frames 0-3"}),
              PathPicture::keyFrameCaption(flight, 0));
    EXPECT_EQ((std::vector<std::string>{"East", "frames 4-6"}),
              PathPicture::keyFrameCaption(flight, 1));
    EXPECT_EQ((std::vector<std::string>{"North", "frame 7"}),
              PathPicture::keyFrameCaption(flight, 2));  // a cut
    EXPECT_EQ((std::vector<std::string>{"Close", "frame 8"}),
              PathPicture::keyFrameCaption(flight, 3));  // the last
}

TEST_F(PathPictureTest, TheOverviewSeesTheDataAndTheWholePathAndLeavesTheViewAlone) {
    scene = vexplot::app::RunOptions();  // the demo
    const FlightHost host(scene, VEX_ADDON_LIBRARY_PATH);
    const auto flight = host.fly(writeFlight("legs.keyframe", threeLegs()));
    const vexhost::View3D before = host.view();
    const vexhost::SceneState overview = PathPicture::overview(host.host(), flight);
    EXPECT_EQ(before, host.view());
    ASSERT_TRUE(overview.cameraPath);
    EXPECT_FALSE(overview.zones.empty());

    // Every point of the path and every corner of the data lie inside the picture: across the
    // view and up it, within half the width (and half the height, in the frame's shape).
    const vexhost::CameraState& c = overview.camera;
    EXPECT_EQ(before.psi(), c.psi);
    EXPECT_EQ(before.theta(), c.theta);
    const vexhost::View3D::Matrix r = vexhost::View3D::orientation(c.psi, c.theta, c.alpha);
    const std::pair<int, int> size(800, 600);
    const double halfWidth = c.viewWidth / 2;
    const double halfHeight = halfWidth * size.second / size.first;
    std::vector<std::array<double, 3>> points;
    for (std::size_t i = 0; i < overview.cameraPath->positions.size(); i += 3)
        points.push_back({overview.cameraPath->positions[i], overview.cameraPath->positions[i + 1],
                          overview.cameraPath->positions[i + 2]});
    for (int corner = 0; corner < 8; ++corner)
        points.push_back({(corner & 1) ? overview.boundsMax[0] : overview.boundsMin[0],
                          (corner & 2) ? overview.boundsMax[1] : overview.boundsMin[1],
                          (corner & 4) ? overview.boundsMax[2] : overview.boundsMin[2]});
    for (const auto& p : points) {
        double across = 0, up = 0;
        for (int k = 0; k < 3; ++k) {
            across += (p[k] - c.position[k]) * r[3 * k];  // R's first column
            up += (p[k] - c.position[k]) * r[3 * k + 1];  // R's second column
        }
        EXPECT_LE(std::abs(across), halfWidth) << p[0] << ", " << p[1] << ", " << p[2];
        EXPECT_LE(std::abs(up), halfHeight) << p[0] << ", " << p[1] << ", " << p[2];
    }
}

TEST_F(PathPictureTest, AKeyFramesSceneHasItsViewItsFramesTimeAndItsCaption) {
    scene = vexplot::app::RunOptions();
    const FlightHost host(scene, VEX_ADDON_LIBRARY_PATH);
    const auto flight = host.fly(writeFlight("legs.keyframe", threeLegs()));
    host.host().dataSet().setSolutionTime(7.5);
    const vexhost::SceneState s = PathPicture::keyFrameScene(host.host(), flight, 1);
    EXPECT_EQ(10, s.camera.position[0]);
    EXPECT_EQ(90, s.camera.theta);
    EXPECT_EQ(8, s.camera.viewWidth);
    EXPECT_EQ(flight.solutionTimes()[4], s.solutionTime);
    EXPECT_EQ(7.5, host.host().dataSet().solutionTime());
    EXPECT_EQ((std::vector<std::string>{"East", "frames 4-6"}), s.caption);
    EXPECT_FALSE(s.cameraPath);
}

TEST_F(PathPictureTest, PictureWritesAPngOfTheFramesSizeWithThePathInIt) {
    const std::string file = writeFlight("legs.keyframe", threeLegs());
    const std::string out = directory.file("path.png");
    const Run run = runPath({"picture", file, "-o", out, "--data", "demo", "--size", "400x300"});
    ASSERT_EQ(0, run.exitStatus) << run.err;
    EXPECT_EQ(out + ": 4 key frames, 9 frames\n", run.out);
    const vexhost::Image picture = vexhost::readPng(out);
    EXPECT_EQ(400, picture.width);
    EXPECT_EQ(300, picture.height);
    EXPECT_GT(amberPixels(picture), 100);
    EXPECT_GT(whitePixels(picture, 0, 0, 400, 300), 50);  // the names (and the axis)
}

TEST_F(PathPictureTest, SheetWritesEachKeyFramesPictureCaptionedInAGrid) {
    const std::string file = writeFlight("legs.keyframe", threeLegs());
    const std::string out = directory.file("sheet.png");
    const Run run = runPath({"sheet", file, "-o", out, "--columns", "3", "--size", "400x300"});
    ASSERT_EQ(0, run.exitStatus) << run.err;
    EXPECT_EQ(out + ": 4 key frames\n", run.out);
    const vexhost::Image sheet = vexhost::readPng(out);
    const int gap = ContactSheet::Gap;
    EXPECT_EQ(3 * 200 + 4 * gap, sheet.width);
    EXPECT_EQ(2 * 150 + 3 * gap, sheet.height);
    for (int k = 0; k < 4; ++k) {
        const int left = gap + (k % 3) * (200 + gap);
        const int top = gap + (k / 3) * (150 + gap);
        EXPECT_GT(whitePixels(sheet, left, top, left + 100, top + 30), 20) << "caption " << k;
    }
    // The fifth and sixth places of the grid stay empty.
    EXPECT_EQ(0, whitePixels(sheet, gap + 200 + gap, gap + 150 + gap, sheet.width, sheet.height));
}

TEST_F(PathPictureTest, AFileTheAddOnCannotReadOrAPictureThatCannotBeWrittenFails) {
    const std::string bad = directory.file("bad.keyframe");
    std::ofstream(bad) << "#!Keyframes 1\n";
    const Run unreadable = runPath({"picture", bad, "-o", directory.file("x.png")});
    EXPECT_EQ(2, unreadable.exitStatus);
    EXPECT_EQ("vexpath: " + bad + ": Key Frame Animation error:\nInvalid file header.\n",
              unreadable.err);
    EXPECT_FALSE(std::filesystem::exists(directory.file("x.png")));

    const std::string file = writeFlight("legs.keyframe", threeLegs());
    const Run unwritable = runPath({"sheet", file, "-o", directory.file("no/such/dir/x.png")});
    EXPECT_EQ(1, unwritable.exitStatus);
    EXPECT_EQ(0u, unwritable.err.find("vexpath: ")) << unwritable.err;
    EXPECT_NE(std::string::npos, unwritable.err.find("no/such/dir/x.png")) << unwritable.err;
}

TEST(ContactSheetTest, PlacesPicturesInRowsWithGapsAndRefusesMismatches) {
    vexhost::Image a{2, 1, {255, 0, 0, 255, 0, 0}};
    vexhost::Image b{2, 1, {0, 255, 0, 0, 255, 0}};
    const vexhost::Image sheet = ContactSheet::compose({a, b, a}, 2);
    const int gap = ContactSheet::Gap;
    ASSERT_EQ(2 * 2 + 3 * gap, sheet.width);
    ASSERT_EQ(2 * 1 + 3 * gap, sheet.height);
    const auto at = [&](int x, int y) {
        return &sheet.rgb[(static_cast<std::size_t>(y) * sheet.width + x) * 3];
    };
    EXPECT_EQ(255, at(gap, gap)[0]);                     // a, first row
    EXPECT_EQ(255, at(gap + 2 + gap, gap)[1]);           // b beside it
    EXPECT_EQ(255, at(gap, gap + 1 + gap)[0]);           // a, second row
    EXPECT_EQ(12, at(gap + 2 + gap, gap + 1 + gap)[0]);  // the empty place: background
    EXPECT_THROW(ContactSheet::compose({}, 2), std::invalid_argument);
    EXPECT_THROW(ContactSheet::compose({a}, 0), std::invalid_argument);
    vexhost::Image tall{2, 2, std::vector<uint8_t>(12, 0)};
    EXPECT_THROW(ContactSheet::compose({a, tall}, 2), std::invalid_argument);
}

}  // namespace
