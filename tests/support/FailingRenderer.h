// vextest::FailingRenderer: a renderer for the host's picture seam that cannot draw: every picture
// throws std::runtime_error with its message, as a renderer without a display does.
#ifndef VEXTEST_FAILINGRENDERER_H
#define VEXTEST_FAILINGRENDERER_H

#include <stdexcept>
#include <string>
#include <utility>

#include "vexhost/Renderer.h"

namespace vextest {

class FailingRenderer : public vexhost::Renderer {
public:
    explicit FailingRenderer(std::string message) : message_(std::move(message)) {}

    vexhost::Image render(const vexhost::SceneState&, int, int, int) override {
        throw std::runtime_error(message_);
    }

private:
    std::string message_;
};

}  // namespace vextest

#endif
