// The renderer of a host without one: every picture is empty, and making it costs nothing.
#ifndef VEXHOST_CORE_NULLRENDERER_H
#define VEXHOST_CORE_NULLRENDERER_H

#include "vexhost/Renderer.h"

namespace vexhost {

class NullRenderer final : public Renderer {
public:
    Image render(const SceneState&, int, int, int) override { return Image(); }
};

}  // namespace vexhost

#endif
