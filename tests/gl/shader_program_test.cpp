// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "gpu/shader_program.h"

#include "gl/gl_fixture.h"
#include "render/program_sources.h"

#include <string>

namespace ogl {
namespace {

class ShaderProgramTest : public test::GLTest {
  protected:
    ShaderProgramTest() { initProgramSources(table_); }

    ProgramSourceTable table_;
};

/// The log that linking left.
std::string linkLog(const ShaderProgram& program) {
    char text[kShaderLogSize] = {};
    glGetProgramInfoLog(program.programId(), sizeof text, nullptr, text);
    return text;
}

TEST_F(ShaderProgramTest, EveryProgramCompilesAndLinksWithoutALog) {
    for (int i = 0; i < kProgramCount; ++i) {
        const auto index = static_cast<ProgramIndex>(i);
        const ProgramSource& source = table_[static_cast<size_t>(i)];
        SCOPED_TRACE(std::string(source.name) + " " + std::to_string(source.fragmentResource));
        const auto program = buildProgram(table_, index, context_->errorLog);
        GLint linked = 0;
        glGetProgramiv(program->programId(), GL_LINK_STATUS, &linked);
        EXPECT_TRUE(linked);
        EXPECT_EQ(linkLog(*program), "");
        EXPECT_EQ(program->variant(), index);
        program->use();
        ShaderProgram::useNone();
    }
    EXPECT_EQ(test::readFile(folder_.file("ogl.log")).find("[Shader]"), std::string::npos);
}

} // namespace
} // namespace ogl
