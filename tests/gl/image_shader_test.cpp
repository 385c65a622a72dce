// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// The programs that find edges, occlude, blur, sketch and compose, against their formulas.
#include "gl/shader_bench.h"
#include "gl/shading_formulas.h"
#include "gpu/texture.h"

#include <cmath>
#include <random>

namespace ogl {
namespace {

using test::expectTexel;
using test::KnownMap;
using test::Surface;
using test::Texel;
using test::times;

constexpr Vec3 kEye{0.4f, -3.0f, 2.0f};

using Samples = std::vector<std::vector<Surface>>;

class ImageShaderTest : public test::ShaderBench {
  protected:
    void TearDown() override {
        textures_.clear();
        ShaderBench::TearDown();
    }
    /// Makes a texture that lives as long as the test and binds it.
    void bindMap(int unit, TextureKind kind, const KnownMap& map, int filter = GL_NEAREST) {
        textures_.push_back(
            makeTexture(kind == TextureKind::Rectangle ? GL_TEXTURE_RECTANGLE : GL_TEXTURE_2D,
                        map.width, map.height, map.texels));
        bindTexture(unit, kind, textures_.back().name(), filter, 1.0f);
    }
    KnownMap plain(Texel value) const {
        return {width_, height_, std::vector<Texel>(pixels(), value)};
    }
    ShaderProgram& useFrame(ProgramIndex index) {
        ShaderProgram& program = use(index);
        program.setVec2("rcpFrame", 1.0f / static_cast<float>(width_),
                        1.0f / static_cast<float>(height_));
        program.setVec3v("camPos", &kEye.x);
        return program;
    }
    size_t indexOf(int x, int y) const {
        return static_cast<size_t>(std::clamp(y, 0, height_ - 1) * width_ +
                                   std::clamp(x, 0, width_ - 1));
    }
    template <class Formula>
    void expectPicture(const std::vector<Texel>& actual, Formula formula,
                       float tolerance = kTolerance) {
        for (int y = 0; y < height_; ++y)
            for (int x = 0; x < width_; ++x) {
                SCOPED_TRACE(std::to_string(x) + ", " + std::to_string(y));
                expectTexel(actual[indexOf(x, y)], formula(x, y), tolerance);
            }
    }

    std::vector<GLTexture> textures_;
};

/// Three kinds of surfaces in a patchwork, and holes; other ones in each sample.
Samples patchwork(int width, int height, size_t sampleCount) {
    std::mt19937 random(7);
    const auto part = [&random] { return static_cast<float>(random() % 1000u) / 1000.0f; };
    Samples samples(sampleCount);
    for (size_t i = 0; i < sampleCount; ++i)
        for (int k = 0; k < width * height; ++k) {
            const unsigned kind =
                static_cast<unsigned>(k / 3 + k / width + (random() % 5u == 0)) % 4;
            Surface s = test::uncovered();
            if (kind != 3) {
                s.place = {part() * 0.2f, part() * 0.2f, 0.3f * static_cast<float>(kind)};
                s.normal = normalized({part() * 1.5f, part() * 0.2f, 0.7f});
                s.id = static_cast<float>(kind + 1);
                s.shininess = 10.0f;
                s.specular = part();
                s.diffuse = {part(), part(), part()};
                s.reflection = kind == 0 ? 0.0f : kind == 1 ? part() : 3.0f + part();
            } else {
                s.diffuse = {part(), part(), part()};
            }
            samples[i].push_back(s);
        }
    return samples;
}

TEST_F(ImageShaderTest, EdgesAreOtherObjectsOtherNormalsAndLeaps) {
    setSize(9, 8);
    const Samples samples = patchwork(width_, height_, 2);
    fillGBuffer(samples);
    ShaderProgram& program = useFrame(kImgEdge);
    program.setInt("posTex", 0);
    program.setInt("normTex", 1);
    program.setInt("numAASamples", 2);
    bindGBuffer(0, 0);
    bindGBuffer(1, 1);
    int edges = 0;
    expectPicture(draw(), [&](int x, int y) -> Texel {
        const Vec3 view = normalized(samples[0][indexOf(x, y)].place - kEye);
        float sum = 0;
        for (const auto& sample : samples) {
            const auto at = [&](int dx, int dy) { return sample[indexOf(x + dx, y + dy)]; };
            const Surface s = at(0, 0);
            int ids = 0;
            int normals = 0;
            float leap = 0;
            for (int dy = -1; dy <= 1; ++dy)
                for (int dx = -1; dx <= 1; ++dx) {
                    if (dx == 0 && dy == 0)
                        continue;
                    ids += at(dx, dy).id != s.id ? 1 : 0;
                    if (dx * dy != 0)
                        normals += std::abs(dot(at(dx, dy).normal, s.normal)) <= 0.8f ? 1 : 0;
                    else
                        leap = std::max(leap, length(at(-1, 0).place - at(dx, dy).place));
                }
            const float facing = dot(view, s.normal);
            sum += (static_cast<float>(ids) * 0.125f + static_cast<float>(normals) * 0.25f +
                    (leap * facing * facing > 0.05f ? 1.0f : 0.0f)) *
                   0.33333f;
        }
        const float e = sum / 2;
        edges += e >= 0.01f ? 1 : 0;
        return {0, 0, 0, e < 0.01f ? 0.0f : std::pow(e, 0.2f)};
    });
    EXPECT_GT(edges, 10);
}

/// A rectangle texture filtered linearly at a place in pixels.
Texel linear(const KnownMap& map, float x, float y) {
    const auto left = static_cast<int>(std::floor(x - 0.5f));
    const auto bottom = static_cast<int>(std::floor(y - 0.5f));
    const float fx = x - 0.5f - static_cast<float>(left);
    const float fy = y - 0.5f - static_cast<float>(bottom);
    Texel result;
    for (size_t c = 0; c < 4; ++c)
        result[c] = (1 - fy) * ((1 - fx) * map.texel(left, bottom)[c] +
                                fx * map.texel(left + 1, bottom)[c]) +
                    fy * ((1 - fx) * map.texel(left, bottom + 1)[c] +
                          fx * map.texel(left + 1, bottom + 1)[c]);
    return result;
}

TEST_F(ImageShaderTest, TheBlurSparesEdgesAndAlpha) {
    setSize(8, 8);
    const KnownMap light = KnownMap::varied(width_, height_);
    KnownMap mask = plain({});
    for (size_t i = 0; i < pixels(); ++i)
        mask.texels[i][3] = static_cast<float>(i % 3) / 2.0f; // none, half, full
    ShaderProgram& program = useFrame(kImgEABlur);
    program.setInt("lightTex", 0);
    program.setInt("tmpTex", 1);
    bindMap(0, TextureKind::Rectangle, light, GL_LINEAR);
    bindMap(1, TextureKind::Repeating, mask);
    const auto actual = draw();
    for (int y = 2; y < height_ - 2; ++y) // the border is up to the texture's wrap
        for (int x = 2; x < width_ - 2; ++x) {
            SCOPED_TRACE(std::to_string(x) + ", " + std::to_string(y));
            Texel sum = light.texel(x, y);
            float weight = 1;
            for (const float dy : {-1.7f, 0.0f, 1.7f})
                for (const float dx : {-1.7f, 0.0f, 1.7f}) {
                    if (dx == 0 && dy == 0)
                        continue;
                    const float w =
                        (1 - mask.texel(x, y)[3]) / ((std::abs(dx) + 1) * (std::abs(dy) + 1));
                    const Texel tap = linear(light, static_cast<float>(x) + 0.5f + dx,
                                             static_cast<float>(y) + 0.5f + dy);
                    for (size_t c = 0; c < 3; ++c)
                        sum[c] += tap[c] * w;
                    weight += w;
                }
            expectTexel(actual[indexOf(x, y)],
                        {sum[0] / weight, sum[1] / weight, sum[2] / weight, light.texel(x, y)[3]},
                        2e-3f); // drivers filter with few bits
        }
}

TEST_F(ImageShaderTest, TheSketchDrawsShiftedOutlinesOnPaper) {
    setSize(16, 12);
    KnownMap mask = KnownMap::varied(width_, height_);
    const KnownMap noise = KnownMap::varied(width_, height_);
    const Vec3 ink{0.2f, 0.1f, 0.5f};
    for (const float strength : {0.0f, 0.4f, 2.0f}) {
        SCOPED_TRACE(strength);
        ShaderProgram& program = useFrame(kImgNpr);
        program.setInt("tmpTex", 1);
        program.setInt("noiseTex", 2);
        program.setFloat("noiseStrength", strength);
        program.setVec3v("edgeColor", &ink.x);
        bindMap(1, TextureKind::Clamped, mask);
        bindMap(2, TextureKind::Clamped, noise);
        expectPicture(draw(), [&](int x, int y) -> Texel {
            const float u = (static_cast<float>(x) + 0.5f) / static_cast<float>(width_);
            const float v = (static_cast<float>(y) + 0.5f) / static_cast<float>(height_);
            const float places[4][2] = {{u, v}, {v, u}, {1 - v, 1 - u}, {1 - u, 1 - v}};
            float paper = 0;
            float fade = 0;
            for (int k = 0; k < 4; ++k) {
                const Texel& q = noise.at(places[k][0], places[k][1]);
                const float reach = 2 * static_cast<float>(k + 1) * strength;
                paper += 0.25f *
                         (1 - mask.texel(static_cast<int>(std::floor(static_cast<float>(x) + 0.5f +
                                                                     (q[0] - 0.5f) * reach)),
                                         static_cast<int>(std::floor(static_cast<float>(y) + 0.5f +
                                                                     (q[1] - 0.5f) * reach)))[3]);
                fade += 0.25f * q[2] * (1 + strength * 0.25f);
            }
            fade = std::max(fade - 0.5f, 0.0f) * 0.5f;
            const auto channel = [=](float inked) {
                return std::min(inked * (1 - paper) + paper + fade, 1.0f);
            };
            return {channel(ink.x), channel(ink.y), channel(ink.z), 1};
        });
    }
}

struct ComposeRow {
    const char* name;
    float saturation = 1.0f;
    int drawMono = 0;
    int lumaToAlpha = 0;
    float edgeStrength = 0.0f;
    size_t samples = 4;
};

const ComposeRow kComposeRows[] = {
    {.name = "plain"},
    {.name = "one sample", .samples = 1},
    {.name = "garish", .saturation = 4.0f},
    {.name = "grey", .saturation = 0.0f},
    {.name = "monochrome", .drawMono = 1},
    {.name = "brightness in alpha", .lumaToAlpha = 1},
    {.name = "outlines", .edgeStrength = 0.6f},
};

constexpr float kReflectionLevel = 0.7f;
constexpr float kExposure = 1.6f;
constexpr float kGamma = 0.7f;
constexpr Vec3 kTint{0.3f, 0.0f, 0.1f};

struct Composer {
    const ComposeRow& row;
    KnownMap light, environment, sketch;

    /// The picture's pixel of these samples.
    Texel compose(const std::vector<Surface>& samples, const Texel& lighting,
                  const Texel& outlines) const {
        Vec3 rgb{lighting[0], lighting[1], lighting[2]};
        Vec3 diffuse{}, reflection{};
        float alpha = 0, highlight = 0;
        const float share = 1.0f / static_cast<float>(samples.size());
        for (const Surface& s : samples) {
            if (s.id <= 0.5f)
                continue;
            float r = std::clamp(s.reflection, 0.0f, 1.0f);
            if (s.reflection > 3) {
                const float emitted = std::log(s.reflection - 3 + 1);
                rgb = {emitted, emitted, emitted};
                r = 0;
            }
            const Vec3 d = test::mirrored(normalized(kEye - s.place), s.normal);
            reflection = reflection + environment.towards(d) * (r * share);
            diffuse = diffuse + s.diffuse * ((1 - r) * share);
            highlight += s.specular * share;
            alpha += share;
        }
        reflection = test::perChannel(reflection, [](float x) { return std::pow(x, 1.5f) * 2; });
        const float shine = lighting[3] * highlight;
        Vec3 c = times(rgb, test::toLinear(diffuse)) + Vec3{shine, shine, shine} +
                 reflection * kReflectionLevel;
        c = test::toneCurve(test::saturated(c, row.saturation), kExposure, kGamma);
        if (row.drawMono == 1)
            c = test::tinted(c, kTint);
        const Vec3 ink{1 - outlines[0], 1 - outlines[1], 1 - outlines[2]};
        c = samples[0].diffuse * (1 - alpha) + (c - ink * row.edgeStrength) * alpha;
        const float luma = 0.299f * c.x + 0.587f * c.y + 0.114f * c.z;
        return {c.x, c.y, c.z, row.lumaToAlpha == 1 ? luma : 1.0f};
    }
};

TEST_F(ImageShaderTest, ThePictureIsComposedByItsFormula) {
    setSize(9, 8);
    for (const ComposeRow& row : kComposeRows) {
        SCOPED_TRACE(row.name);
        const Samples samples = patchwork(width_, height_, row.samples);
        fillGBuffer(samples);
        const Composer composer{row, KnownMap::varied(width_, height_), KnownMap::varied(32, 16),
                                KnownMap::varied(width_, height_)};
        ShaderProgram& program = useFrame(kImgFinal);
        const char* samplers[] = {"posTex",      "normTex",   "gBuffer2Tex",
                                  "lightingTex", "enviroMap", "edgeTex"};
        for (int unit = 0; unit < 6; ++unit)
            program.setInt(samplers[unit], unit);
        program.setInt("numAASamples", static_cast<int>(row.samples));
        program.setInt("drawMono", row.drawMono);
        program.setInt("drawLumaToAlpha", row.lumaToAlpha);
        program.setFloat("reflectionLevel", kReflectionLevel);
        program.setFloat("saturation", row.saturation);
        program.setFloat("exposure", -kExposure);
        program.setFloat("gamma", kGamma);
        program.setFloat("edgeStrength", row.edgeStrength);
        program.setVec3v("edgeColor", &kTint.x);
        for (int i = 0; i < 3; ++i)
            bindGBuffer(i, i);
        bindMap(3, TextureKind::Rectangle, composer.light);
        bindMap(4, TextureKind::Repeating, composer.environment);
        bindMap(5, TextureKind::Rectangle, composer.sketch);
        expectPicture(
            draw(),
            [&](int x, int y) {
                std::vector<Surface> pixel;
                for (const auto& sample : samples)
                    pixel.push_back(sample[indexOf(x, y)]);
                return composer.compose(pixel, composer.light.texel(x, y),
                                        composer.sketch.texel(x, y));
            },
            5e-4f);
    }
}

} // namespace
} // namespace ogl
