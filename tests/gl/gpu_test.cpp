// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/edge_renderer.h"
#include "gl/debug_listener.h"
#include "gl/gl_fixture.h"
#include "gpu/gl_debug.h"
#include "gpu/gl_state.h"
#include "gpu/mesh_vertex_array.h"
#include "gpu/texture.h"
#include "render/light.h"
#include "support/captured_output.h"

#include <cstring>

namespace ogl {
namespace {

class GpuTest : public test::GLTest {};

std::vector<uint8_t> texelsOf(const GLTexture& texture, int width, int height) {
    std::vector<uint8_t> texels(static_cast<size_t>(width) * static_cast<size_t>(height) * 4);
    glBindTexture(GL_TEXTURE_2D, texture.name());
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glGetTexImage(GL_TEXTURE_2D, 0, GL_RGBA, GL_UNSIGNED_BYTE, texels.data());
    glBindTexture(GL_TEXTURE_2D, 0);
    glDisable(GL_TEXTURE_2D);
    return texels;
}

TEST_F(GpuTest, TexturesKeepTheirPixelsInEveryFormat) {
    // 3 x 2 pixels; the first of the second row is looked at. Only BGR rows are padded.
    const struct {
        const char* name;
        unsigned format;
        std::vector<uint8_t> pixels;
        uint8_t expected[4];
    } rows[] = {
        {"RGB",
         GL_RGB,
         {0, 0, 0, 0, 0, 0, 0, 0, 0, 10, 20, 30, 0, 0, 0, 0, 0, 0},
         {10, 20, 30, 255}},
        {"BGR",
         GL_BGR,
         {0, 0, 0, 0, 0, 0, 0, 0, 0, 9, 9, 9, 10, 20, 30, 0, 0, 0, 0, 0, 0, 9, 9, 9},
         {30, 20, 10, 255}},
        {"RGBA",
         GL_RGBA,
         {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 10, 20, 30, 40, 0, 0, 0, 0, 0, 0, 0, 0},
         {10, 20, 30, 40}},
        {"BGRA",
         GL_BGRA,
         {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 10, 20, 30, 40, 0, 0, 0, 0, 0, 0, 0, 0},
         {30, 20, 10, 40}},
        {"grey", GL_LUMINANCE, {0, 0, 0, 77, 0, 0}, {77, 77, 77, 255}},
    };
    for (const auto& row : rows) {
        const GLTexture texture =
            createTexture2D(TextureKind::Repeating, row.format, 3, 2, row.pixels.data());
        const auto texels = texelsOf(texture, 3, 2);
        // A luminance texture reads back as red alone.
        const int channels = row.format == GL_LUMINANCE ? 1 : 4;
        for (int i = 0; i < channels; ++i)
            EXPECT_EQ(texels[static_cast<size_t>(12 + i)], row.expected[i]) << row.name;
    }
}

TEST_F(GpuTest, CubeTexturesShowTheImageOnAllFaces) {
    const uint8_t pixels[2 * 2 * 4] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};
    const GLTexture cube = createTexture2D(TextureKind::Cube, GL_RGBA, 2, 2, pixels);
    bindTexture(2, TextureKind::Cube, cube.name(), GL_LINEAR, 1.0f);
    EXPECT_TRUE(glIsEnabled(GL_TEXTURE_CUBE_MAP));
    for (unsigned face = 0; face < 6; ++face) {
        uint8_t read[sizeof pixels] = {};
        glGetTexImage(GL_TEXTURE_CUBE_MAP_POSITIVE_X + face, 0, GL_RGBA, GL_UNSIGNED_BYTE, read);
        EXPECT_EQ(std::memcmp(read, pixels, sizeof pixels), 0) << face;
    }
    glBindTexture(GL_TEXTURE_CUBE_MAP, 0);
    resetTextureUnit(2);
    EXPECT_FALSE(glIsEnabled(GL_TEXTURE_CUBE_MAP));
    resetTextureUnit(0);
}

TEST_F(GpuTest, BindingSetsUnitFiltersAndWrap) {
    const uint8_t pixel[4] = {};
    const GLTexture texture = createTexture2D(TextureKind::Repeating, GL_RGBA, 1, 1, pixel);
    const struct {
        const char* name;
        TextureKind kind;
        int filter, minification, wrap;
    } rows[] = {
        {"trilinear", TextureKind::Repeating, GL_LINEAR, GL_LINEAR_MIPMAP_LINEAR, GL_REPEAT},
        {"nearest", TextureKind::RepeatingToo, GL_NEAREST, GL_NEAREST, GL_REPEAT},
        {"clamped", TextureKind::Clamped, GL_LINEAR, GL_LINEAR, GL_CLAMP},
    };
    for (const auto& row : rows) {
        bindTexture(1, row.kind, texture.name(), row.filter, 4.0f);
        GLint unit = 0, minification = 0, magnification = 0, wrap = 0;
        glGetIntegerv(GL_ACTIVE_TEXTURE, &unit);
        glGetTexParameteriv(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, &minification);
        glGetTexParameteriv(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, &magnification);
        glGetTexParameteriv(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, &wrap);
        EXPECT_EQ(unit, GL_TEXTURE1) << row.name;
        EXPECT_EQ(minification, row.minification) << row.name;
        EXPECT_EQ(magnification, row.filter) << row.name;
        EXPECT_EQ(wrap, row.wrap) << row.name;
        EXPECT_TRUE(glIsEnabled(GL_TEXTURE_2D)) << row.name;
    }
    resetTextureUnit(1);
    EXPECT_FALSE(glIsEnabled(GL_TEXTURE_2D));
    resetTextureUnit(0);
}

TEST_F(GpuTest, UploadKeepsPositionsAndEmptiesTheRest) {
    MeshVertexArray batch;
    batch.positions = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}};
    batch.normals.assign(3, {0, 0, 1});
    batch.upload(GL_TRIANGLES);
    EXPECT_EQ(batch.vertexCount, 3);
    EXPECT_EQ(batch.positions.size(), 3u);
    EXPECT_TRUE(batch.normals.empty());
    EXPECT_FALSE(batch.tangentBuffer);
    batch.bind(0);
    EXPECT_TRUE(glIsEnabled(GL_NORMAL_ARRAY));
    EXPECT_FALSE(glIsEnabled(GL_TEXTURE_COORD_ARRAY));
    batch.unbind();
    EXPECT_FALSE(glIsEnabled(GL_NORMAL_ARRAY));
    EXPECT_EQ(liveObjects(GLKind::Buffer), 2);
}

TEST_F(GpuTest, ColorsAreBoundOnlyWhenAskedFor) {
    ColorVertexArray batch;
    batch.positions = {{0, 0, 0}, {1, 0, 0}};
    batch.colors.assign(2, {1, 0, 0, 1});
    batch.upload(GL_LINES);
    batch.bind(kDrawPositions);
    EXPECT_FALSE(glIsEnabled(GL_COLOR_ARRAY));
    batch.bind(kDrawPositions | kDrawColors);
    EXPECT_TRUE(glIsEnabled(GL_COLOR_ARRAY));
    batch.unbind();
    EXPECT_FALSE(glIsEnabled(GL_COLOR_ARRAY));
}

TEST_F(GpuTest, BatchesThatWereNeverUploadedDrawNothing) {
    ColorVertexArray batch;
    const uint64_t before = glWork().drawCalls;
    batch.draw(kDrawPositions | kDrawColors);
    batch.drawAs(kDrawPositions, GL_POINTS);
    EXPECT_EQ(glWork().drawCalls, before);
}

TEST_F(GpuTest, ShadowMapsAreBoundWithTheLightsMatrix) {
    SpotLight light;
    light.camera->position = {1, 2, 30};
    light.camera->target = {1, 2, 0};
    light.camera->up = spotUpVector({0, 0, -1});
    light.camera->near = 0.5f;
    light.camera->far = 25.0f;
    light.camera->fov = 1.0f;
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    light.bindShadowMap(4);
    Matrix4f texture{}, view{};
    glGetFloatv(GL_TEXTURE_MATRIX, texture.m);
    glGetFloatv(GL_MODELVIEW_MATRIX, view.m);
    EXPECT_FLOAT_EQ(view.m[0], 1.0f); // restored
    EXPECT_FLOAT_EQ(view.m[14], 0.0f);
    const float farPoint[4] = {1, 2, 5, 1};
    float mapped[4] = {};
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 4; ++column)
            mapped[row] += texture.m[column * 4 + row] * farPoint[column];
    EXPECT_NEAR(mapped[0] / mapped[3], 0.5f, 1e-4f);
    EXPECT_NEAR(mapped[1] / mapped[3], 0.5f, 1e-4f);
    EXPECT_NEAR(mapped[2] / mapped[3], 0.9995f, 1e-4f); // biased against self-shadowing
    resetTextureUnit(4);
    glMatrixMode(GL_TEXTURE);
    glLoadIdentity();
    resetTextureUnit(0);
}

TEST_F(GpuTest, TheRenderersStartFromOneState) {
    glEnable(GL_LINE_STIPPLE);
    glDisable(GL_DEPTH_TEST);
    glEnable(GL_BLEND);
    const float pointSizeMax = resetGLDefaults();
    EXPECT_GE(pointSizeMax, 1.0f);
    EXPECT_LE(pointSizeMax, kPointSizeLimit);
    GLint frontFace = 0, shade = 0, depth = 0, alpha = 0;
    glGetIntegerv(GL_FRONT_FACE, &frontFace);
    glGetIntegerv(GL_SHADE_MODEL, &shade);
    glGetIntegerv(GL_DEPTH_FUNC, &depth);
    glGetIntegerv(GL_ALPHA_TEST_FUNC, &alpha);
    EXPECT_EQ(frontFace, GL_CW);
    EXPECT_EQ(shade, GL_FLAT);
    EXPECT_EQ(depth, GL_LEQUAL);
    EXPECT_EQ(alpha, GL_GEQUAL);
    EXPECT_FALSE(glIsEnabled(GL_LINE_STIPPLE));
    EXPECT_FALSE(glIsEnabled(GL_BLEND));
    EXPECT_TRUE(glIsEnabled(GL_DEPTH_TEST));
    EXPECT_TRUE(glIsEnabled(GL_CULL_FACE));
    EXPECT_TRUE(glIsEnabled(GL_MULTISAMPLE));
    EXPECT_TRUE(glIsEnabled(GL_ALPHA_TEST));
}

TEST_F(GpuTest, ClearsToTheScenesBackgroundOrItsGrey) {
    scene_->geometry().backgroundColor = 0x1e3c5a; // red 90, green 60, blue 30
    select<EdgeRenderer>();
    renderer_->clearBackground();
    EXPECT_TRUE(test::isNear(test::Picture::read(8, 8).at(4, 4), {90, 60, 30}, 1));
    renderer_->drawFlags = kDrawGrey;
    renderer_->clearBackground();
    EXPECT_TRUE(test::isNear(test::Picture::read(8, 8).at(4, 4), {60, 60, 60}, 1));
    EXPECT_NEAR(renderer_->clearColor[0], 60 / 255.0f, 1e-6f);
}

TEST_F(GpuTest, DebugMessagesNameTheirPass) {
    const int before = debugMessageCount();
    test::CapturedOutput output(2);
    {
        const DebugGroup outer("outer pass");
        const DebugGroup inner("inner pass");
        glEnable(0x1234);
    }
    EXPECT_NE(output.stop().find("inner pass"), std::string::npos);
    EXPECT_EQ(debugMessageCount(), before + 1);
    test::acceptDebugMessages();
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_INVALID_ENUM));
}

TEST_F(GpuTest, ReportsObjectsThatAreLeft) {
    GLBuffer buffer;
    buffer.create();
    test::CapturedOutput output(2);
    reportLiveObjects();
    EXPECT_NE(output.stop().find("left over: 1 buffers"), std::string::npos);
}

TEST_F(GpuTest, ForgetsNamesOfViewsThatAreGone) {
    GLBuffer stale;
    stale.create();
    scene_->addObject();
    context_.reset(); // the last view: its objects go with it
    EXPECT_EQ(liveObjects(GLKind::Buffer), 0);
    SetUp();
    GLBuffer fresh;
    fresh.create();
    glBindBuffer(GL_ARRAY_BUFFER, fresh.name());
    stale.reset(); // may have the same number
    EXPECT_EQ(liveObjects(GLKind::Buffer), 1);
    EXPECT_TRUE(glIsBuffer(fresh.name()));
    glBindBuffer(GL_ARRAY_BUFFER, 0);
}

} // namespace
} // namespace ogl
