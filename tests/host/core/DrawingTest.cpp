#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "support/FailingRenderer.h"
#include "support/HostFixture.h"
#include "support/RecordingRenderer.h"
#include "support/RegisteredAddOnFixture.h"
#include "vexhost/DataSet.h"
#include "vexhost/Drawing.h"
#include "vexhost/Frame.h"
#include "vexhost/FrameStack.h"
#include "vexhost/Renderer.h"
#include "vexhost/SceneState.h"
#include "vxsdkbase.h"

namespace {

using vextest::ScopedLock;

using vextest::FailingRenderer;
using vextest::RecordingRenderer;

using DrawingTest = vextest::RegisteredAddOnFixture;

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

TEST_F(DrawingTest, RedrawKeepsTheSceneOfThatMomentAndDrawsItWhenThePictureIsAskedFor) {
    std::vector<RecordingRenderer::Call> calls;
    host().drawing().setRenderer(std::make_unique<RecordingRenderer>(&calls));
    createFrame3D().view().setWidth(3.5);
    host().dataSet().setSolutionTime(2);
    {
        ScopedLock lock(addOn_);
        VexUtilRedraw(true);
    }
    EXPECT_TRUE(calls.empty()) << "nobody has looked at the picture yet";
    // What changes after the redraw is not in its picture.
    host().frames().active()->view().setWidth(9);
    host().dataSet().setSolutionTime(5);
    EXPECT_EQ(host().drawing().lastPicture().width, 800);
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(calls[0].width, 800);
    EXPECT_EQ(calls[0].height, 600);
    EXPECT_EQ(calls[0].supersample, 1);
    EXPECT_EQ(calls[0].scene.camera.viewWidth, 3.5);
    EXPECT_EQ(calls[0].scene.solutionTime, 2);
}

TEST_F(DrawingTest, OnScreenRedrawsMakeNoPictureNobodyLooksAt) {
    std::vector<RecordingRenderer::Call> calls;
    host().drawing().setRenderer(std::make_unique<RecordingRenderer>(&calls));
    createFrame3D();
    {
        ScopedLock lock(addOn_);
        for (int i = 0; i < 100; ++i)
            VexUtilRedraw(true);
    }
    EXPECT_EQ(host().drawing().drawnFrames(), 100u);
    EXPECT_EQ(host().drawing().renderedPictures(), 0u);
    host().drawing().lastPicture();
    host().drawing().lastPicture();
    EXPECT_EQ(calls.size(), 1u) << "one picture for the last redraw, made once";
    EXPECT_EQ(host().drawing().renderedPictures(), 1u);
}

TEST_F(DrawingTest, PictureOfTheCurrentSceneIsDrawnAtOnce) {
    std::vector<RecordingRenderer::Call> calls;
    host().drawing().setRenderer(std::make_unique<RecordingRenderer>(&calls));
    createFrame3D().view().setWidth(4.5);
    const vexhost::Image picture = host().drawing().picture(64, 48, 3);
    EXPECT_EQ(picture.width, 64);
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(calls[0].supersample, 3);
    EXPECT_EQ(calls[0].scene.camera.viewWidth, 4.5);
    EXPECT_EQ(host().drawing().drawnFrames(), 0u) << "a picture asked for is not a redraw";
}

TEST_F(DrawingTest, AKeptSceneIsDrawnAsItWasAndCounted) {
    std::vector<RecordingRenderer::Call> calls;
    host().drawing().setRenderer(std::make_unique<RecordingRenderer>(&calls));
    createFrame3D().view().setWidth(4.5);
    const vexhost::SceneState kept = host().scene();
    host().frames().active()->view().setWidth(9);
    host().drawing().picture(kept, 32, 24, 1);
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(calls[0].scene.camera.viewWidth, 4.5) << "the kept scene, not the current one";
    EXPECT_EQ(calls[0].width, 32);
    EXPECT_EQ(host().drawing().renderedPictures(), 1u);
}

TEST_F(DrawingTest, RendererFailureIsAHostErrorNotAnException) {
    host().drawing().setRenderer(std::make_unique<FailingRenderer>("no context"));
    createFrame3D();
    {
        ScopedLock lock(addOn_);
        EXPECT_TRUE(VexUtilRedraw(true));
    }
    EXPECT_TRUE(host().drawing().lastPicture().empty());
    EXPECT_TRUE(host().drawing().lastPicture().empty());
    EXPECT_EQ(takeHostErrors(),
              std::vector<std::string>{"VexUtilRedraw: the renderer failed: no context"})
        << "told once";
}

TEST_F(DrawingTest, FramePixelSizeIsRoundedNotTruncated) {
    vexhost::Frame& frame = createFrame3D();
    // 2.9 inches are 289.99999999999997 pixels in floating point.
    frame.setPosAndSize(0, 0, 290 / vexhost::FrameStack::PixelsPerInch, 2.9);
    EXPECT_EQ(vexhost::Drawing::pixelSize(frame), (std::pair<int, int>{290, 290}));
    frame.setPosAndSize(0, 0, 0.001, 0.001);
    EXPECT_EQ(vexhost::Drawing::pixelSize(frame), (std::pair<int, int>{1, 1}));
}

TEST_F(DrawingTest, RedrawWithoutFrameDrawsNothing) {
    ScopedLock lock(addOn_);
    EXPECT_TRUE(VexUtilRedraw(true));
    EXPECT_EQ(host().drawing().drawnFrames(), 0u);
}

}  // namespace
