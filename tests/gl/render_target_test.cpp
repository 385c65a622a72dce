// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "gl/debug_listener.h"
#include "gl/gl_fixture.h"
#include "gpu/frame_target_set.h"
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

TEST_F(RenderTargetTest, TakesEveryFormatThatCanBeDrawnInto) {
    const struct {
        const char* name;
        ColorFormat format;
        GLint redBits, alphaBits;
        int minification;
    } rows[] = {
        {"RGB8", ColorFormat::Rgb8, 8, 0, GL_LINEAR},
        {"RGBA8", ColorFormat::Rgba8, 8, 8, GL_LINEAR},
        {"RGBA16", ColorFormat::Rgba16Mipmapped, 16, 16, GL_LINEAR_MIPMAP_LINEAR},
        {"RGBA16F with mipmaps", ColorFormat::Rgba16fMipmapped, 16, 16, GL_LINEAR_MIPMAP_LINEAR},
        {"RGBA16F", ColorFormat::Rgba16f, 16, 16, GL_LINEAR},
        {"RGBA32F", ColorFormat::Rgba32f, 32, 32, GL_NEAREST},
    };
    for (const auto& row : rows) {
        RenderTarget target;
        ASSERT_TRUE(
            target.create(layoutOf(TargetKind::Texture2D, 1, DepthMode::None, 0, row.format)))
            << row.name;
        GLint red = 0, alpha = 0, minification = 0;
        glBindTexture(GL_TEXTURE_2D, target.colorTexture(0));
        glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, GL_TEXTURE_RED_SIZE, &red);
        glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, GL_TEXTURE_ALPHA_SIZE, &alpha);
        glGetTexParameteriv(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, &minification);
        glBindTexture(GL_TEXTURE_2D, 0);
        EXPECT_EQ(red, row.redBits) << row.name;
        EXPECT_EQ(alpha, row.alphaBits) << row.name;
        EXPECT_EQ(minification, row.minification) << row.name;
    }
}

TEST_F(RenderTargetTest, MakesNothingOfWhatIsNoLayout) {
    const auto changed = [](auto change) {
        TargetLayout layout = layoutOf(TargetKind::Texture2D, 1, DepthMode::None);
        change(layout);
        return layout;
    };
    const struct {
        const char* name;
        TargetLayout layout;
    } rows[] = {
        {"no width", changed([](TargetLayout& l) { l.width = 0; })},
        {"negative height", changed([](TargetLayout& l) { l.height = -5; })},
        {"kind 5", changed([](TargetLayout& l) { l.kind = static_cast<TargetKind>(5); })},
        {"kind -1", changed([](TargetLayout& l) { l.kind = static_cast<TargetKind>(-1); })},
        {"format 8", changed([](TargetLayout& l) { l.format = static_cast<ColorFormat>(8); })},
        {"depth mode 3", changed([](TargetLayout& l) { l.depth = static_cast<DepthMode>(3); })},
        {"nine colours", changed([](TargetLayout& l) { l.colorCount = 9; })},
    };
    for (const auto& row : rows) {
        RenderTarget target;
        EXPECT_FALSE(target.create(row.layout)) << row.name;
        EXPECT_FALSE(target.exists()) << row.name;
    }
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

TEST_F(RenderTargetTest, KeepsTheDepthOfADepthTexture) {
    RenderTarget target;
    ASSERT_TRUE(target.create(layoutOf(TargetKind::DepthOnly, 0, DepthMode::None)));
    target.bind();
    target.setAllDrawBuffers();
    EXPECT_EQ(bound(GL_DRAW_BUFFER), GL_NONE);
    glClearDepth(0.5);
    glClear(GL_DEPTH_BUFFER_BIT);
    glClearDepth(1.0);
    target.unbind();
    std::vector<float> depths(static_cast<size_t>(kWidth * kHeight));
    glBindTexture(GL_TEXTURE_2D, target.depthTexture());
    glGetTexImage(GL_TEXTURE_2D, 0, GL_DEPTH_COMPONENT, GL_FLOAT, depths.data());
    glBindTexture(GL_TEXTURE_2D, 0);
    for (const float depth : depths)
        ASSERT_NEAR(depth, 0.5f, 1e-4f);
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

class FrameTargetSetTest : public RenderTargetTest {};

TEST_F(FrameTargetSetTest, MakesTheTargetsOfADeferredFrame) {
    FrameTargetSet set;
    set.ensure(20, 10, nullptr, 4);
    const struct {
        const char* name;
        const RenderTarget& target;
        TargetKind kind;
        int colors, samples;
        bool depth;
    } rows[] = {
        {"G-buffer", *set.gBuffer, TargetKind::Texture2D, 3, 4, true},
        {"light", *set.lightTarget, TargetKind::Rectangle, 2, 0, false},
        {"edges", *set.edgeTarget, TargetKind::Texture2D, 1, 0, false},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.target.width(), 20) << row.name;
        EXPECT_EQ(row.target.height(), 10) << row.name;
        EXPECT_EQ(row.target.layout().kind, row.kind) << row.name;
        EXPECT_EQ(row.target.samples(), row.samples) << row.name;
        EXPECT_NE(row.target.colorTexture(row.colors - 1), 0u) << row.name;
        EXPECT_EQ(row.target.colorTexture(row.colors), 0u) << row.name;
        EXPECT_EQ(row.target.depthTexture() != 0, row.depth) << row.name;
    }
}

TEST_F(FrameTargetSetTest, ReplacesThemWithTheSizeOnly) {
    FrameTargetSet set;
    set.ensure(20, 10, nullptr, 0);
    set.noiseTexture.create();
    const int textures = liveObjects(GLKind::Texture);
    const RenderTarget* gBuffer = set.gBuffer.get();
    set.ensure(20, 10, nullptr, 4);
    EXPECT_EQ(set.gBuffer.get(), gBuffer);
    EXPECT_EQ(set.gBuffer->samples(), 0);
    EXPECT_TRUE(set.noiseTexture.exists());
    set.ensure(20, 11, nullptr, 4);
    EXPECT_EQ(set.gBuffer->height(), 11);
    EXPECT_EQ(set.gBuffer->samples(), 4);
    EXPECT_FALSE(set.noiseTexture.exists());
    EXPECT_EQ(liveObjects(GLKind::Texture), textures - 1);
}

} // namespace
} // namespace ogl
