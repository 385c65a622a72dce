// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "gpu/shader_program.h"

#include <algorithm>

namespace ogl {

namespace {

/// Some drivers report an empty log with a length of its ending zero or a line end.
constexpr GLint kEmptyLogLength = 2;

/// Returns the length of the log that it wrote, 0 when there is none.
int compile(unsigned shader, const std::string& source, std::span<char> log) {
    const char* text = source.c_str();
    glShaderSource(shader, 1, &text, nullptr);
    glCompileShader(shader);
    GLint length = 0;
    glGetShaderiv(shader, GL_INFO_LOG_LENGTH, &length);
    if (length <= kEmptyLogLength)
        return 0;
    GLsizei written = 0;
    glGetShaderInfoLog(shader, std::min(length, static_cast<GLint>(log.size())), &written,
                       log.data());
    return written;
}

} // namespace

ShaderProgram::ShaderProgram() {
    program_.create();
}

int ShaderProgram::build(const std::string& programName, int programVariant,
                         const std::string& vertexSource, const std::string& fragmentSource,
                         std::span<char> log) {
    variant_ = programVariant;
    name_ = programName;
    vertexShader_.create();
    fragmentShader_.create();
    const int vertexLog = compile(vertexShader_.name(), vertexSource, log);
    const int fragmentLog = compile(fragmentShader_.name(), fragmentSource, log);
    glAttachShader(program_.name(), vertexShader_.name());
    glAttachShader(program_.name(), fragmentShader_.name());
    glLinkProgram(program_.name());
    return vertexLog + fragmentLog;
}

bool ShaderProgram::isLinked() const {
    GLint linked = 0;
    glGetProgramiv(program_.name(), GL_LINK_STATUS, &linked);
    return linked != 0;
}

void ShaderProgram::use() const {
    glEnable(GL_VERTEX_PROGRAM_ARB);
    glEnable(GL_FRAGMENT_PROGRAM_ARB);
    glUseProgram(program_.name());
}

void ShaderProgram::useNone() {
    glDisable(GL_VERTEX_PROGRAM_ARB);
    glDisable(GL_FRAGMENT_PROGRAM_ARB);
    glUseProgram(0);
}

int ShaderProgram::location(const char* uniform) const {
    return glGetUniformLocation(program_.name(), uniform);
}

void ShaderProgram::setInt(const char* uniform, int value) const {
    glUniform1i(location(uniform), value);
}

void ShaderProgram::setFloat(const char* uniform, float value) const {
    glUniform1f(location(uniform), value);
}

void ShaderProgram::setVec2(const char* uniform, float x, float y) const {
    glUniform2f(location(uniform), x, y);
}

void ShaderProgram::setVec3(const char* uniform, float x, float y, float z) const {
    glUniform3f(location(uniform), x, y, z);
}

void ShaderProgram::setVec4(const char* uniform, float x, float y, float z, float w) const {
    glUniform4f(location(uniform), x, y, z, w);
}

void ShaderProgram::setFloatArray(const char* uniform, int count, const float* values) const {
    glUniform1fv(location(uniform), count, values);
}

void ShaderProgram::setIntArray(const char* uniform, int count, const int* values) const {
    glUniform1iv(location(uniform), count, values);
}

void ShaderProgram::setVec2v(const char* uniform, const float* xy) const {
    glUniform2fv(location(uniform), 1, xy);
}

void ShaderProgram::setVec3v(const char* uniform, const float* xyz) const {
    glUniform3fv(location(uniform), 1, xyz);
}

void ShaderProgram::setVec4v(const char* uniform, const float* xyzw) const {
    glUniform4fv(location(uniform), 1, xyzw);
}

void ShaderProgram::setMat3(const char* uniform, const float* elements) const {
    glUniformMatrix3fv(location(uniform), 1, GL_FALSE, elements);
}

void ShaderProgram::setMat4(const char* uniform, const float* elements) const {
    glUniformMatrix4fv(location(uniform), 1, GL_FALSE, elements);
}

} // namespace ogl
