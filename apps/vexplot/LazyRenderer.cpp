#include "LazyRenderer.h"

#include <stdexcept>
#include <utility>

namespace vexplot {
namespace app {

LazyRenderer::LazyRenderer(Factory factory) : factory_(std::move(factory)) {
    if (!factory_)
        throw std::invalid_argument("LazyRenderer::LazyRenderer(): no factory");
}

vexhost::Image LazyRenderer::render(const vexhost::SceneState& scene, int width, int height,
                                    int supersample) {
    if (renderer_ == nullptr) {
        if (!failure_.empty())
            throw std::runtime_error(failure_);
        try {
            renderer_ = factory_();
        } catch (const std::exception& error) {
            failure_ = error.what();
            throw;
        }
        if (renderer_ == nullptr) {
            failure_ = "LazyRenderer::render(): the factory made no renderer";
            throw std::logic_error(failure_);
        }
    }
    return renderer_->render(scene, width, height, supersample);
}

}  // namespace app
}  // namespace vexplot
