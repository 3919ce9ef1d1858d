// The host's drawing seam: turns a SceneState into a picture of the given size.
//
// Deterministic: the same scene and size give the same pixels. supersample > 1 draws at that factor
// and filters down to the requested size.
#ifndef VEXHOST_RENDERER_H
#define VEXHOST_RENDERER_H

#include "vexhost/Image.h"
#include "vexhost/SceneState.h"

namespace vexhost {

class Renderer {
public:
    virtual ~Renderer() = default;
    virtual Image render(const SceneState& scene, int width, int height, int supersample) = 0;
};

}  // namespace vexhost

#endif
