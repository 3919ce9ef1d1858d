// A renderer that makes the real one only when the first picture is asked for. vexplot installs
// the EGL renderer this way: starting OpenGL costs a noticeable part of a second, and a run that
// only animates on screen never asks for a picture, so it never pays for it.
//
// When making the renderer fails, every picture asked for fails with the same error (the attempt
// is not repeated: it would fail the same way and cost the same time again).
#ifndef VEXPLOT_APP_LAZYRENDERER_H
#define VEXPLOT_APP_LAZYRENDERER_H

#include <functional>
#include <memory>
#include <string>

#include "vexhost/Renderer.h"

namespace vexplot {
namespace app {

class LazyRenderer final : public vexhost::Renderer {
public:
    using Factory = std::function<std::unique_ptr<vexhost::Renderer>()>;

    explicit LazyRenderer(Factory factory);

    // Makes the renderer on the first call, then draws with it. Throws std::runtime_error with the
    // factory's message when the renderer cannot be made.
    vexhost::Image render(const vexhost::SceneState& scene, int width, int height,
                          int supersample) override;

    bool isStarted() const { return renderer_ != nullptr; }

private:
    Factory factory_;
    std::unique_ptr<vexhost::Renderer> renderer_;  // owned; null until the first picture
    std::string failure_;                          // why the renderer could not be made
};

}  // namespace app
}  // namespace vexplot

#endif
