// The off-screen picture the renderer draws into: a framebuffer object with an 8-bit RGBA colour
// and a 24-bit depth renderbuffer. Kept across pictures and remade only when the size changes.
#ifndef VEXHOST_RENDER_GLFRAMEBUFFER_H
#define VEXHOST_RENDER_GLFRAMEBUFFER_H

#include <cstdint>
#include <vector>

#include "render/GlObject.h"

namespace vexhost {

class GlFramebuffer {
public:
    // Binds the framebuffer for drawing at the given size (reallocating if it changed) and sets the
    // viewport. Throws std::runtime_error when the driver refuses the size.
    void bind(int width, int height);
    // Reads the bound picture into rgba: width * height * 4 bytes, rows from bottom to top as
    // OpenGL keeps them.
    void read(std::vector<uint8_t>& rgba) const;

private:
    GlObject framebuffer_;
    GlObject colour_;
    GlObject depth_;
    int width_ = 0;
    int height_ = 0;
};

}  // namespace vexhost

#endif
