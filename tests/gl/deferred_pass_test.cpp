// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// The deferred renderer's image passes: what they read, where they draw and what they leave.
#include "deferred/blur_pass.h"
#include "deferred/composite_pass.h"
#include "deferred/fxaa_pass.h"
#include "deferred/sketch_pass.h"
#include "gl/deferred_bench.h"
#include "gl/shading_formulas.h"

namespace ogl {
namespace {

using test::expectTexel;
using test::Surface;
using test::Texel;

constexpr float kHalfPrecision = 1e-3f;
constexpr float kBytePrecision = 2.5e-3f;

class DeferredPassTest : public test::DeferredBench {
  protected:
    void SetUp() override {
        DeferredBench::SetUp();
        setSize(16, 8);
        makeTargets(4);
    }
    /// Fills all samples with surfaces that the pixel's column and row make.
    template <class Make> void fill(Make make) {
        std::vector<Surface> surfaces;
        for (int i = 0; i < width_ * height_; ++i)
            surfaces.push_back(make(i % width_, i / width_));
        writeSurfaces(*targets_.gBuffer, {surfaces, surfaces, surfaces, surfaces});
    }
    std::vector<Texel> plain(Texel value) const { return std::vector<Texel>(pixels(), value); }
    size_t indexOf(int x, int y) const { return static_cast<size_t>(y * width_ + x); }
};

TEST_F(DeferredPassTest, TheBlurGoesFromOneAttachmentToTheOther) {
    std::vector<Texel> light = plain({0.25f, 0.5f, 0.75f, 0.125f});
    light[indexOf(8, 4)] = {1.25f, 0.5f, 0.75f, 0.125f};
    for (const float edge : {0.0f, 1.0f}) {
        SCOPED_TRACE(edge);
        writeTexels(*targets_.edgeTarget, 0, plain({0, 0, 0, edge}));
        writeTexels(*targets_.lightTarget, 0, plain({9, 9, 9, 9}));
        writeTexels(*targets_.lightTarget, 1, light);
        BlurPass{program(kImgEABlur), frame(), 1, 0}.draw();
        expectNeutralState();
        const auto blurred = texelsOf(*targets_.lightTarget, 0);
        expectTexel(blurred[indexOf(4, 4)], light[0], kHalfPrecision);
        // Weights: 4 sides of 1 / 2.7, 4 corners of 1 / 2.7 squared; only the middle is brighter.
        const float weight = 1 + 4 / 2.7f + 4 / (2.7f * 2.7f);
        const float middle = edge > 0 ? 1.25f : 0.25f + 1 / weight;
        expectTexel(blurred[indexOf(8, 4)], {middle, 0.5f, 0.75f, 0.125f}, kHalfPrecision);
        if (edge > 0)
            expectTexel(blurred[indexOf(9, 4)], light[0], kHalfPrecision);
        else
            EXPECT_GT(blurred[indexOf(10, 4)][0], 0.26f);
    }
    // Below 0: into what is bound.
    const auto drawn = drawnBy([&] { BlurPass{program(kImgEABlur), frame(), 1, -1}.draw(); });
    expectTexel(drawn[indexOf(8, 4)], light[indexOf(8, 4)], kHalfPrecision);
}

TEST_F(DeferredPassTest, TheSketchIsWhitePaperWithInkedEdges) {
    const Vec3 ink{0.25f, 0.0f, 0.5f};
    std::vector<Texel> edges = plain({});
    for (int y = 0; y < height_; ++y)
        for (int x = 8; x < width_; ++x)
            edges[indexOf(x, y)][3] = 1;
    writeTexels(*targets_.edgeTarget, 0, edges);
    writeTexels(*targets_.lightTarget, 0, plain({9, 9, 9, 9}));
    SketchPass{program(kImgNpr), frame(), 0.5f, ink, {0, 1, 0}}.draw();
    expectNeutralState();
    const auto sketch = texelsOf(*targets_.lightTarget, 1);
    expectTexel(sketch[indexOf(3, 4)], {1, 1, 1, 1}, kHalfPrecision);
    // Full edges; the noise is at most 1, so the ink fades by at most a quarter and a bit.
    const Texel inked = sketch[indexOf(13, 4)];
    const float fade = inked[1];
    EXPECT_GE(fade, 0.0f);
    EXPECT_LE(fade, 0.5f * (1 * (1 + 0.5f * 0.25f) - 0.5f));
    expectTexel(inked, {ink.x + fade, fade, ink.z + fade, 1}, kHalfPrecision);
    expectTexel(texelsOf(*targets_.lightTarget, 0)[0], {9, 9, 9, 9}, 0);
    EXPECT_TRUE(targets_.noiseTexture.exists());
}

/// The picture of a white light on a grey surface.
Texel greyPicture(const PictureStyle& style, float light, float grey) {
    const float c = light * std::pow(grey, 1.8f);
    const float shade = std::pow(1 - std::exp(-2 * style.exposure * c), style.gamma);
    return {shade, shade, shade, 1};
}

TEST_F(DeferredPassTest, TheCompositeGoesToTheWindowOrToFxaa) {
    fill([](int x, int) {
        Surface s = x < 12 ? Surface{} : test::uncovered();
        s.diffuse = x < 12 ? Vec3{0.5f, 0.5f, 0.5f} : Vec3{0.25f, 0.5f, 1.0f};
        return s;
    });
    writeTexels(*targets_.lightTarget, 0, plain({0.75f, 0.75f, 0.75f, 0}));
    writeTexels(*targets_.lightTarget, 1, plain({0.5f, 1, 1, 1})); // outlines
    const GLTexture noEnvironment;
    PictureStyle style;
    style.exposure = 0.9f;
    style.gamma = 0.6f;
    style.edgeStrength = 0.5f;
    Texel lit = greyPicture(style, 0.75f, 0.5f);
    lit[0] -= 0.25f;

    const auto drawn = drawnBy(
        [&] { CompositePass{program(kImgFinal), frame(), style, noEnvironment, 0, false}.draw(); });
    expectTexel(drawn[indexOf(4, 4)], lit, kHalfPrecision);
    expectTexel(drawn[indexOf(14, 4)], {0.25f, 0.5f, 1, 1}, kHalfPrecision);

    CompositePass{program(kImgFinal), frame(), style, noEnvironment, 0, true}.draw();
    expectNeutralState();
    const auto kept = texelsOf(*targets_.edgeTarget, 0);
    lit[3] = 0.299f * lit[0] + 0.587f * lit[1] + 0.114f * lit[2];
    expectTexel(kept[indexOf(4, 4)], lit, kBytePrecision);
}

TEST_F(DeferredPassTest, FxaaSmoothsTheEdgeTargetUpToTheBorder) {
    std::vector<Texel> stairs;
    for (int i = 0; i < width_ * height_; ++i) {
        const float g = i / width_ >= 3 + i % width_ / 8 ? 1.0f : 0.0f;
        stairs.push_back({g, g, g, g});
    }
    writeTexels(*targets_.edgeTarget, 0, stairs);
    const auto drawn = drawnBy([&] { FxaaPass{program(kImgFxaa), frame()}.draw(); });
    // The step at x = 8; at the left border the run goes on.
    EXPECT_NEAR(drawn[indexOf(8, 3)][0], 0.45f, 0.1f);
    EXPECT_NEAR(drawn[indexOf(7, 3)][0], 0.55f, 0.1f);
    EXPECT_LT(drawn[indexOf(0, 2)][0], 0.06f);
    EXPECT_GT(drawn[indexOf(0, 3)][0], 0.6f);
    expectTexel(drawn[indexOf(4, 0)], {0, 0, 0, 1}, 0);
    expectTexel(drawn[indexOf(4, 7)], {1, 1, 1, 1}, 0);
}

TEST_F(DeferredPassTest, OnlyTheObjectProgramChangesItsVariant) {
    unsigned before[kProgramCount] = {};
    for (int i = 0; i < kProgramCount; ++i)
        before[i] = program(static_cast<ProgramIndex>(i)).programId();
    EXPECT_EQ(liveObjects(GLKind::Program), kProgramCount + 1); // 14, and two of the test
    programs_.build(kObjShader, context_->errorLog);
    for (int i = 0; i < kProgramCount; ++i)
        EXPECT_EQ(program(static_cast<ProgramIndex>(i)).programId(), before[i]) << i;
    programs_.build(kObjShaderShadow, context_->errorLog);
    EXPECT_EQ(program(kObjShader).variant(), kObjShaderShadow);
    for (int i = kObjGBuffer; i < kProgramCount; ++i)
        EXPECT_EQ(program(static_cast<ProgramIndex>(i)).programId(), before[i]) << i;
    EXPECT_EQ(liveObjects(GLKind::Program), kProgramCount + 1);
}

} // namespace
} // namespace ogl
