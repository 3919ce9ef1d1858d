// The renderer vexplot installs: the real one is made with the first picture, and a renderer that
// cannot be made is tried once.
#include "LazyRenderer.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>

#include "support/RecordingRenderer.h"

namespace {

using vexplot::app::LazyRenderer;

// Draws pictures of grey level 128, so the test sees which renderer drew.
using vextest::RecordingRenderer;

TEST(LazyRendererTest, RendererIsMadeWithTheFirstPictureOnly) {
    int made = 0;
    LazyRenderer renderer([&made] {
        ++made;
        return std::make_unique<RecordingRenderer>();
    });
    EXPECT_EQ(0, made);
    EXPECT_FALSE(renderer.isStarted());
    const vexhost::Image first = renderer.render(vexhost::SceneState(), 4, 3, 1);
    renderer.render(vexhost::SceneState(), 4, 3, 1);
    EXPECT_EQ(1, made);
    EXPECT_TRUE(renderer.isStarted());
    EXPECT_EQ(4, first.width);
    EXPECT_EQ(128, first.rgb.at(0));
}

TEST(LazyRendererTest, RendererThatCannotBeMadeIsTriedOnceAndEveryPictureFailsTheSameWay) {
    int attempts = 0;
    LazyRenderer renderer([&attempts]() -> std::unique_ptr<vexhost::Renderer> {
        ++attempts;
        throw std::runtime_error("Cannot start OpenGL rendering: no EGL devices");
    });
    for (int i = 0; i < 2; ++i) {
        try {
            renderer.render(vexhost::SceneState(), 4, 3, 1);
            FAIL() << "drew a picture";
        } catch (const std::runtime_error& error) {
            EXPECT_STREQ("Cannot start OpenGL rendering: no EGL devices", error.what());
        }
    }
    EXPECT_EQ(1, attempts);
    EXPECT_FALSE(renderer.isStarted());
}

TEST(LazyRendererTest, EmptyFactoryIsAProgrammingError) {
    EXPECT_THROW(LazyRenderer(LazyRenderer::Factory()), std::invalid_argument);
}

}  // namespace
