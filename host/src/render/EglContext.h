// An OpenGL 3.3 core context on an EGL display without any surface: pictures go to framebuffer
// objects only. Creating one tries Mesa's surfaceless platform first (software rendering, or a Mesa
// GPU driver), then the EGL devices (a GPU vendor's own EGL).
#ifndef VEXHOST_RENDER_EGLCONTEXT_H
#define VEXHOST_RENDER_EGLCONTEXT_H

#include <EGL/egl.h>

#include <string>

namespace vexhost {

class EglContext {
public:
    // Throws std::runtime_error naming every platform tried and why it failed.
    EglContext();
    ~EglContext();
    EglContext(const EglContext&) = delete;
    EglContext& operator=(const EglContext&) = delete;

    // Makes the context current on the calling thread; throws std::runtime_error on failure.
    void makeCurrent();
    // GL_RENDERER and GL_VERSION of the context.
    const std::string& description() const { return description_; }

private:
    EGLDisplay display_ = EGL_NO_DISPLAY;  // process-wide, not ours to terminate
    EGLContext context_ = EGL_NO_CONTEXT;  // owned
    std::string description_;
};

}  // namespace vexhost

#endif
