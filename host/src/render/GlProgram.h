// A linked OpenGL shader program made of one vertex and one fragment shader. Must be dropped while
// its context is current.
#ifndef VEXHOST_RENDER_GLPROGRAM_H
#define VEXHOST_RENDER_GLPROGRAM_H

#include "render/GlObject.h"

namespace vexhost {

class GlProgram {
public:
    // Throws std::logic_error with the compiler's log: the sources are the renderer's own, so a
    // failure is a programming error.
    GlProgram(const char* vertexSource, const char* fragmentSource);
    ~GlProgram();
    GlProgram(const GlProgram&) = delete;
    GlProgram& operator=(const GlProgram&) = delete;

    void use() const { glUseProgram(program_); }
    // -1 for a uniform the compiler dropped; setting it is then a no-op.
    GLint uniform(const char* name) const { return glGetUniformLocation(program_, name); }

private:
    GLuint program_ = 0;  // owned
};

}  // namespace vexhost

#endif
