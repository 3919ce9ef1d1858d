#include "render/GlProgram.h"

#include <stdexcept>
#include <string>

namespace vexhost {
namespace {

GLuint compile(GLenum kind, const char* source) {
    GLuint shader = glCreateShader(kind);
    glShaderSource(shader, 1, &source, nullptr);
    glCompileShader(shader);
    GLint ok = GL_FALSE;
    glGetShaderiv(shader, GL_COMPILE_STATUS, &ok);
    if (ok != GL_TRUE) {
        char log[2048] = {};
        glGetShaderInfoLog(shader, sizeof log, nullptr, log);
        glDeleteShader(shader);
        throw std::logic_error(std::string("GlProgram::GlProgram(): ") +
                               (kind == GL_VERTEX_SHADER ? "vertex" : "fragment") +
                               " shader does not compile: " + log);
    }
    return shader;
}

}  // namespace

GlProgram::GlProgram(const char* vertexSource, const char* fragmentSource) {
    GLuint vertex = compile(GL_VERTEX_SHADER, vertexSource);
    GLuint fragment = 0;
    try {
        fragment = compile(GL_FRAGMENT_SHADER, fragmentSource);
    } catch (...) {
        glDeleteShader(vertex);
        throw;
    }
    program_ = glCreateProgram();
    glAttachShader(program_, vertex);
    glAttachShader(program_, fragment);
    glLinkProgram(program_);
    // The program keeps the compiled code; the shader objects are no longer needed.
    glDeleteShader(vertex);
    glDeleteShader(fragment);
    GLint ok = GL_FALSE;
    glGetProgramiv(program_, GL_LINK_STATUS, &ok);
    if (ok != GL_TRUE) {
        char log[2048] = {};
        glGetProgramInfoLog(program_, sizeof log, nullptr, log);
        glDeleteProgram(program_);
        throw std::logic_error(std::string("GlProgram::GlProgram(): program does not link: ") +
                               log);
    }
}

GlProgram::~GlProgram() {
    glDeleteProgram(program_);
}

}  // namespace vexhost
