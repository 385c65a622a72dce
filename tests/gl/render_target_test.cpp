// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "gl/debug_listener.h"
#include "gl/gl_fixture.h"
#include "gpu/render_target.h"

namespace ogl {
namespace {

constexpr int kWidth = 7;
constexpr int kHeight = 5;

constexpr TargetLayout layoutOf(TargetKind kind, int colors, DepthMode depth, int samples = 0,
                                ColorFormat format = ColorFormat::Rgba8) {
    return {kind, kWidth, kHeight, colors, depth, samples, format};
}

class RenderTargetTest : public test::GLTest {
  protected:
    void TearDown() override {
        test::GLTest::TearDown();
        EXPECT_EQ(liveObjects(GLKind::Framebuffer), 0);
        EXPECT_EQ(liveObjects(GLKind::Renderbuffer), 0);
    }
    static GLint bound(GLenum name) {
        GLint value = -1;
        glGetIntegerv(name, &value);
        return value;
    }
    /// Fills the selected buffers; `shade` is red, its inverse green.
    static void fill(float shade) {
        glClearColor(shade, 1.0f - shade, 0.0f, 1.0f);
        glClear(GL_COLOR_BUFFER_BIT);
    }
    static int redAt(int x, int y) {
        uint8_t pixel[4] = {};
        glReadPixels(x, y, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, pixel);
        return pixel[0];
    }
};

TEST_F(RenderTargetTest, IsCompleteInEveryKindAndDepthMode) {
    const struct {
        const char* name;
        TargetLayout layout;
        bool complete;
    } rows[] = {
        {"renderbuffer", layoutOf(TargetKind::Renderbuffer, 1, DepthMode::None), true},
        {"renderbuffer, depth", layoutOf(TargetKind::Renderbuffer, 1, DepthMode::Shared), true},
        {"renderbuffer, depth alone", layoutOf(TargetKind::Renderbuffer, 0, DepthMode::Shared),
         true},
        {"renderbuffer, 4 samples", layoutOf(TargetKind::Renderbuffer, 1, DepthMode::Shared, 4),
         true},
        {"2D", layoutOf(TargetKind::Texture2D, 3, DepthMode::None), true},
        {"2D, depth", layoutOf(TargetKind::Texture2D, 3, DepthMode::Shared), true},
        {"2D, a depth each", layoutOf(TargetKind::Texture2D, 3, DepthMode::PerAttachment), true},
        {"2D, 4 samples", layoutOf(TargetKind::Texture2D, 3, DepthMode::Shared, 4), true},
        {"2D, 4 samples, depths without",
         layoutOf(TargetKind::Texture2D, 2, DepthMode::PerAttachment, 4), false},
        {"RGB8", layoutOf(TargetKind::Texture2D, 1, DepthMode::None, 0, ColorFormat::Rgb8), true},
        {"RGBA16 with mipmaps",
         layoutOf(TargetKind::Texture2D, 1, DepthMode::None, 0, ColorFormat::Rgba16Mipmapped),
         true},
        {"RGBA16F with mipmaps",
         layoutOf(TargetKind::Texture2D, 1, DepthMode::None, 0, ColorFormat::Rgba16fMipmapped),
         true},
        {"RGBA16F", layoutOf(TargetKind::Texture2D, 1, DepthMode::None, 0, ColorFormat::Rgba16f),
         true},
        {"rectangle", layoutOf(TargetKind::Rectangle, 2, DepthMode::None), true},
        {"rectangle, depth", layoutOf(TargetKind::Rectangle, 2, DepthMode::Shared), true},
        {"rectangle, a depth each", layoutOf(TargetKind::Rectangle, 2, DepthMode::PerAttachment),
         true},
        {"depth only", layoutOf(TargetKind::DepthOnly, 0, DepthMode::None), true},
        {"nothing at all", layoutOf(TargetKind::Texture2D, 0, DepthMode::None), false},
    };
    for (const auto& row : rows) {
        RenderTarget target;
        EXPECT_EQ(target.create(row.layout), row.complete) << row.name;
        EXPECT_FALSE(target.create(row.layout)) << row.name << " a second time";
        EXPECT_EQ(bound(GL_FRAMEBUFFER_BINDING), 0) << row.name;
        EXPECT_EQ(bound(GL_DRAW_BUFFER), GL_BACK) << row.name;
        EXPECT_EQ(bound(GL_READ_BUFFER), GL_BACK) << row.name;
        if (!row.complete)
            test::acceptDebugMessages(); // the driver explains
    }
    RenderTarget cube; // faces are square
    EXPECT_TRUE(
        cube.create({TargetKind::CubeMap, 8, 8, 1, DepthMode::None, 0, ColorFormat::Rgba8}));
}

TEST_F(RenderTargetTest, ClampsSamplesAndCountsFromWhereTheKindDoes) {
    const int most = bound(GL_MAX_COLOR_TEXTURE_SAMPLES);
    const int mostRenderbuffer = bound(GL_MAX_SAMPLES);
    ASSERT_GE(most, 2);
    const struct {
        const char* name;
        TargetKind kind;
        int samples, expected;
    } rows[] = {
        {"texture, none", TargetKind::Texture2D, 0, 0},
        {"texture, one", TargetKind::Texture2D, 1, 1},
        {"texture, too many", TargetKind::Texture2D, 1000, most},
        {"renderbuffer, one", TargetKind::Renderbuffer, 1, 0},
        {"renderbuffer, too many", TargetKind::Renderbuffer, 1000, mostRenderbuffer},
        {"rectangle, four", TargetKind::Rectangle, 4, 0},
    };
    for (const auto& row : rows) {
        RenderTarget target;
        EXPECT_TRUE(target.create(layoutOf(row.kind, 1, DepthMode::Shared, row.samples)))
            << row.name;
        EXPECT_EQ(target.samples(), row.expected) << row.name;
        target.bind();
        target.setDrawBuffer(0);
        EXPECT_EQ(bound(GL_SAMPLE_BUFFERS) != 0, row.expected >= 1) << row.name;
        target.unbind();
    }
}

TEST_F(RenderTargetTest, SelectsOneAttachmentOrAll) {
    for (const TargetKind kind : {TargetKind::Texture2D, TargetKind::Rectangle}) {
        RenderTarget target;
        ASSERT_TRUE(target.create(layoutOf(kind, 3, DepthMode::None)));
        target.bind();
        target.setAllDrawBuffers();
        fill(1.0f);
        target.setDrawBuffer(1);
        fill(0.0f);
        const int expected[] = {255, 0, 255};
        for (int i = 0; i < 3; ++i) {
            target.setReadBuffer(i);
            EXPECT_EQ(redAt(kWidth - 1, kHeight - 1), expected[i]) << i;
        }
        target.unbind();
    }
}

TEST_F(RenderTargetTest, GivesEachAttachmentItsOwnDepth) {
    for (const TargetKind kind : {TargetKind::Texture2D, TargetKind::Rectangle}) {
        RenderTarget target;
        ASSERT_TRUE(target.create(layoutOf(kind, 2, DepthMode::PerAttachment)));
        target.bind();
        const float depths[] = {0.25f, 0.75f};
        for (const int i : {0, 1}) {
            target.setDrawBuffer(i);
            EXPECT_EQ(glCheckFramebufferStatus(GL_FRAMEBUFFER),
                      static_cast<GLenum>(GL_FRAMEBUFFER_COMPLETE));
            glClearDepth(static_cast<double>(depths[i]));
            glClear(GL_DEPTH_BUFFER_BIT);
        }
        for (const int i : {0, 1}) {
            float depth = 0.0f;
            target.setReadBuffer(i);
            glReadPixels(1, 1, 1, 1, GL_DEPTH_COMPONENT, GL_FLOAT, &depth);
            EXPECT_NEAR(depth, depths[i], 1e-4f) << i;
        }
        target.unbind();
        EXPECT_NE(target.depthTexture(0), target.depthTexture(1));
    }
    glClearDepth(1.0);
}

TEST_F(RenderTargetTest, DrawsIntoTheFacesOfACube) {
    RenderTarget target;
    ASSERT_TRUE(
        target.create({TargetKind::CubeMap, 4, 4, 1, DepthMode::None, 0, ColorFormat::Rgba8}));
    target.bind();
    for (int face = 0; face < 6; ++face) {
        target.setDrawBuffer(face);
        fill(static_cast<float>(face) / 5.0f);
    }
    target.setDrawBuffer(6); // no such face
    target.unbind();
    glBindTexture(GL_TEXTURE_CUBE_MAP, target.colorTexture(0));
    for (unsigned face = 0; face < 6; ++face) {
        uint8_t texels[4 * 4 * 4] = {};
        glGetTexImage(GL_TEXTURE_CUBE_MAP_POSITIVE_X + face, 0, GL_RGBA, GL_UNSIGNED_BYTE, texels);
        EXPECT_EQ(texels[0], 51 * face) << face;
    }
    glBindTexture(GL_TEXTURE_CUBE_MAP, 0);
}

TEST_F(RenderTargetTest, RestoresWhatWasBoundBefore) {
    RenderTarget outer;
    RenderTarget inner;
    ASSERT_TRUE(outer.create(layoutOf(TargetKind::Texture2D, 2, DepthMode::None)));
    ASSERT_TRUE(inner.create(layoutOf(TargetKind::Texture2D, 1, DepthMode::None)));
    outer.bind();
    outer.setDrawBuffer(1);
    outer.setReadBuffer(1);
    inner.bind();
    inner.bind(); // once more changes nothing
    inner.setDrawBuffer(0);
    fill(1.0f);
    inner.unbind();
    fill(0.0f);
    EXPECT_EQ(redAt(0, 0), 0);
    inner.bind();
    inner.setReadBuffer(0);
    EXPECT_EQ(redAt(0, 0), 255);
    inner.release(); // while bound
    EXPECT_EQ(bound(GL_DRAW_BUFFER), GL_COLOR_ATTACHMENT1);
    EXPECT_EQ(redAt(0, 0), 0);
    outer.unbind();
    EXPECT_EQ(bound(GL_DRAW_BUFFER), GL_BACK);
}

} // namespace
} // namespace ogl
