// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Ambient occlusion: the program and the pass against a CPU that looks at the same samples.
#include "deferred/ambient_occlusion_pass.h"
#include "deferred/seed_directions.h"
#include "gl/deferred_bench.h"
#include "gl/occlusion_corner.h"
#include "gpu/texture.h"

namespace ogl {
namespace {

using test::expectTexel;
using test::OcclusionCorner;
using test::Texel;

constexpr float kAmbient = 0.5f;

class OcclusionTest : public test::DeferredBench {
  protected:
    void SetUp() override {
        DeferredBench::SetUp();
        setSize(OcclusionCorner::kSide, OcclusionCorner::kSide);
    }
    /// Edges at every third pixel.
    std::vector<Texel> mask() const {
        std::vector<Texel> texels(pixels());
        for (size_t i = 0; i < texels.size(); i += 3)
            texels[i][3] = 0.5f;
        return texels;
    }
    void expectCorner(const std::vector<Texel>& actual, OcclusionCorner& corner, float tolerance) {
        float darkest = 1;
        for (int y = 0; y < height_; ++y)
            for (int x = 0; x < width_; ++x) {
                const auto i = static_cast<size_t>(y * width_ + x);
                float sum = corner.occlusion(0, x, y);
                float n = 1;
                if (i % 3 == 0 && corner.samples()[1][i].id > 0.5f) {
                    sum += corner.occlusion(1, x, y);
                    n = 2;
                }
                const float light = (1 - sum / n) * kAmbient;
                if (x >= 3)
                    darkest = std::min(darkest, light);
                SCOPED_TRACE(std::to_string(x) + ", " + std::to_string(y));
                expectTexel(actual[i], {light, light, light, 0}, tolerance);
            }
        EXPECT_LT(darkest, 0.9f * kAmbient);
        EXPECT_GT(corner.nearestBorder, 1e-6f);
    }
};

TEST_F(OcclusionTest, ThePassFillsBothAttachmentsForTheCamera) {
    constexpr float kOcclusion = 0.8f;
    OcclusionCorner corner;
    corner.strength = 1.75f * kOcclusion;
    corner.radius = 1.5f * kOcclusion;
    corner.count = 20; // 16 x 0.8 + 8, cut
    corner.seeds = {kSeedColumns, kSeedRows, {}};
    for (const Vec3 d : seedDirections())
        corner.seeds.texels.push_back({d.x, d.y, d.z, 0});
    makeTargets(4);
    auto samples = corner.samples(); // the pass looks at half of the samples
    samples.resize(4, std::vector<test::Surface>(pixels(), test::uncovered()));
    writeSurfaces(*targets_.gBuffer, samples);
    writeTexels(*targets_.edgeTarget, 0, mask());

    // The camera: half of the projection is the view.
    Matrix4f half = OcclusionCorner::projection();
    glMatrixMode(GL_PROJECTION);
    glLoadMatrixf(half.m);
    glTranslatef(-1, 2, -3);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glTranslatef(1, -2, 3);
    const GLTexture seeds = createSeedTexture();
    AmbientOcclusionPass{program(kImgAO), frame(), seeds, kAmbient, kOcclusion}.draw();
    expectNeutralState();
    for (const int attachment : {0, 1}) {
        SCOPED_TRACE(attachment);
        expectCorner(texelsOf(*targets_.lightTarget, attachment), corner, 2e-3f);
    }
}

TEST_F(OcclusionTest, WithoutStrengthTheAmbientLightIsPlain) {
    makeTargets(1);
    writeSurfaces(*targets_.gBuffer, {std::vector<test::Surface>(pixels())});
    const GLTexture seeds = createSeedTexture();
    AmbientOcclusionPass{program(kImgAO), frame(), seeds, 0.375f, 0.005f}.draw();
    for (const Texel& texel : texelsOf(*targets_.lightTarget, 0))
        expectTexel(texel, {0.375f, 0.375f, 0.375f, 0}, 0);
}

} // namespace
} // namespace ogl
