// Preloaded (LD_PRELOAD) into one process of a parallel export test: the process is killed by
// SIGKILL as it reads back its third picture, in the middle of its range, as the system kills a
// process that takes too much memory. Every other call goes to OpenGL's own glReadPixels.
#include <GL/gl.h>
#include <dlfcn.h>

#include <csignal>

extern "C" void glReadPixels(GLint x, GLint y, GLsizei width, GLsizei height, GLenum format,
                             GLenum type, void* pixels) {
    static int calls = 0;
    if (++calls == 3)
        std::raise(SIGKILL);
    using ReadPixels = void (*)(GLint, GLint, GLsizei, GLsizei, GLenum, GLenum, void*);
    static const auto real = reinterpret_cast<ReadPixels>(dlsym(RTLD_NEXT, "glReadPixels"));
    real(x, y, width, height, format, type, pixels);
}
