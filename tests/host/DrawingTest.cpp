#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "support/HostTest.h"
#include "vexhost/Renderer.h"
#include "vxsdkbase.h"

namespace {

using vextest::ScopedLock;

// A renderer for the host's picture seam that notes what it was asked to draw.
class RecordingRenderer : public vexhost::Renderer {
public:
    struct Call {
        vexhost::SceneState scene;
        int width, height, supersample;
    };
    explicit RecordingRenderer(std::vector<Call>& calls) : calls_(calls) {}
    vexhost::Image render(const vexhost::SceneState& scene, int width, int height,
                          int supersample) override {
        calls_.push_back({scene, width, height, supersample});
        vexhost::Image image;
        image.width = width;
        image.height = height;
        image.rgb.assign(static_cast<std::size_t>(width * height * 3), 7);
        return image;
    }

private:
    std::vector<Call>& calls_;
};

class FailingRenderer : public vexhost::Renderer {
public:
    vexhost::Image render(const vexhost::SceneState&, int, int, int) override {
        throw std::runtime_error("no context");
    }
};

class DrawingTest : public vextest::HostTest {
protected:
    void SetUp() override {
        HostTest::SetUp();
        addOn_ = registerAddOn();
    }
    VexAddOn_pa addOn_ = nullptr;
};

TEST_F(DrawingTest, SuspensionsNest) {
    ScopedLock lock(addOn_);
    VexUtilDrawGraphics(false);
    VexUtilDrawGraphics(false);
    EXPECT_EQ(host().drawing().suspendDepth(), 2);
    VexUtilDrawGraphics(true);
    EXPECT_TRUE(host().drawing().isSuspended());
    VexUtilDrawGraphics(true);
    EXPECT_FALSE(host().drawing().isSuspended());
}

TEST_F(DrawingTest, ResumingWithoutSuspensionIsAHostError) {
    ScopedLock lock(addOn_);
    VexUtilDrawGraphics(true);
    EXPECT_EQ(takeHostErrors(),
              std::vector<std::string>{"VexUtilDrawGraphics: drawing is not suspended"});
    EXPECT_EQ(host().drawing().suspendDepth(), 0);
}

TEST_F(DrawingTest, RedrawWhileDrawingDrawsAFrameAndWhileSuspendedNothing) {
    createFrame3D();
    ScopedLock lock(addOn_);
    EXPECT_TRUE(VexUtilRedraw(true));
    EXPECT_EQ(host().drawing().drawnFrames(), 1u);
    VexUtilDrawGraphics(false);
    EXPECT_TRUE(VexUtilRedraw(true));
    VexUtilDrawGraphics(true);
    EXPECT_EQ(host().drawing().drawnFrames(), 1u);
    EXPECT_EQ(host().drawing().skippedRedraws(), 1u);
}

TEST_F(DrawingTest, RedrawHandsTheActiveFramesSceneToTheRenderer) {
    std::vector<RecordingRenderer::Call> calls;
    host().drawing().setRenderer(std::make_unique<RecordingRenderer>(calls));
    createFrame3D().view().setWidth(3.5);
    host().dataSet().setSolutionTime(2);
    ScopedLock lock(addOn_);
    VexUtilRedraw(true);
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(calls[0].width, 800);
    EXPECT_EQ(calls[0].height, 600);
    EXPECT_EQ(calls[0].supersample, 1);
    EXPECT_EQ(calls[0].scene.camera.viewWidth, 3.5);
    EXPECT_EQ(calls[0].scene.solutionTime, 2);
    EXPECT_EQ(host().drawing().lastPicture().width, 800);
}

TEST_F(DrawingTest, RendererFailureIsAHostErrorNotAnException) {
    host().drawing().setRenderer(std::make_unique<FailingRenderer>());
    createFrame3D();
    ScopedLock lock(addOn_);
    EXPECT_TRUE(VexUtilRedraw(true));
    EXPECT_EQ(takeHostErrors(),
              std::vector<std::string>{"VexUtilRedraw: the renderer failed: no context"});
    EXPECT_TRUE(host().drawing().lastPicture().empty());
}

TEST_F(DrawingTest, RedrawWithoutFrameDrawsNothing) {
    ScopedLock lock(addOn_);
    EXPECT_TRUE(VexUtilRedraw(true));
    EXPECT_EQ(host().drawing().drawnFrames(), 0u);
}

}  // namespace
