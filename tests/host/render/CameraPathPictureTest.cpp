// A camera path drawn over a scene: the line in its colour, an arrowhead per leg pointing the way
// of flight, the key frames marked and named.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <memory>

#include "vexhost/EglRenderer.h"

namespace vexhost {
namespace {

constexpr int kWidth = 200;
constexpr int kHeight = 200;
// The renderer's colours for a path (amber) and its key frames (orange), in 0..255.
constexpr int kPath[3] = {255, 199, 51};
constexpr int kKeyFrame[3] = {255, 128, 26};

// From straight above the origin, 4 data units wide: x runs left to right, y bottom to top, one
// data unit is 50 pixels. Nothing but the path: no zones, no axis, full light.
SceneState emptySceneFromAbove() {
    SceneState scene;
    scene.camera.position[2] = 10;
    scene.camera.viewWidth = 4;
    scene.axisShow = false;
    scene.lightIntensity = 100;
    scene.backgroundLight = 0;
    for (int k = 0; k < 3; ++k) {
        scene.boundsMin[k] = -1;
        scene.boundsMax[k] = 1;
    }
    return scene;
}

// A path along y = 0 from x = from to x = to at height 1, frames evenly spaced, key frames at
// both ends and in the middle.
std::shared_ptr<CameraPath> straightPath(double from, double to, int frames = 21) {
    auto path = std::make_shared<CameraPath>();
    for (int f = 0; f < frames; ++f) {
        path->positions.insert(path->positions.end(),
                               {from + (to - from) * f / (frames - 1), 0.0, 1.0});
    }
    path->keyFrames = {{0, "Start"},
                       {static_cast<std::size_t>(frames / 2), "Middle"},
                       {static_cast<std::size_t>(frames - 1), "End"}};
    return path;
}

int pixelX(double x) {
    return static_cast<int>(std::lround(100 + 50 * x));
}

bool near(const Image& image, int x, int y, const int colour[3], int tolerance = 40) {
    const uint8_t* p = &image.rgb[(static_cast<std::size_t>(y) * image.width + x) * 3];
    return std::abs(p[0] - colour[0]) <= tolerance && std::abs(p[1] - colour[1]) <= tolerance &&
           std::abs(p[2] - colour[2]) <= tolerance;
}

// Pixels of the colour in the rectangle, corners included.
int count(const Image& image, int left, int top, int right, int bottom, const int colour[3]) {
    int n = 0;
    for (int y = top; y <= bottom; ++y) {
        for (int x = left; x <= right; ++x) {
            n += near(image, x, y, colour) ? 1 : 0;
        }
    }
    return n;
}

bool isWhite(const uint8_t* p) {
    return p[0] > 200 && p[1] > 200 && p[2] > 200;
}

class CameraPathPictureTest : public ::testing::Test {
protected:
    void SetUp() override {
        try {
            renderer_ = EglRenderer::create();
        } catch (const std::exception& e) {
            FAIL() << "The renderer cannot start: " << e.what();
        }
    }
    Image render(const SceneState& scene) { return renderer_->render(scene, kWidth, kHeight, 1); }

    std::unique_ptr<EglRenderer> renderer_;
};

TEST_F(CameraPathPictureTest, WithoutAPathNothingIsDrawn) {
    const Image picture = render(emptySceneFromAbove());
    EXPECT_EQ(count(picture, 0, 0, kWidth - 1, kHeight - 1, kPath), 0);
}

TEST_F(CameraPathPictureTest, ThePathIsALineInItsColour) {
    SceneState scene = emptySceneFromAbove();
    scene.cameraPath = straightPath(-1.5, 1.5);
    const Image picture = render(scene);
    // Along the line, away from the marks and the arrow: every column has the path's colour.
    for (double x : {-1.2, -0.9, 0.6, 1.2}) {
        EXPECT_GT(count(picture, pixelX(x), 98, pixelX(x), 102, kPath), 0) << "at x = " << x;
    }
    // Nothing of it far from the line.
    EXPECT_EQ(count(picture, 0, 0, kWidth - 1, 80, kPath), 0);
    EXPECT_EQ(count(picture, 0, 120, kWidth - 1, kHeight - 1, kPath), 0);
}

TEST_F(CameraPathPictureTest, KeyFramesAreMarkedAndNamed) {
    SceneState scene = emptySceneFromAbove();
    scene.cameraPath = straightPath(-1.5, 1.5);
    const Image picture = render(scene);
    for (double x : {-1.5, 0.0, 1.5}) {
        EXPECT_TRUE(near(picture, pixelX(x), 100, kKeyFrame)) << "at x = " << x;
    }
    // Each name stands above and to the right of its mark.
    const auto whiteIn = [&](int left, int top, int right, int bottom) {
        int n = 0;
        for (int y = top; y <= bottom; ++y) {
            for (int x = left; x <= right; ++x) {
                n += isWhite(&picture.rgb[(static_cast<std::size_t>(y) * kWidth + x) * 3]) ? 1 : 0;
            }
        }
        return n;
    };
    EXPECT_GT(whiteIn(pixelX(-1.5), 70, pixelX(-1.5) + 40, 99), 5);
    EXPECT_EQ(whiteIn(0, 101, kWidth - 1, kHeight - 1), 0);

    scene.cameraPath = [] {
        auto unnamed = straightPath(-1.5, 1.5);
        for (CameraPath::KeyFrame& key : unnamed->keyFrames) {
            key.name.clear();
        }
        return unnamed;
    }();
    const Image withoutNames = render(scene);
    int white = 0;
    for (std::size_t i = 0; i + 2 < withoutNames.rgb.size(); i += 3) {
        white += isWhite(&withoutNames.rgb[i]) ? 1 : 0;
    }
    EXPECT_EQ(white, 0);
}

TEST_F(CameraPathPictureTest, ArrowheadsPointTheWayOfFlight) {
    // One arrow per leg, at its middle: legs from -1.5 to 0 and from 0 to 1.5, arrows at -0.75
    // and 0.75. An arrow's barbs stand behind its tip, off the line.
    const auto barbs = [&](const Image& picture, double tip, int side) {
        const int x = pixelX(tip);
        return count(picture, side < 0 ? x - 8 : x + 1, 92, side < 0 ? x - 1 : x + 8, 97, kPath) +
               count(picture, side < 0 ? x - 8 : x + 1, 103, side < 0 ? x - 1 : x + 8, 108, kPath);
    };
    SceneState scene = emptySceneFromAbove();
    scene.cameraPath = straightPath(-1.5, 1.5);
    const Image rightward = render(scene);
    scene.cameraPath = straightPath(1.5, -1.5);
    const Image leftward = render(scene);
    for (double tip : {-0.75, 0.75}) {
        EXPECT_GT(barbs(rightward, tip, -1), 2) << "at x = " << tip;
        EXPECT_EQ(barbs(rightward, tip, +1), 0) << "at x = " << tip;
        EXPECT_GT(barbs(leftward, tip, +1), 2) << "at x = " << tip;
        EXPECT_EQ(barbs(leftward, tip, -1), 0) << "at x = " << tip;
    }
}

TEST_F(CameraPathPictureTest, APathFarFromTheDataIsStillInsideTheDepthPlanes) {
    SceneState scene = emptySceneFromAbove();
    auto path = straightPath(-1.5, 1.5);
    for (std::size_t i = 2; i < path->positions.size(); i += 3) {
        path->positions[i] = 8;  // 7 units above the data's box, 2 below the viewer
    }
    scene.cameraPath = path;
    const Image picture = render(scene);
    EXPECT_GT(count(picture, pixelX(-1.2), 98, pixelX(-1.2), 102, kPath), 0);
}

TEST_F(CameraPathPictureTest, KeyFramesBeyondThePathAreLeftOut) {
    SceneState scene = emptySceneFromAbove();
    auto path = straightPath(-1.5, 1.5);
    path->keyFrames.push_back({1000, "Beyond"});
    scene.cameraPath = path;
    const Image withExtra = render(scene);
    scene.cameraPath = straightPath(-1.5, 1.5);
    const Image without = render(scene);
    EXPECT_EQ(withExtra.rgb, without.rgb);
}

TEST_F(CameraPathPictureTest, ACaptionStandsAtTheTopLeftOnADarkBand) {
    SceneState scene = emptySceneFromAbove();
    scene.cameraPath = straightPath(-1.5, 1.5);
    const Image plain = render(scene);
    scene.caption = {"North-east", "frames 30-59"};
    const Image captioned = render(scene);
    int white = 0;
    int changedElsewhere = 0;
    for (int y = 0; y < kHeight; ++y) {
        for (int x = 0; x < kWidth; ++x) {
            const std::size_t i = (static_cast<std::size_t>(y) * kWidth + x) * 3;
            const bool changed = plain.rgb[i] != captioned.rgb[i] ||
                                 plain.rgb[i + 1] != captioned.rgb[i + 1] ||
                                 plain.rgb[i + 2] != captioned.rgb[i + 2];
            if (x < kWidth / 2 && y < kHeight / 4) {
                white += isWhite(&captioned.rgb[i]) ? 1 : 0;
            } else {
                changedElsewhere += changed ? 1 : 0;
            }
        }
    }
    EXPECT_GT(white, 20);
    EXPECT_EQ(changedElsewhere, 0);
    // The band is darker than the background it covers.
    const uint8_t* corner = &captioned.rgb[(2 * kWidth + 2) * 3];
    const uint8_t* background = &plain.rgb[(2 * kWidth + 2) * 3];
    EXPECT_LT(corner[2], background[2]);
}

}  // namespace
}  // namespace vexhost
