// Describes the GL_ARRAY_BUFFER bound now, in the vertex array bound now, as interleaved floats:
// attribute i has componentCounts[i] floats, the attributes following one another in order, and
// each vertex ends where the last attribute ends. The renderer's buffers (surfaces, cubes, lines,
// text quads) are all laid out this way.
#ifndef VEXHOST_RENDER_VERTEXLAYOUT_H
#define VEXHOST_RENDER_VERTEXLAYOUT_H

#include <initializer_list>

#include "render/GlObject.h"

namespace vexhost {

inline void setInterleavedFloatAttributes(std::initializer_list<GLint> componentCounts) {
    GLsizei stride = 0;
    for (GLint count : componentCounts) {
        stride += count * static_cast<GLsizei>(sizeof(float));
    }
    GLuint index = 0;
    std::size_t offset = 0;
    for (GLint count : componentCounts) {
        glEnableVertexAttribArray(index);
        glVertexAttribPointer(index, count, GL_FLOAT, GL_FALSE, stride,
                              reinterpret_cast<const void*>(offset));
        offset += static_cast<std::size_t>(count) * sizeof(float);
        ++index;
    }
}

}  // namespace vexhost

#endif
