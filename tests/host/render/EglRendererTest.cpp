// Pictures of the EGL renderer, at small sizes. The renderer must start wherever these tests run:
// a machine without a GPU has Mesa's software rasteriser, so a failure to start is a test failure.
#include "vexhost/EglRenderer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <memory>
#include <stdexcept>
#include <string>

#include "vexhost/ColourMap.h"
#include "vexhost/DemoDataSet.h"

namespace vexhost {
namespace {

constexpr int kWidth = 160;
constexpr int kHeight = 120;

// A camera at distance d from the origin with the given angles, looking at the origin: the viewer
// stands at d * R * z.
CameraState cameraLookingAtOrigin(double psi, double theta, double alpha, double distance,
                                  double viewWidth) {
    CameraState camera;
    camera.psi = psi;
    camera.theta = theta;
    camera.alpha = alpha;
    const double p = psi * M_PI / 180;
    const double t = theta * M_PI / 180;
    // R * z = Rz(theta) * Rx(psi) * z, and Rz(alpha) leaves z alone.
    camera.position[0] = distance * std::sin(t) * std::sin(p);
    camera.position[1] = -distance * std::cos(t) * std::sin(p);
    camera.position[2] = distance * std::cos(p);
    camera.viewWidth = viewWidth;
    return camera;
}

std::size_t countDifferentPixels(const Image& a, const Image& b) {
    std::size_t count = 0;
    for (std::size_t i = 0; i + 2 < a.rgb.size(); i += 3) {
        if (a.rgb[i] != b.rgb[i] || a.rgb[i + 1] != b.rgb[i + 1] || a.rgb[i + 2] != b.rgb[i + 2]) {
            ++count;
        }
    }
    return count;
}

const uint8_t* pixel(const Image& image, int x, int y) {
    return &image.rgb[(static_cast<std::size_t>(y) * image.width + x) * 3];
}

// A pixel region, corners included.
struct Region {
    int left, top, right, bottom;
};

std::size_t countDifferentPixelsIn(const Image& a, const Image& b, Region region) {
    std::size_t count = 0;
    for (int y = std::max(0, region.top); y <= std::min(a.height - 1, region.bottom); ++y) {
        for (int x = std::max(0, region.left); x <= std::min(a.width - 1, region.right); ++x) {
            const uint8_t* p = pixel(a, x, y);
            const uint8_t* q = pixel(b, x, y);
            count += p[0] != q[0] || p[1] != q[1] || p[2] != q[2] ? 1 : 0;
        }
    }
    return count;
}

// Whether some pixel of the region is within `tolerance` levels of the colour in every channel.
bool regionHasColour(const Image& image, Region region, const std::array<float, 3>& colour,
                     int tolerance) {
    for (int y = region.top; y <= region.bottom; ++y) {
        for (int x = region.left; x <= region.right; ++x) {
            const uint8_t* p = pixel(image, x, y);
            bool near = true;
            for (int c = 0; c < 3; ++c) {
                near = near && std::abs(p[c] - std::lround(255 * colour[c])) <= tolerance;
            }
            if (near) {
                return true;
            }
        }
    }
    return false;
}

// One square of 2 x 2 data units in the plane z = 0, facing +z, with one scalar everywhere and no
// normals (the renderer computes them).
std::shared_ptr<const ZoneGeometry> flatSquare(float scalar) {
    auto g = std::make_shared<ZoneGeometry>();
    g->positions = {-1, -1, 0, 1, -1, 0, 1, 1, 0, -1, 1, 0};
    g->triangles = {0, 1, 2, 0, 2, 3};
    g->scalars = {scalar, scalar, scalar, scalar};
    return g;
}

class EglRendererTest : public ::testing::Test {
protected:
    void SetUp() override {
        try {
            renderer_ = EglRenderer::create();
        } catch (const std::exception& e) {
            FAIL() << "The renderer cannot start: " << e.what();
        }
    }

    // The demo surface from above at an angle, with streamtraces and the axis.
    SceneState demoScene(std::size_t zone = 0) const {
        SceneState scene;
        scene.camera = cameraLookingAtOrigin(60, -30, 0, 5, 3.2);
        scene.zones = {demo_.zones.at(zone).geometry};
        scene.streamtraces = demo_.streamtraces;
        scene.deltaTime = 0.1;
        scene.scalarMin = demo_.scalarMin;
        scene.scalarMax = demo_.scalarMax;
        for (int k = 0; k < 3; ++k) {
            scene.boundsMin[k] = demo_.boundsMin[k];
            scene.boundsMax[k] = demo_.boundsMax[k];
        }
        return scene;
    }

    // A flat square seen straight from above, filling the middle of the picture, lit only by the
    // light source at full strength.
    SceneState squareScene(float scalar) const {
        SceneState scene;
        scene.camera = cameraLookingAtOrigin(0, 0, 0, 5, 4);
        scene.zones = {flatSquare(scalar)};
        scene.lightIntensity = 100;
        scene.backgroundLight = 0;
        scene.axisShow = false;
        scene.scalarMin = 0;
        scene.scalarMax = 1;
        scene.boundsMin[0] = scene.boundsMin[1] = -1;
        scene.boundsMax[0] = scene.boundsMax[1] = 1;
        scene.boundsMin[2] = scene.boundsMax[2] = 0;
        return scene;
    }

    Image render(const SceneState& scene, int supersample = 1) {
        return renderer_->render(scene, kWidth, kHeight, supersample);
    }

    // The message of the std::invalid_argument that drawing the geometry throws; empty if none.
    std::string refusalOf(const std::shared_ptr<const ZoneGeometry>& geometry) {
        SceneState scene = squareScene(1);
        scene.zones = {geometry};
        try {
            render(scene);
        } catch (const std::invalid_argument& e) {
            return e.what();
        }
        return "";
    }

    DemoDataSet demo_ = DemoDataSet::build(DemoDataSet::Options{4000, 6, 1.0, 4});
    std::unique_ptr<EglRenderer> renderer_;
};

TEST_F(EglRendererTest, DescribesTheOpenGlItUses) {
    EXPECT_NE(renderer_->description().find("OpenGL"), std::string::npos)
        << renderer_->description();
}

TEST_F(EglRendererTest, PictureHasTheRequestedSize) {
    const Image image = render(demoScene());
    EXPECT_EQ(image.width, kWidth);
    EXPECT_EQ(image.height, kHeight);
    EXPECT_EQ(image.rgb.size(), static_cast<std::size_t>(kWidth) * kHeight * 3);
}

TEST_F(EglRendererTest, NoLightAndNoBackgroundLightGiveAnAllBlackPicture) {
    SceneState scene = demoScene();
    scene.lightIntensity = 0;
    scene.backgroundLight = 0;
    scene.showMarkers = true;  // markers, streamtraces, the axis and its labels go dark as well
    scene.colourVariable = "Pressure";  // and the legend
    const Image image = render(scene);
    for (std::size_t i = 0; i < image.rgb.size(); ++i) {
        ASSERT_EQ(image.rgb[i], 0) << "byte " << i;
    }
}

TEST_F(EglRendererTest, LightingThatIsNotANumberCountsAsNoLight) {
    SceneState scene = demoScene();
    scene.lightIntensity = std::numeric_limits<double>::quiet_NaN();
    scene.backgroundLight = std::numeric_limits<double>::quiet_NaN();
    const Image image = render(scene);
    for (std::size_t i = 0; i < image.rgb.size(); ++i) {
        ASSERT_EQ(image.rgb[i], 0) << "byte " << i;
    }
}

TEST_F(EglRendererTest, DefaultLightingShowsTheSurfaceOnADarkBackground) {
    const Image image = render(demoScene());
    const uint8_t* corner = pixel(image, 0, 0);
    EXPECT_GT(corner[0] + corner[1] + corner[2], 0);
    EXPECT_LT(corner[0] + corner[1] + corner[2], 3 * 64);
    const uint8_t* middle = pixel(image, kWidth / 2, kHeight / 2);
    EXPECT_GT(middle[0] + middle[1] + middle[2], 3 * 64);
}

TEST_F(EglRendererTest, BackgroundDimsWithTheLighting) {
    SceneState scene = demoScene();
    const Image bright = render(scene);
    scene.lightIntensity /= 2;
    scene.backgroundLight /= 2;
    const Image dim = render(scene);
    const uint8_t* a = pixel(bright, 0, 0);
    const uint8_t* b = pixel(dim, 0, 0);
    EXPECT_LT(b[0] + b[1] + b[2], a[0] + a[1] + a[2]);
    EXPECT_GT(b[0] + b[1] + b[2], 0);
}

TEST_F(EglRendererTest, ScalarMinimumIsBlueAndMaximumIsRed) {
    const Image low = render(squareScene(0));
    const Image high = render(squareScene(1));
    const Image middle = render(squareScene(0.5f));
    const uint8_t* p = pixel(low, kWidth / 2, kHeight / 2);
    EXPECT_EQ(p[0], 0);
    EXPECT_EQ(p[1], 0);
    EXPECT_EQ(p[2], 255);
    p = pixel(high, kWidth / 2, kHeight / 2);
    EXPECT_EQ(p[0], 255);
    EXPECT_EQ(p[1], 0);
    EXPECT_EQ(p[2], 0);
    p = pixel(middle, kWidth / 2, kHeight / 2);
    EXPECT_EQ(p[0], 0);
    EXPECT_EQ(p[1], 255);
    EXPECT_EQ(p[2], 0);
}

TEST_F(EglRendererTest, ScalarsOutsideTheRangeTakeTheEndColours) {
    const Image belowImage = render(squareScene(-5));
    const uint8_t* below = pixel(belowImage, kWidth / 2, kHeight / 2);
    EXPECT_EQ(below[2], 255);
    EXPECT_EQ(below[0], 0);
    const Image aboveImage = render(squareScene(7));
    const uint8_t* above = pixel(aboveImage, kWidth / 2, kHeight / 2);
    EXPECT_EQ(above[0], 255);
    EXPECT_EQ(above[2], 0);
}

TEST_F(EglRendererTest, SurfaceBrightnessFollowsLightIntensity) {
    SceneState scene = squareScene(1);
    scene.lightIntensity = 50;
    const Image halfImage = render(scene);
    const uint8_t* half = pixel(halfImage, kWidth / 2, kHeight / 2);
    EXPECT_NEAR(half[0], 128, 1);
    scene.lightIntensity = 0;
    scene.backgroundLight = 25;
    const Image ambientImage = render(scene);
    const uint8_t* ambient = pixel(ambientImage, kWidth / 2, kHeight / 2);
    EXPECT_NEAR(ambient[0], 64, 1);
}

TEST_F(EglRendererTest, AxisLeavesTheInsideOfTheBoxAlone) {
    // Seen straight from above, the box [-1, 1] x [-1, 1] projects to a rectangle and the axis
    // lines run along its left and bottom edges; ticks and labels stand outside it.
    SceneState scene = demoScene();
    scene.streamtraces.clear();
    scene.camera = cameraLookingAtOrigin(0, 0, 0, 5, 3);
    scene.axisShow = false;
    const Image without = render(scene);
    scene.axisShow = true;
    const Image with = render(scene);

    const double pixelSize = 3.0 / kWidth;
    std::size_t onBox = 0;
    for (int y = 0; y < kHeight; ++y) {
        for (int x = 0; x < kWidth; ++x) {
            const uint8_t* a = pixel(without, x, y);
            const uint8_t* b = pixel(with, x, y);
            if (a[0] == b[0] && a[1] == b[1] && a[2] == b[2]) {
                continue;
            }
            const double dataX = (x + 0.5 - kWidth / 2.0) * pixelSize;
            const double dataY = (kHeight / 2.0 - y - 0.5) * pixelSize;
            const double inside = 1 - std::max(std::fabs(dataX), std::fabs(dataY));
            EXPECT_LE(inside, 1.5 * pixelSize) << "pixel " << x << ", " << y;
            onBox += std::fabs(inside) <= 1.5 * pixelSize ? 1 : 0;
        }
    }
    // Four edges of about 107 pixels each.
    EXPECT_GT(onBox, 300u);
}

TEST_F(EglRendererTest, DifferentCamerasGiveDifferentPictures) {
    SceneState scene = demoScene();
    const Image first = render(scene);
    scene.camera = cameraLookingAtOrigin(45, 120, 10, 5, 3.2);
    const Image second = render(scene);
    EXPECT_GT(countDifferentPixels(first, second), first.rgb.size() / 3 / 10);
}

TEST_F(EglRendererTest, PerspectiveDiffersFromOrthographic) {
    SceneState scene = demoScene();
    const Image orthographic = render(scene);
    scene.camera.perspective = true;
    scene.camera.fieldOfView = 35;
    const Image perspective = render(scene);
    EXPECT_GT(countDifferentPixels(orthographic, perspective), 100u);
}

TEST_F(EglRendererTest, ViewWidthZoomsTheOrthographicPicture) {
    SceneState scene = squareScene(1);
    scene.camera.viewWidth = 4;  // the square covers half the width
    const Image wide = render(scene);
    scene.camera.viewWidth = 1;  // the square covers everything
    const Image narrow = render(scene);
    // Near the left edge: background in the wide view, the red square in the narrow one.
    EXPECT_EQ(pixel(wide, 5, kHeight / 2)[0], pixel(wide, 0, 0)[0]);
    EXPECT_LT(pixel(wide, 5, kHeight / 2)[0], 64);
    EXPECT_EQ(pixel(narrow, 5, kHeight / 2)[0], 255);
    EXPECT_EQ(pixel(narrow, 5, kHeight / 2)[2], 0);
}

TEST_F(EglRendererTest, SameSceneTwiceGivesIdenticalPixels) {
    const SceneState scene = demoScene();
    const Image first = render(scene);
    render(demoScene(3));  // something else in between
    const Image second = render(scene);
    EXPECT_EQ(first.rgb, second.rgb);
}

TEST_F(EglRendererTest, TwoRenderersDrawTheSamePixels) {
    const SceneState scene = demoScene();
    const Image first = render(scene);
    std::unique_ptr<EglRenderer> other = EglRenderer::create();
    EXPECT_EQ(other->render(scene, kWidth, kHeight, 1).rgb, first.rgb);
    EXPECT_EQ(render(scene).rgb, first.rgb);  // the first renderer still works
}

TEST_F(EglRendererTest, ZoneOfAnotherSolutionTimeGivesOtherColours) {
    const Image first = render(demoScene(0));
    const Image last = render(demoScene(5));
    EXPECT_GT(countDifferentPixels(first, last), first.rgb.size() / 3 / 10);
}

TEST_F(EglRendererTest, MarkersChangeThePicture) {
    SceneState scene = demoScene();
    const Image plain = render(scene);
    scene.showMarkers = true;
    const Image marked = render(scene);
    EXPECT_GT(countDifferentPixels(plain, marked), 20u);
}

TEST_F(EglRendererTest, MarkersMoveWithTheTimeAnchor) {
    SceneState scene = demoScene();
    scene.showMarkers = true;
    const Image before = render(scene);
    scene.timeAnchor = 0.05;
    const Image after = render(scene);
    EXPECT_GT(countDifferentPixels(before, after), 20u);
    scene.timeAnchor = 0.1;  // one whole delta time later the markers stand where they stood
    const Image cycled = render(scene);
    EXPECT_LT(countDifferentPixels(before, cycled), countDifferentPixels(before, after) / 4);
}

TEST_F(EglRendererTest, DashesLeaveGapsInTheStreamtraces) {
    SceneState scene = demoScene();
    const Image lines = render(scene);
    scene.showDashes = true;
    const Image dashes = render(scene);
    EXPECT_GT(countDifferentPixels(lines, dashes), 20u);
}

TEST_F(EglRendererTest, SupersamplingKeepsTheSizeAndSmoothsEdges) {
    const SceneState scene = demoScene();
    const Image plain = render(scene, 1);
    const Image smooth = render(scene, 3);
    EXPECT_EQ(smooth.width, kWidth);
    EXPECT_EQ(smooth.height, kHeight);
    EXPECT_EQ(smooth.rgb.size(), plain.rgb.size());
    const std::size_t different = countDifferentPixels(plain, smooth);
    EXPECT_GT(different, 0u);
    // Edges change, the inside of the surface hardly does.
    double meanDifference = 0;
    for (std::size_t i = 0; i < plain.rgb.size(); ++i) {
        meanDifference += std::abs(plain.rgb[i] - smooth.rgb[i]);
    }
    EXPECT_LT(meanDifference / plain.rgb.size(), 8.0);
}

TEST_F(EglRendererTest, SupersampleFactorTooLargeForTheRendererIsLowered) {
    const Image image = renderer_->render(squareScene(1), 3000, 2, 16);
    EXPECT_EQ(image.width, 3000);
    EXPECT_EQ(image.height, 2);
}

TEST_F(EglRendererTest, PictureLargerThanTheRendererCanDrawIsRefusedWithTheLimit) {
    try {
        renderer_->render(squareScene(1), 1000000, 2, 1);
        FAIL() << "no exception";
    } catch (const std::runtime_error& e) {
        EXPECT_NE(std::string(e.what()).find("1000000 x 2 pixels is larger than the renderer's "
                                             "limit"),
                  std::string::npos)
            << e.what();
    }
}

TEST_F(EglRendererTest, EmptySizeOrSupersampleIsAProgrammingError) {
    EXPECT_THROW(renderer_->render(squareScene(1), 0, 10, 1), std::invalid_argument);
    EXPECT_THROW(renderer_->render(squareScene(1), 10, -1, 1), std::invalid_argument);
    EXPECT_THROW(renderer_->render(squareScene(1), 10, 10, 0), std::invalid_argument);
}

TEST_F(EglRendererTest, GeometryWithAVertexIndexOutOfRangeIsRefused) {
    auto g = std::make_shared<ZoneGeometry>(*flatSquare(1));
    g->triangles.back() = 4;
    EXPECT_NE(refusalOf(g).find("refers to vertex 4 of 4"), std::string::npos) << refusalOf(g);
}

TEST_F(EglRendererTest, GeometryWithScalarsForSomeVerticesOnlyIsRefused) {
    auto g = std::make_shared<ZoneGeometry>(*flatSquare(1));
    g->scalars.pop_back();
    EXPECT_NE(refusalOf(g).find("has 3 scalars for 4 vertices"), std::string::npos) << refusalOf(g);
}

TEST_F(EglRendererTest, StreamtraceWithTimesNotMatchingItsPointsIsRefused) {
    auto trace = std::make_shared<Streamtrace>();
    trace->points = {0, 0, 0, 1, 1, 1};
    trace->times = {0};
    SceneState scene = squareScene(1);
    scene.streamtraces = {trace};
    EXPECT_THROW(render(scene), std::invalid_argument);
}

TEST_F(EglRendererTest, CameraThatIsNotANumberShowsOnlyTheBackground) {
    SceneState scene = demoScene();
    scene.camera.position[0] = std::numeric_limits<double>::infinity();
    const Image image = render(scene);
    const uint8_t* corner = pixel(image, 0, 0);
    for (int y = 0; y < kHeight; ++y) {
        for (int x = 0; x < kWidth; ++x) {
            const uint8_t* p = pixel(image, x, y);
            ASSERT_TRUE(p[0] == corner[0] && p[1] == corner[1] && p[2] == corner[2])
                << "pixel " << x << ", " << y;
        }
    }
}

TEST_F(EglRendererTest, GeometryReleasedAndReplacedIsDrawnAfresh) {
    // A new geometry may come to live at the address of a released one; the picture must show the
    // new one, not buffers kept for the old.
    for (int round = 0; round < 4; ++round) {
        const float scalar = round % 2 == 0 ? 0.0f : 1.0f;
        const Image image = render(squareScene(scalar));
        const uint8_t* p = pixel(image, kWidth / 2, kHeight / 2);
        EXPECT_EQ(p[0], round % 2 == 0 ? 0 : 255) << "round " << round;
    }
}

// Seen straight from above with a view 4 units wide, the square [-1, 1] x [-1, 1] covers pixels 40
// to 120 across and 20 to 100 down; the x axis runs along its bottom edge, the y axis along its
// left edge, and the axis values -1, -0.5, 0, 0.5, 1 stand 10 pixels apart on the data's 0.5 steps.
SceneState axisScene(SceneState scene) {
    scene.axisShow = true;
    return scene;
}

// Below the bottom edge, centred on the x value's tick, clear of the square.
Region xValueRegion(double value) {
    const int x = static_cast<int>(std::lround(kWidth / 2.0 + value * 40));
    return Region{x - 9, 102, x + 9, kHeight - 1};
}

// Left of the left edge, beside the y value's tick.
Region yValueRegion(double value) {
    const int y = static_cast<int>(std::lround(kHeight / 2.0 - value * 40));
    return Region{0, y - 5, 37, y + 5};
}

TEST_F(EglRendererTest, ViridisAndCoolWarmColourTheSurfaceAsTheirTablesSay) {
    for (ColourMap map : {ColourMap::Viridis, ColourMap::CoolWarm}) {
        for (float scalar : {0.0f, 0.3f, 0.5f, 0.8f, 1.0f}) {
            SceneState scene = squareScene(scalar);
            scene.colourMap = map;
            const Image image = render(scene);
            // Lit by the light source alone at full strength, facing it: the map's own colour.
            const std::array<float, 3> expected = colourMapColour(map, scalar);
            const uint8_t* p = pixel(image, kWidth / 2, kHeight / 2);
            for (int c = 0; c < 3; ++c) {
                EXPECT_NEAR(p[c], 255 * expected[c], 3)
                    << colourMapName(map) << " at " << scalar << ", channel " << c;
            }
        }
    }
}

TEST_F(EglRendererTest, ColourMapsDimWithTheLightAsTheRainbowDoes) {
    SceneState scene = squareScene(0.3f);
    scene.colourMap = ColourMap::Viridis;
    scene.lightIntensity = 50;
    const Image image = render(scene);
    const std::array<float, 3> expected = colourMapColour(ColourMap::Viridis, 0.3);
    const uint8_t* p = pixel(image, kWidth / 2, kHeight / 2);
    for (int c = 0; c < 3; ++c) {
        EXPECT_NEAR(p[c], 0.5 * 255 * expected[c], 3) << "channel " << c;
    }
}

TEST_F(EglRendererTest, ZoneWithoutScalarsIsDrawnInOneColourWhateverTheMap) {
    auto plain = std::make_shared<ZoneGeometry>(*flatSquare(0));
    plain->scalars.clear();
    SceneState scene = squareScene(0);
    scene.zones = {plain};
    const Image rainbow = render(scene);
    scene.colourMap = ColourMap::CoolWarm;
    scene.scalarMin = -10;
    const Image coolWarm = render(scene);
    EXPECT_EQ(rainbow.rgb, coolWarm.rgb);

    const uint8_t* middle = pixel(rainbow, kWidth / 2, kHeight / 2);
    // A light grey-blue: bright, blue the strongest, no channel far from the others.
    EXPECT_GT(middle[0], 150);
    EXPECT_GE(middle[2], middle[1]);
    EXPECT_GE(middle[1], middle[0]);
    EXPECT_LT(middle[2] - middle[0], 64);
    for (int y = 30; y < 90; ++y) {
        for (int x = 50; x < 110; ++x) {
            const uint8_t* p = pixel(rainbow, x, y);
            ASSERT_TRUE(p[0] == middle[0] && p[1] == middle[1] && p[2] == middle[2])
                << "pixel " << x << ", " << y;
        }
    }
}

TEST_F(EglRendererTest, ZonesWithAndWithoutScalarsAreDrawnTogether) {
    auto plain = std::make_shared<ZoneGeometry>(*flatSquare(0));
    plain->scalars.clear();
    for (float& coordinate : plain->positions) {
        coordinate *= 0.5f;  // the middle of the square, drawn over it
    }
    plain->positions[2] = plain->positions[5] = plain->positions[8] = plain->positions[11] = 0.1f;
    SceneState scene = squareScene(1);
    scene.zones.push_back(plain);
    const Image image = render(scene);
    const uint8_t* edge = pixel(image, 45, kHeight / 2);
    EXPECT_EQ(edge[0], 255);  // red: the top of the rainbow
    EXPECT_EQ(edge[2], 0);
    const uint8_t* middle = pixel(image, kWidth / 2, kHeight / 2);
    EXPECT_GT(middle[2], 150);  // the plain zone's light grey-blue
}

TEST_F(EglRendererTest, LegendShowsTheMapAtTheRightEdgeWhenAVariableIsNamed) {
    SceneState scene = squareScene(0.5f);
    scene.colourMap = ColourMap::Viridis;
    const Image without = render(scene);
    scene.colourVariable = "Pressure";
    const Image with = render(scene);
    const Region right{kWidth * 3 / 4, 0, kWidth - 1, kHeight - 1};
    const Region left{0, 0, kWidth / 2, kHeight - 1};
    EXPECT_GT(countDifferentPixelsIn(without, with, right), 200u);
    EXPECT_EQ(countDifferentPixelsIn(without, with, left), 0u);
    // The bar runs from the map's first colour to its last, unlit.
    EXPECT_TRUE(regionHasColour(with, right, colourMapColour(ColourMap::Viridis, 0), 6));
    EXPECT_TRUE(regionHasColour(with, right, colourMapColour(ColourMap::Viridis, 1), 6));
    EXPECT_FALSE(regionHasColour(without, right, colourMapColour(ColourMap::Viridis, 1), 6));
}

TEST_F(EglRendererTest, LegendIsLeftOutWithoutAVariableOrWithoutScalarsToShow) {
    SceneState scene = squareScene(0.5f);
    const Image plain = render(scene);
    scene.colourVariable = "";
    EXPECT_EQ(render(scene).rgb, plain.rgb);

    auto noScalars = std::make_shared<ZoneGeometry>(*flatSquare(0));
    noScalars->scalars.clear();
    scene.zones = {noScalars};
    const Image withoutVariable = render(scene);
    scene.colourVariable = "Pressure";
    EXPECT_EQ(render(scene).rgb, withoutVariable.rgb);
}

TEST_F(EglRendererTest, AxisValuesStandBesideTheirTicksWhenShownAndNowhereWhenHidden) {
    const SceneState shown = axisScene(squareScene(0.5f));
    SceneState hidden = shown;
    hidden.axisShow = false;
    const Image withAxis = render(shown);
    const Image withoutAxis = render(hidden);
    const uint8_t* background = pixel(withoutAxis, 0, 0);
    for (double value : {-0.5, 0.0, 0.5}) {
        EXPECT_GT(countDifferentPixelsIn(withAxis, withoutAxis, xValueRegion(value)), 5u)
            << "x = " << value;
        EXPECT_GT(countDifferentPixelsIn(withAxis, withoutAxis, yValueRegion(value)), 5u)
            << "y = " << value;
    }
    // Hidden, the places of the values show the background only.
    for (const Region& region : {xValueRegion(0), yValueRegion(0)}) {
        EXPECT_FALSE(regionHasColour(withoutAxis, region, {1, 1, 1}, 200)) << region.left;
        for (int y = region.top; y <= region.bottom; ++y) {
            for (int x = region.left; x <= region.right; ++x) {
                const uint8_t* p = pixel(withoutAxis, x, y);
                ASSERT_TRUE(p[0] == background[0] && p[1] == background[1] && p[2] == background[2])
                    << "pixel " << x << ", " << y;
            }
        }
    }
    // Between the places of -0.5 and 0 there is no text: they are separate labels.
    EXPECT_EQ(countDifferentPixelsIn(withAxis, withoutAxis, Region{73, 102, 75, kHeight - 1}), 0u);
}

TEST_F(EglRendererTest, SupersampledPictureKeepsItsAxisValues) {
    const SceneState shown = axisScene(squareScene(0.5f));
    SceneState hidden = shown;
    hidden.axisShow = false;
    const Image withAxis = render(shown, 3);
    const Image withoutAxis = render(hidden, 3);
    for (double value : {-0.5, 0.0, 0.5}) {
        EXPECT_GT(countDifferentPixelsIn(withAxis, withoutAxis, xValueRegion(value)), 5u)
            << "x = " << value;
    }
}

TEST_F(EglRendererTest, NoLightGivesAnAllBlackPictureWithAxisValuesAndLegend) {
    SceneState scene = axisScene(squareScene(0.5f));
    scene.colourVariable = "Pressure";
    scene.lightIntensity = 0;
    scene.backgroundLight = 0;
    for (int supersample : {1, 2}) {
        const Image image = render(scene, supersample);
        for (std::size_t i = 0; i < image.rgb.size(); ++i) {
            ASSERT_EQ(image.rgb[i], 0) << "byte " << i << ", supersample " << supersample;
        }
    }
}

}  // namespace
}  // namespace vexhost
