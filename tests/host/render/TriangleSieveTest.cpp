// The renderer's triangle sieve: dense surfaces drawn with and without it give the same pixels,
// whatever the camera, and the sieve leaves out what it can.
#include <gtest/gtest.h>

#include <cmath>
#include <memory>

#include "vexhost/EglRenderer.h"

namespace vexhost {
namespace {

// A crumpled sheet of n x n squares over [-1, 1]^2: a height field with folds steep enough that
// parts of it hide others, plus a fine ripple, so triangles are of every shape and orientation.
std::shared_ptr<const ZoneGeometry> crumpledSheet(int n, double offset = 0) {
    auto g = std::make_shared<ZoneGeometry>();
    for (int j = 0; j <= n; ++j) {
        for (int i = 0; i <= n; ++i) {
            const double x = -1 + 2.0 * i / n;
            const double y = -1 + 2.0 * j / n;
            const double z = 0.35 * std::sin(4 * x) * std::cos(3 * y) + 0.02 * std::sin(90 * x * y);
            g->positions.push_back(static_cast<float>(x + offset));
            g->positions.push_back(static_cast<float>(y + offset));
            g->positions.push_back(static_cast<float>(z));
            g->scalars.push_back(static_cast<float>(z));
        }
    }
    const auto at = [n](int i, int j) { return static_cast<uint32_t>(j * (n + 1) + i); };
    for (int j = 0; j < n; ++j) {
        for (int i = 0; i < n; ++i) {
            // Alternate diagonals, so both windings occur.
            if ((i + j) % 2 == 0) {
                g->triangles.insert(g->triangles.end(), {at(i, j), at(i + 1, j), at(i + 1, j + 1),
                                                         at(i, j), at(i + 1, j + 1), at(i, j + 1)});
            } else {
                g->triangles.insert(g->triangles.end(), {at(i, j), at(i + 1, j + 1), at(i + 1, j),
                                                         at(i, j), at(i, j + 1), at(i + 1, j + 1)});
            }
        }
    }
    return g;
}

CameraState camera(double psi, double theta, double distance, double viewWidth, bool perspective,
                   double offset = 0) {
    CameraState c;
    c.psi = psi;
    c.theta = theta;
    const double p = psi * M_PI / 180;
    const double t = theta * M_PI / 180;
    c.position[0] = offset + distance * std::sin(t) * std::sin(p);
    c.position[1] = offset - distance * std::cos(t) * std::sin(p);
    c.position[2] = distance * std::cos(p);
    c.viewWidth = viewWidth;
    c.perspective = perspective;
    c.fieldOfView = 50;
    return c;
}

class TriangleSieveTest : public ::testing::Test {
protected:
    void SetUp() override {
        try {
            renderer_ = EglRenderer::create();
        } catch (const std::exception& e) {
            FAIL() << "The renderer cannot start: " << e.what();
        }
    }

    SceneState scene(const std::shared_ptr<const ZoneGeometry>& zone, const CameraState& c,
                     double offset = 0) const {
        SceneState s;
        s.camera = c;
        s.zones = {zone};
        s.scalarMin = -0.4f;
        s.scalarMax = 0.4f;
        s.colourVariable = "height";
        for (int k = 0; k < 2; ++k) {
            s.boundsMin[k] = offset - 1;
            s.boundsMax[k] = offset + 1;
        }
        s.boundsMin[2] = -0.4;
        s.boundsMax[2] = 0.4;
        return s;
    }

    // Draws the scene with the sieve and without it; the pictures must be identical. Returns the
    // triangles the sifted picture drew.
    std::size_t expectSamePictures(const SceneState& s, int width, int height, int supersample) {
        renderer_->setTriangleSieve(true);
        const Image sifted = renderer_->render(s, width, height, supersample);
        const std::size_t drawn = renderer_->trianglesDrawn();
        renderer_->setTriangleSieve(false);
        const Image whole = renderer_->render(s, width, height, supersample);
        EXPECT_EQ(renderer_->trianglesDrawn(), s.zones.front()->triangleCount());
        std::size_t different = 0;
        for (std::size_t i = 0; i < whole.rgb.size(); ++i) {
            different += sifted.rgb[i] != whole.rgb[i] ? 1 : 0;
        }
        EXPECT_EQ(different, 0u) << "at " << width << " x " << height << " x" << supersample;
        return drawn;
    }

    std::unique_ptr<EglRenderer> renderer_;
};

TEST_F(TriangleSieveTest, DenseSurfaceFromAboveIsTheSameAndMostTrianglesAreLeftOut) {
    const auto sheet = crumpledSheet(250);  // 125,000 triangles
    const std::size_t drawn =
        expectSamePictures(scene(sheet, camera(0, 0, 5, 2.4, false)), 160, 120, 1);
    EXPECT_LT(drawn, sheet->triangleCount() / 4);
    EXPECT_GT(drawn, 0u);
}

TEST_F(TriangleSieveTest, TiltedOrthographicAndPerspectivePicturesAreTheSame) {
    const auto sheet = crumpledSheet(250);
    for (const CameraState& c : {camera(60, -30, 5, 2.6, false), camera(75, 140, 4, 2.6, true),
                                 camera(88, 10, 6, 3, false)}) {
        EXPECT_LT(expectSamePictures(scene(sheet, c), 320, 240, 1), sheet->triangleCount());
    }
}

TEST_F(TriangleSieveTest, SupersampledPicturesAreTheSame) {
    const auto sheet = crumpledSheet(250);
    expectSamePictures(scene(sheet, camera(50, 30, 5, 2.6, false)), 200, 150, 3);
}

TEST_F(TriangleSieveTest, CloseUpWithTrianglesLargerThanPixelsIsTheSame) {
    const auto sheet = crumpledSheet(250);
    // A width of 0.05 data units: each triangle spans pixels, and most lie outside the picture.
    expectSamePictures(scene(sheet, camera(30, 20, 5, 0.05, false)), 320, 240, 1);
}

TEST_F(TriangleSieveTest, ViewerAmongTheTrianglesIsTheSame) {
    const auto sheet = crumpledSheet(250);
    // In perspective from just above the sheet, looking along it: triangles cross the near plane.
    expectSamePictures(scene(sheet, camera(85, 60, 0.6, 1, true)), 320, 240, 1);
}

TEST_F(TriangleSieveTest, DataFarFromTheOriginSeenCloseUpIsDrawnWhole) {
    // A million units away, float rounding alone is larger than the sieve's margin: every
    // triangle goes to the rasteriser.
    const double offset = 1e6;
    const auto sheet = crumpledSheet(250, offset);
    const std::size_t drawn =
        expectSamePictures(scene(sheet, camera(0, 0, 5, 0.5, false, offset), offset), 160, 120, 1);
    EXPECT_EQ(drawn, sheet->triangleCount());
}

TEST_F(TriangleSieveTest, SmallSurfacesAreDrawnWhole) {
    const auto sheet = crumpledSheet(100);  // 20,000 triangles
    const std::size_t drawn =
        expectSamePictures(scene(sheet, camera(0, 0, 5, 2.4, false)), 160, 120, 1);
    EXPECT_EQ(drawn, sheet->triangleCount());
}

}  // namespace
}  // namespace vexhost
