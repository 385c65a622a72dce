// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "gl/deferred_bench.h"

#include "gpu/screen_quad.h"

namespace ogl::test {

namespace {

constexpr char kVertexSource[] = "#version 150 compatibility\n"
                                 "void main() { gl_Position = ftransform(); }\n";
constexpr char kReaderSource[] =
    "#version 150 compatibility\n"
    "uniform sampler2DMS attachment;\n"
    "uniform int number;\n"
    "void main() {\n"
    "    gl_FragColor = texelFetch(attachment, ivec2(gl_FragCoord.xy), number);\n"
    "}\n";

} // namespace

void DeferredBench::SetUp() {
    ShaderBench::SetUp();
    programs_.build(kObjShader, context_->errorLog);
    reader_ = std::make_unique<ShaderProgram>();
    std::array<char, kShaderLogSize> log{};
    ASSERT_EQ(reader_->build("reader", 0, kVertexSource, kReaderSource, log), 0) << log.data();
}

void DeferredBench::TearDown() {
    programs_ = {};
    reader_.reset();
    targets_ = {};
    ShaderBench::TearDown();
}

void DeferredBench::makeTargets(int samples) {
    targets_.ensure(width_, height_, nullptr, samples);
    ASSERT_EQ(targets_.gBuffer->samples(), samples);
    glViewport(0, 0, width_, height_);
}

const FrameView& DeferredBench::frame() {
    frame_ = std::make_unique<FrameView>(
        FrameView{targets_, width_, height_, targets_.gBuffer->samples(), kEye});
    return *frame_;
}

void DeferredBench::expectNeutralState() const {
    const struct {
        const char* name;
        GLenum query;
        GLint value;
    } rows[] = {
        {"program", GL_CURRENT_PROGRAM, 0},       {"framebuffer", GL_FRAMEBUFFER_BINDING, 0},
        {"unit", GL_ACTIVE_TEXTURE, GL_TEXTURE0}, {"draw buffer", GL_DRAW_BUFFER, GL_BACK},
        {"read buffer", GL_READ_BUFFER, GL_BACK},
    };
    for (const auto& row : rows) {
        GLint value = -1;
        glGetIntegerv(row.query, &value);
        EXPECT_EQ(value, row.value) << row.name;
    }
    for (unsigned unit = 0; unit < 8; ++unit) {
        glActiveTexture(GL_TEXTURE0 + unit);
        EXPECT_FALSE(glIsEnabled(GL_TEXTURE_2D)) << unit;
        EXPECT_FALSE(glIsEnabled(GL_TEXTURE_RECTANGLE)) << unit;
    }
    glActiveTexture(GL_TEXTURE0);
}

std::vector<Texel> DeferredBench::surfacesOf(int attachment, int sample) {
    return drawnBy([&] {
        reader_->use();
        reader_->setInt("attachment", 0);
        reader_->setInt("number", sample);
        bindSurfaces(frame(), 0, attachment);
        drawScreenQuad();
    });
}

std::vector<Texel> DeferredBench::drawnBy(const std::function<void()>& pass) {
    return drawOutputs(pass)[0];
}

} // namespace ogl::test
