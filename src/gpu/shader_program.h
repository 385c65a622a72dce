// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "gpu/gl_objects.h"

#include <span>
#include <string>

namespace ogl {

/// A GLSL program of one vertex and one fragment shader. Owns its GL objects; a context of the
/// view must be current for every call. Faults of the sources are told by the compilers' logs
/// only: a program that did not link can be used, and GL then refuses its draws.
class ShaderProgram {
  public:
    /// Makes the GL program.
    ShaderProgram();

    /// Compiles both sources, attaches the shaders, vertex first, and links. Returns the summed
    /// length of the two compile logs, a log of up to 2 characters counting as none. `log`
    /// receives the vertex shader's log, then from its start again the fragment shader's, each
    /// with an ending zero and cut to fit; without logs it stays as it is.
    int build(const std::string& programName, int programVariant, const std::string& vertexSource,
              const std::string& fragmentSource, std::span<char> log);

    /// False when build() failed: GL then refuses every draw with the program.
    bool isLinked() const;

    /// Makes GL draw with this program.
    void use() const;
    /// Makes GL draw without a program.
    static void useNone();

    // Uniforms of this program, which must be in use. A name that the program does not have is
    // ignored. Matrices are column by column.
    void setInt(const char* uniform, int value) const;
    void setFloat(const char* uniform, float value) const;
    void setVec2(const char* uniform, float x, float y) const;
    void setVec3(const char* uniform, float x, float y, float z) const;
    void setVec4(const char* uniform, float x, float y, float z, float w) const;
    void setFloatArray(const char* uniform, int count, const float* values) const;
    void setIntArray(const char* uniform, int count, const int* values) const;
    void setVec2v(const char* uniform, const float* xy) const;
    void setVec3v(const char* uniform, const float* xyz) const;
    void setVec4v(const char* uniform, const float* xyzw) const;
    void setMat3(const char* uniform, const float* elements) const;
    void setMat4(const char* uniform, const float* elements) const;

    unsigned programId() const { return program_.name(); }
    const std::string& name() const { return name_; }
    /// Index into the program table that build() was given; -1 before.
    int variant() const { return variant_; }

  private:
    int location(const char* uniform) const;

    // The shaders go before the program that they are attached to.
    GLProgram program_;
    GLVertexShader vertexShader_;
    GLFragmentShader fragmentShader_;
    std::string name_;
    int variant_ = -1;
};

} // namespace ogl
