// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// The programs that find edges, occlude, blur, sketch and compose, against their formulas.
#include "gl/shader_bench.h"
#include "gl/shading_formulas.h"
#include "gpu/texture.h"
#include "render/matrix4f.h"

#include <cmath>
#include <random>

namespace ogl {
namespace {

using test::dot;
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
                s.normal = normalized({kind == 1 ? 1.0f : 0.1f, part() * 0.2f, 0.7f});
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

// Occlusion: a floor before a wall, seen from above and front.

constexpr int kSeedColumns = 64;
constexpr int kSeedRows = 16;

KnownMap seeds() {
    std::mt19937 random(3);
    KnownMap map{kSeedColumns, kSeedRows, {}};
    for (int i = 0; i < kSeedColumns * kSeedRows; ++i) {
        const auto part = [&] { return static_cast<float>(random() % 2001u) / 1000.0f - 1.0f; };
        const Vec3 d = normalized({part(), part(), std::abs(part()) + 0.1f});
        map.texels.push_back({d.x, d.y, d.z, 0});
    }
    return map;
}

struct Corner {
    static constexpr float kStrength = 1.2f;
    static constexpr float kRadius = 1.0f;
    static constexpr int kCount = 20;
    static constexpr float kAmbient = 0.5f;

    int width, height;
    Matrix4f projection; ///< of scene coordinates
    Samples samples;
    KnownMap seedMap = seeds();
    float nearestBorder = 1.0f; ///< of what was looked up: how close to another pixel, pixels

    /// Sample i of the picture: a floor at z = 0 below a wall at y = 1, and no surface at the left.
    Surface surfaceAt(int x, int y, size_t i) const {
        const float u = (static_cast<float>(x) + 0.3f + 0.4f * static_cast<float>(i)) /
                        static_cast<float>(width);
        const float v = (static_cast<float>(y) + 0.5f) / static_cast<float>(height);
        if (x < 3)
            return test::uncovered();
        Surface s;
        const float along = 2 * u - 1;
        if (v < 0.5f) {
            s.place = {along, 4 * v - 1, 0};
        } else {
            s.place = {along, 1, 4 * v - 2};
            s.normal = {0, -1, 0};
            s.id = 2;
        }
        return s;
    }
    float occlusion(const Surface& s, size_t sample, int x, int y) {
        const Vec3 tangent = normalized(cross({0.01f, 0.99f, 0}, s.normal));
        const Vec3 cotangent = cross(s.normal, tangent);
        float sum = 0;
        int count = 0;
        for (int k = 0; k < kCount; ++k) {
            const Texel& seed = seedMap.texel(k, x % 4 + 4 * (y % 4));
            const Vec3 d = tangent * seed[0] + cotangent * seed[1] + s.normal * seed[2];
            const float part = static_cast<float>(k) / static_cast<float>(kCount);
            const Vec3 p = s.place + d * (part * part * kRadius + 0.01f);
            const float* m = projection.m;
            const float w = m[3] * p.x + m[7] * p.y + m[11] * p.z + m[15];
            const float sx = ((m[0] * p.x + m[4] * p.y + m[8] * p.z + m[12]) / w + 1) * 0.5f *
                             static_cast<float>(width);
            const float sy = ((m[1] * p.x + m[5] * p.y + m[9] * p.z + m[13]) / w + 1) * 0.5f *
                             static_cast<float>(height);
            nearestBorder = std::min(
                {nearestBorder, std::abs(sx - std::round(sx)), std::abs(sy - std::round(sy))});
            const int ox = std::clamp(static_cast<int>(sx), 0, width - 1);
            const int oy = std::clamp(static_cast<int>(sy), 0, height - 1);
            const Vec3 delta =
                samples[sample][static_cast<size_t>(oy * width + ox)].place - s.place;
            const float distance = length(delta);
            if (distance > 0)
                sum += std::max(dot(delta * (1 / distance), s.normal), 0.0f) * kStrength /
                       (distance + 1);
            ++count;
        }
        return sum / static_cast<float>(count);
    }
};

Corner makeCorner(int width, int height) {
    Corner corner{width, height, {}, {}};
    for (size_t i = 0; i < 2; ++i) {
        corner.samples.emplace_back();
        for (int k = 0; k < width * height; ++k)
            corner.samples[i].push_back(corner.surfaceAt(k % width, k / width, i));
    }
    // The picture is the scene sheared: the screen's height is y/2 + z/2 - 0.5. A w other than 1
    // must be divided by.
    const float w = 2.5f;
    const float elements[16] = {w, 0, 0, 0, 0, w / 2, 0, 0, 0, w / 2, 0, 0, 0, -w / 2, 0, w};
    std::copy(std::begin(elements), std::end(elements), std::begin(corner.projection.m));
    return corner;
}

TEST_F(ImageShaderTest, OcclusionIsThatOfTheSameSamplesOnTheCpu) {
    setSize(12, 10);
    Corner corner = makeCorner(width_, height_);
    fillGBuffer(corner.samples);
    ShaderProgram& program = useFrame(kImgAO);
    const char* samplers[] = {"posTex", "normTex", "seedTexture", "tmpTex"};
    for (int unit = 0; unit < 4; ++unit)
        program.setInt(samplers[unit], unit);
    program.setMat4("modviewprojMat", corner.projection.m);
    program.setFloat("sampleRadius", Corner::kRadius);
    program.setFloat("strength", Corner::kStrength);
    program.setInt("sampleCount", Corner::kCount);
    program.setInt("numAASamples", 2);
    program.setFloat("patternSize", 4);
    program.setFloat("ambientFac", Corner::kAmbient);
    program.setVec2("posTexSize", static_cast<float>(width_), static_cast<float>(height_));
    KnownMap mask = plain({});
    for (size_t i = 0; i < pixels(); i += 3)
        mask.texels[i][3] = 0.5f;
    bindGBuffer(0, 0);
    bindGBuffer(1, 1);
    bindMap(2, TextureKind::Rectangle, corner.seedMap);
    bindMap(3, TextureKind::Repeating, mask);

    std::vector<float> shades;
    expectPicture(
        draw(),
        [&](int x, int y) -> Texel {
            const size_t i = indexOf(x, y);
            float sum = corner.occlusion(corner.samples[0][i], 0, x, y);
            float n = 1;
            if (mask.texels[i][3] > 0 && corner.samples[1][i].id > 0.5f) {
                sum += corner.occlusion(corner.samples[1][i], 1, x, y);
                n = 2;
            }
            const float light = (1 - sum / n) * Corner::kAmbient;
            shades.push_back(light);
            return {light, light, light, 0};
        },
        1e-3f);
    EXPECT_GT(corner.nearestBorder, 1e-5f); // else the two could look up different pixels
    EXPECT_GT(*std::max_element(shades.begin(), shades.end()) -
                  *std::min_element(shades.begin(), shades.end()),
              0.05f);
}

TEST_F(ImageShaderTest, WithoutStrengthTheAmbientLightIsPlain) {
    fillGBuffer({std::vector<Surface>(pixels())});
    ShaderProgram& program = useFrame(kImgAO);
    program.setInt("normTex", 1);
    program.setInt("seedTexture", 2);
    program.setInt("tmpTex", 3);
    program.setFloat("strength", 0.009f);
    program.setFloat("ambientFac", 0.35f);
    bindGBuffer(0, 0);
    bindGBuffer(1, 1);
    expectPicture(draw(), [](int, int) -> Texel { return {0.35f, 0.35f, 0.35f, 0}; });
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
