// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "gpu/shader_program.h"

#include "gl/debug_listener.h"
#include "gl/gl_fixture.h"
#include "render/program_sources.h"

#include <algorithm>
#include <span>
#include <string>
#include <utility>

namespace ogl {
namespace {

constexpr int kNotGlsl = 100; // a text that no compiler takes

class ShaderProgramTest : public test::GLTest {
  protected:
    ShaderProgramTest() { initProgramSources(table_); }
    void TearDown() override {
        test::GLTest::TearDown();
        for (const GLKind kind : {GLKind::Program, GLKind::VertexShader, GLKind::FragmentShader})
            EXPECT_EQ(liveObjects(kind), 0);
    }
    std::string logFile() const { return test::readFile(folder_.file("ogl.log")); }

    ProgramSourceTable table_;
};

bool isLinked(const ShaderProgram& program) {
    GLint linked = 0;
    glGetProgramiv(program.programId(), GL_LINK_STATUS, &linked);
    return linked != 0;
}

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
        EXPECT_TRUE(isLinked(*program));
        EXPECT_EQ(linkLog(*program), "");
        EXPECT_EQ(program->variant(), index);
        program->use();
        ShaderProgram::useNone();
    }
    EXPECT_EQ(logFile().find("[Shader]"), std::string::npos);
}

TEST_F(ShaderProgramTest, CompileLogsAreWrittenUnderTheProgramsName) {
    const struct {
        const char* name;
        int vertex, fragment;
    } rows[] = {
        {"bad fragment", 103, kNotGlsl},
        {"bad vertex", kNotGlsl, 104},
        {"two bad ones", kNotGlsl, kNotGlsl},
    };
    for (const auto& row : rows) {
        table_[kObjShader] = {row.name, row.vertex, row.fragment};
        const auto program = buildProgram(table_, kObjShader, context_->errorLog);
        EXPECT_FALSE(isLinked(*program)) << row.name;
        program->use(); // what GL refuses here is told by its debug output
        ShaderProgram::useNone();
        test::acceptDebugMessages();
        while (glGetError() != GL_NO_ERROR)
            ;
    }
    const std::string log = logFile();
    const size_t section = log.find("[Shader]");
    ASSERT_NE(section, std::string::npos) << log;
    for (const auto& row : rows) {
        const size_t key = log.find(std::string("\n") + row.name + "=", section);
        ASSERT_NE(key, std::string::npos) << row.name << log;
        EXPECT_NE(log.find("error", key), std::string::npos) << row.name;
    }
}

constexpr char kVertexSource[] = "#version 120\nvoid main() { gl_Position = ftransform(); }\n";
constexpr char kFragmentSource[] = "#version 120\nvoid main() { gl_FragColor = vec4(1.0); }\n";

/// A source of unknown words: `word`0, `word`1 and so on.
std::string wrongSource(const std::string& word, int statements) {
    std::string source = "#version 120\nvoid main() {\n";
    for (int i = 0; i < statements; ++i)
        source += word + std::to_string(i) + " = 1.0;\n";
    return source + "}\n";
}

TEST_F(ShaderProgramTest, OfTwoLogsTheFragmentsIsKeptAndTheLengthsAreSummed) {
    std::array<char, kShaderLogSize> log{};
    ShaderProgram vertexBad;
    const int vertexLength =
        vertexBad.build("a", 0, wrongSource("vertexWord", 3), kFragmentSource, log);
    const std::string vertexLog = log.data();
    EXPECT_NE(vertexLog.find("vertexWord2"), std::string::npos);
    EXPECT_EQ(static_cast<size_t>(vertexLength), vertexLog.size());

    log.fill('\0');
    ShaderProgram fragmentBad;
    const int fragmentLength =
        fragmentBad.build("b", 0, kVertexSource, wrongSource("fragmentWord", 1), log);
    const std::string fragmentLog = log.data();

    ShaderProgram bothBad;
    EXPECT_EQ(
        bothBad.build("c", 0, wrongSource("vertexWord", 3), wrongSource("fragmentWord", 1), log),
        vertexLength + fragmentLength);
    EXPECT_EQ(std::string(log.data()), fragmentLog);
    test::acceptDebugMessages();
}

TEST_F(ShaderProgramTest, LogsAreCutToTheBuffer) {
    constexpr size_t kSize = 64;
    std::array<char, 2 * kSize> memory;
    memory.fill('#');
    ShaderProgram program;
    const int length = program.build("long", 0, kVertexSource, wrongSource("unknownWord", 4),
                                     std::span(memory).first(kSize));
    EXPECT_EQ(length, static_cast<int>(kSize) - 1);
    EXPECT_EQ(memory[kSize - 1], '\0');
    EXPECT_EQ(std::count(memory.begin() + kSize, memory.end(), '#'), static_cast<long>(kSize));
    test::acceptDebugMessages();
}

// Those that no program of the library has a use for so far.
TEST_F(ShaderProgramTest, ArraysAndSmallMatricesTakeTheirValues) {
    ShaderProgram program;
    std::array<char, kShaderLogSize> log{};
    ASSERT_EQ(
        program.build("uniforms", 0, kVertexSource,
                      "#version 120\n"
                      "uniform vec2 v; uniform float fs[3]; uniform int is[2];\n"
                      "uniform mat3 m;\n"
                      "void main() { gl_FragColor = vec4(v.x, fs[2], float(is[1]), m[1].x); }\n",
                      log),
        0)
        << log.data();
    program.use();
    const float values[] = {1, 2, 3, 4, 5, 6, 7, 8, 9};
    const int integers[] = {5, -6};
    program.setVec2v("v", values);
    program.setFloatArray("fs", 3, values);
    program.setIntArray("is", 2, integers);
    program.setMat3("m", values);
    const auto first = [&](const char* uniform) {
        float read[9] = {};
        glGetUniformfv(program.programId(), glGetUniformLocation(program.programId(), uniform),
                       read);
        return std::pair{read[0], read[1]};
    };
    EXPECT_EQ(first("v"), std::pair(1.0f, 2.0f));
    EXPECT_EQ(first("fs[2]").first, 3.0f);
    EXPECT_EQ(first("is[1]").first, -6.0f);
    EXPECT_EQ(first("m"), std::pair(1.0f, 2.0f)); // a column
    program.setFloat("unknown", 1.0f);            // ignored
    ShaderProgram::useNone();
}

} // namespace
} // namespace ogl
