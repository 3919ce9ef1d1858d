#include "render/GlFramebuffer.h"

#include <stdexcept>
#include <string>

namespace vexhost {

void GlFramebuffer::bind(int width, int height) {
    if (framebuffer_.name() == 0 || width != width_ || height != height_) {
        framebuffer_ = GlObject(GlObject::Kind::Framebuffer);
        colour_ = GlObject(GlObject::Kind::Renderbuffer);
        depth_ = GlObject(GlObject::Kind::Renderbuffer);
        glBindRenderbuffer(GL_RENDERBUFFER, colour_.name());
        glRenderbufferStorage(GL_RENDERBUFFER, GL_RGBA8, width, height);
        glBindRenderbuffer(GL_RENDERBUFFER, depth_.name());
        glRenderbufferStorage(GL_RENDERBUFFER, GL_DEPTH_COMPONENT24, width, height);
        glBindRenderbuffer(GL_RENDERBUFFER, 0);
        glBindFramebuffer(GL_FRAMEBUFFER, framebuffer_.name());
        glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_RENDERBUFFER,
                                  colour_.name());
        glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_DEPTH_ATTACHMENT, GL_RENDERBUFFER,
                                  depth_.name());
        const GLenum status = glCheckFramebufferStatus(GL_FRAMEBUFFER);
        const GLenum error = glGetError();
        if (status != GL_FRAMEBUFFER_COMPLETE || error != GL_NO_ERROR) {
            framebuffer_ = GlObject();
            width_ = height_ = 0;
            throw std::runtime_error(
                "Cannot make an off-screen picture of " + std::to_string(width) + " x " +
                std::to_string(height) + " pixels (OpenGL framebuffer status " +
                std::to_string(status) + ", error " + std::to_string(error) + ")");
        }
        width_ = width;
        height_ = height;
    }
    glBindFramebuffer(GL_FRAMEBUFFER, framebuffer_.name());
    glViewport(0, 0, width_, height_);
}

void GlFramebuffer::read(std::vector<uint8_t>& rgba) const {
    rgba.resize(static_cast<std::size_t>(width_) * height_ * 4);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(0, 0, width_, height_, GL_RGBA, GL_UNSIGNED_BYTE, rgba.data());
}

}  // namespace vexhost
