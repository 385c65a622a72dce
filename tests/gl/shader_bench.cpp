// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "gl/shader_bench.h"

#include "gpu/screen_quad.h"
#include "gpu/texture.h"

#include <algorithm>
#include <cmath>

namespace ogl::test {

namespace {

constexpr char kVertexSource[] = "#version 120\n"
                                 "void main() { gl_Position = ftransform(); }\n";
constexpr char kWriterSource[] = "#version 120\n"
                                 "#extension GL_ARB_texture_rectangle : enable\n"
                                 "uniform sampler2DRect place, surface, color;\n"
                                 "void main() {\n"
                                 "    gl_FragData[0] = texture2DRect(place, gl_FragCoord.xy);\n"
                                 "    gl_FragData[1] = texture2DRect(surface, gl_FragCoord.xy);\n"
                                 "    gl_FragData[2] = texture2DRect(color, gl_FragCoord.xy);\n"
                                 "}\n";

Vec4 encodedNormal(const Surface& s) {
    const Vec3 n = s.normal;
    if (n.z < -0.999f)
        return {0.853553390f, 0.853553390f, s.id, s.specular};
    const float p = std::sqrt(8.0f * n.z + 8.0f);
    return {n.x / p + 0.5f, n.y / p + 0.5f, s.id, s.specular};
}

void finish() {
    ShaderProgram::useNone();
    for (int unit = 7; unit >= 0; --unit)
        resetTextureUnit(unit);
}

} // namespace

Surface uncovered() {
    Surface s;
    s.place = {0.3f, 0.3f, 0.3f};
    s.shininess = 1.0f;
    // What the clear value 0.3, 0.3 decodes to.
    const float g = std::sqrt(1.0f - 1.28f / 4.0f);
    s.normal = {-0.8f * g, -0.8f * g, 1.0f - 1.28f / 2.0f};
    s.id = 0.3f;
    s.specular = 1.0f;
    s.reflection = 1.0f;
    return s;
}

void ShaderBench::SetUp() {
    GLTest::SetUp();
    glDisable(GL_CULL_FACE);
    glClampColor(GL_CLAMP_VERTEX_COLOR, GL_FALSE);
    glClampColor(GL_CLAMP_FRAGMENT_COLOR, GL_FALSE);
    writer_ = std::make_unique<ShaderProgram>();
    std::array<char, kShaderLogSize> log{};
    ASSERT_EQ(writer_->build("writer", 0, kVertexSource, kWriterSource, log), 0) << log.data();
    setSize(width_, height_);
}

void ShaderBench::TearDown() {
    finish();
    writer_.reset();
    program_.reset();
    gBuffer_.release();
    output_.release();
    GLTest::TearDown();
}

void ShaderBench::setSize(int newWidth, int newHeight) {
    width_ = newWidth;
    height_ = newHeight;
    output_.release();
    ASSERT_TRUE(output_.create(
        {TargetKind::Texture2D, width_, height_, 3, DepthMode::None, 0, ColorFormat::Rgba32f}));
}

void ShaderBench::fillGBuffer(const std::vector<std::vector<Surface>>& samples) {
    gBuffer_.release();
    ASSERT_TRUE(gBuffer_.create({TargetKind::Texture2D, width_, height_, 3, DepthMode::None,
                                 static_cast<int>(samples.size()), ColorFormat::Rgba32f}));
    ASSERT_EQ(gBuffer_.samples(), static_cast<int>(samples.size()));
    writeSurfaces(gBuffer_, samples);
}

void ShaderBench::writeSurfaces(RenderTarget& target,
                                const std::vector<std::vector<Surface>>& samples) {
    target.bind();
    target.setAllDrawBuffers();
    glViewport(0, 0, width_, height_);
    glEnable(GL_SAMPLE_MASK);
    writer_->use();
    writer_->setInt("place", 0);
    writer_->setInt("surface", 1);
    writer_->setInt("color", 2);
    for (size_t i = 0; i < samples.size(); ++i) {
        std::vector<Texel> place, surface, color;
        for (const Surface& s : samples[i]) {
            const Vec4 n = encodedNormal(s);
            place.push_back({s.place.x, s.place.y, s.place.z, s.shininess});
            surface.push_back({n.x, n.y, n.z, n.w});
            color.push_back({s.diffuse.x, s.diffuse.y, s.diffuse.z, s.reflection});
        }
        const GLTexture textures[] = {makeTexture(GL_TEXTURE_RECTANGLE, width_, height_, place),
                                      makeTexture(GL_TEXTURE_RECTANGLE, width_, height_, surface),
                                      makeTexture(GL_TEXTURE_RECTANGLE, width_, height_, color)};
        for (int unit = 0; unit < 3; ++unit)
            bindTexture(unit, TextureKind::Rectangle, textures[unit].name(), GL_NEAREST, 1.0f);
        glSampleMaski(0, 1u << i);
        drawScreenQuad();
    }
    glDisable(GL_SAMPLE_MASK);
    finish();
    target.unbind();
}

void ShaderBench::writeTexels(RenderTarget& target, int attachment,
                              const std::vector<Texel>& texels) {
    const GLTexture texture = makeTexture(GL_TEXTURE_RECTANGLE, width_, height_, texels);
    target.bind();
    target.setDrawBuffer(attachment);
    glViewport(0, 0, width_, height_);
    writer_->use();
    writer_->setInt("place", 0);
    bindTexture(0, TextureKind::Rectangle, texture.name(), GL_NEAREST, 1.0f);
    drawScreenQuad();
    finish();
    target.unbind();
}

std::vector<Texel> ShaderBench::texelsOf(RenderTarget& target, int attachment) const {
    std::vector<Texel> texels(pixels());
    target.bind();
    target.setReadBuffer(attachment);
    glReadPixels(0, 0, width_, height_, GL_RGBA, GL_FLOAT, texels.data());
    target.unbind();
    return texels;
}

GLTexture ShaderBench::makeTexture(unsigned target, int width, int height,
                                   const std::vector<Texel>& texels) {
    EXPECT_EQ(texels.size(), static_cast<size_t>(width) * static_cast<size_t>(height));
    GLTexture texture;
    texture.create();
    glActiveTexture(GL_TEXTURE7); // no test reads it
    glBindTexture(target, texture.name());
    glTexImage2D(target, 0, GL_RGBA32F, width, height, 0, GL_RGBA, GL_FLOAT, texels.data());
    glTexParameteri(target, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    glTexParameteri(target, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    glBindTexture(target, 0);
    return texture;
}

GLTexture ShaderBench::plainTexture(unsigned target, Texel value) const {
    return makeTexture(target, width_, height_, std::vector<Texel>(pixels(), value));
}

void ShaderBench::bindGBuffer(int unit, int index) const {
    bindTexture(unit, TextureKind::Multisample, gBuffer_.colorTexture(index), GL_NEAREST, 1.0f);
}

ShaderProgram& ShaderBench::use(ProgramIndex index) {
    ProgramSourceTable table;
    initProgramSources(table);
    program_ = buildProgram(table, index, context_->errorLog);
    program_->use();
    return *program_;
}

std::vector<Texel> ShaderBench::draw() {
    return drawOutputs([] { drawScreenQuad(); })[0];
}

std::array<std::vector<Texel>, 3> ShaderBench::drawOutputs(const std::function<void()>& geometry) {
    std::array<std::vector<Texel>, 3> result;
    output_.bind();
    output_.setAllDrawBuffers();
    glViewport(0, 0, width_, height_);
    glClearColor(kClear[0], kClear[1], kClear[2], kClear[3]);
    glClear(GL_COLOR_BUFFER_BIT);
    geometry();
    for (int i = 0; i < 3; ++i) {
        std::vector<Texel>& texels = result[static_cast<size_t>(i)];
        texels.resize(pixels());
        output_.setReadBuffer(i);
        glReadPixels(0, 0, width_, height_, GL_RGBA, GL_FLOAT, texels.data());
    }
    output_.unbind();
    finish();
    return result;
}

void expectTexel(const Texel& actual, const Texel& expected, float tolerance) {
    for (size_t i = 0; i < 4; ++i)
        EXPECT_NEAR(actual[i], expected[i], tolerance * std::max(1.0f, std::abs(expected[i])))
            << "channel " << i;
}

} // namespace ogl::test
