// One OpenGL object name (buffer, vertex array, renderbuffer, framebuffer or texture), deleted when
// dropped. Every GL object of the renderer lives in one of these, and they are dropped while the
// renderer's context is current.
#ifndef VEXHOST_RENDER_GLOBJECT_H
#define VEXHOST_RENDER_GLOBJECT_H

#define GL_GLEXT_PROTOTYPES
#include <GL/glcorearb.h>

#include <utility>

namespace vexhost {

class GlObject {
public:
    enum class Kind { Buffer, VertexArray, Renderbuffer, Framebuffer, Texture };

    GlObject() = default;
    explicit GlObject(Kind kind) : kind_(kind) {
        switch (kind_) {
            case Kind::Buffer:
                glGenBuffers(1, &name_);
                break;
            case Kind::VertexArray:
                glGenVertexArrays(1, &name_);
                break;
            case Kind::Renderbuffer:
                glGenRenderbuffers(1, &name_);
                break;
            case Kind::Framebuffer:
                glGenFramebuffers(1, &name_);
                break;
            case Kind::Texture:
                glGenTextures(1, &name_);
                break;
        }
    }
    ~GlObject() { reset(); }
    GlObject(GlObject&& other) noexcept
        : kind_(other.kind_), name_(std::exchange(other.name_, 0u)) {}
    GlObject& operator=(GlObject&& other) noexcept {
        if (this != &other) {
            reset();
            kind_ = other.kind_;
            name_ = std::exchange(other.name_, 0u);
        }
        return *this;
    }
    GlObject(const GlObject&) = delete;
    GlObject& operator=(const GlObject&) = delete;

    GLuint name() const { return name_; }

private:
    void reset() {
        if (name_ == 0) {
            return;
        }
        switch (kind_) {
            case Kind::Buffer:
                glDeleteBuffers(1, &name_);
                break;
            case Kind::VertexArray:
                glDeleteVertexArrays(1, &name_);
                break;
            case Kind::Renderbuffer:
                glDeleteRenderbuffers(1, &name_);
                break;
            case Kind::Framebuffer:
                glDeleteFramebuffers(1, &name_);
                break;
            case Kind::Texture:
                glDeleteTextures(1, &name_);
                break;
        }
        name_ = 0;
    }

    Kind kind_ = Kind::Buffer;
    GLuint name_ = 0;
};

}  // namespace vexhost

#endif
