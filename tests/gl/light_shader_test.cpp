// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// The light passes' programs against their formulas.
#include "gl/shader_bench.h"
#include "gl/shading_formulas.h"
#include "gpu/texture.h"

#include <algorithm>
#include <cmath>

namespace ogl {
namespace {

using test::expectTexel;
using test::kPi;
using test::Surface;
using test::Texel;

constexpr Vec3 kEye{1.0f, -4.0f, 3.0f};
constexpr Vec3 kLight{0.8f, 0.3f, 2.5f};
constexpr Texel kIntensity{0.9f, 0.6f, 0.3f, 0.65f};

/// Light of `diffuse` and `specular` strength.
Texel lit(float diffuse, float specular) {
    return {kIntensity[0] * diffuse, kIntensity[1] * diffuse, kIntensity[2] * diffuse,
            kIntensity[3] * specular};
}

Texel sunlight(const Surface& s, Vec3 toSun, float visible = 1.0f) {
    const float cosine = std::max(dot(toSun, s.normal), 0.0f);
    if (cosine <= 0.0f || visible == 0.0f)
        return {};
    return lit(cosine * visible,
               s.specular > 0.0f ? test::highlight(s, toSun, kEye) * visible : 0.0f);
}

Texel pointlight(const Surface& s) {
    const Vec3 way = kLight - s.place;
    const float cosine = std::max(dot(normalized(way), s.normal), 0.0f);
    if (cosine <= 0.0f)
        return {};
    return lit(cosine / (dot(way, way) + 0.02f),
               s.specular > 0.0f ? test::highlight(s, normalized(way), kEye) : 0.0f);
}

Texel spotlight(const Surface& s, Vec3 beam, float cutoff, bool attenuated) {
    const Vec3 way = kLight - s.place;
    const Vec3 toLight = normalized(way);
    const float part =
        std::clamp((std::max(0.0f, dot(-toLight, beam)) - cutoff) / 0.08f, 0.0f, 1.0f);
    const float k = part * part * (3.0f - 2.0f * part) * std::max(dot(toLight, s.normal), 0.0f);
    if (k <= 0.0001f)
        return {};
    return lit(attenuated ? k / (dot(way, way) + 0.02f) : k,
               s.specular > 0.0f ? test::highlight(s, toLight, kEye) * k : 0.0f);
}

/// Surfaces that the light of these tests meets in every way.
std::vector<Surface> variedSurfaces() {
    std::vector<Surface> surfaces(8);
    const Vec3 normals[] = {{0, 0, 1}, {1, 0, 0},  {0.6f, 0, 0.8f},  {-1, 0, 0},
                            {0, 1, 0}, {0, 0, -1}, {0, -0.6f, 0.8f}, {0.48f, -0.6f, 0.64f}};
    for (size_t i = 0; i < surfaces.size(); ++i) {
        const float f = static_cast<float>(i);
        surfaces[i].place = {0.25f * f - 1.0f, 0.5f - 0.2f * f, 0.1f * f};
        surfaces[i].normal = normals[i];
        surfaces[i].shininess = 5.0f + 20.0f * f;
        surfaces[i].specular = i == 2 ? 0.0f : 0.5f;
    }
    surfaces[1].place = kLight - Vec3{-0.15f, 0.05f, 0.0f}; // close to the light
    surfaces[1].normal = {-1, 0, 0};
    return surfaces;
}

class LightShaderTest : public test::ShaderBench {
  protected:
    void TearDown() override {
        lighting_.reset();
        mask_.reset();
        ShaderBench::TearDown();
    }
    /// Takes a light program into use; the edge mask and the lighting so far are as given.
    ShaderProgram& useLight(ProgramIndex index, const std::vector<Texel>& mask, int samples) {
        ShaderProgram& program = use(index);
        lighting_ = plainTexture(GL_TEXTURE_RECTANGLE, before_);
        mask_ = makeTexture(GL_TEXTURE_2D, width_, height_, mask);
        const struct {
            const char* name;
            int unit;
        } samplers[] = {{"lightingTex", 0}, {"posTex", 1},    {"normTex", 2},
                        {"tmpTex", 3},      {"jitterMap", 4}, {"shadowMap", 5}};
        for (const auto& sampler : samplers)
            program.setInt(sampler.name, sampler.unit);
        program.setInt("numAASamples", samples);
        program.setInt("useShadow", 0);
        program.setVec2("rcpFrame", 1.0f / static_cast<float>(width_),
                        1.0f / static_cast<float>(height_));
        program.setVec3v("camPos", &kEye.x);
        program.setVec3v("lightPos", &kLight.x);
        program.setVec4v("lightIntensity", kIntensity.data());
        bindTexture(0, TextureKind::Rectangle, lighting_.name(), GL_NEAREST, 1.0f);
        bindGBuffer(1, 0);
        bindGBuffer(2, 1);
        bindTexture(3, TextureKind::Repeating, mask_.name(), GL_NEAREST, 1.0f);
        return program;
    }
    ShaderProgram& useLight(ProgramIndex index) {
        return useLight(index, std::vector<Texel>(pixels()), 1);
    }
    /// Draws, and compares with what a formula adds to the lighting before.
    template <class Formula> void expectAdded(const std::vector<Surface>& surfaces, Formula added) {
        const std::vector<Texel> actual = draw();
        for (size_t i = 0; i < surfaces.size(); ++i) {
            SCOPED_TRACE(i);
            Texel expected = added(surfaces[i]);
            for (size_t c = 0; c < 4; ++c)
                expected[c] += before_[c];
            expectTexel(actual[i], expected, kTolerance);
        }
    }

    const Texel before_{0.1f, 0.2f, 0.3f, 0.4f};
    GLTexture lighting_;
    GLTexture mask_;
};

TEST_F(LightShaderTest, TheSunAddsDiffuseLightAndHighlights) {
    auto surfaces = variedSurfaces();
    const Vec3 toSun = normalized({0.4f, -0.5f, 0.8f});
    surfaces[0].normal = normalized(toSun + normalized(kEye - surfaces[0].place)); // dazzles
    surfaces[0].shininess = 900.0f;
    fillGBuffer({surfaces});
    useLight(kImgSunlight).setVec3v("lightDir", &toSun.x);
    expectAdded(surfaces, [&](const Surface& s) { return sunlight(s, toSun); });
}

TEST_F(LightShaderTest, PointLightsFadeWithTheSquareOfTheDistance) {
    const auto surfaces = variedSurfaces();
    fillGBuffer({surfaces});
    useLight(kImgPointlight);
    expectAdded(surfaces, pointlight);
}

TEST_F(LightShaderTest, SpotLightsShineInACone) {
    const auto surfaces = variedSurfaces();
    fillGBuffer({surfaces});
    const Vec3 beam = normalized({-0.5f, 0.0f, -1.0f});
    for (const float cutoff : {0.5f, 0.9f, 0.95f})
        for (const int attenuated : {0, 1}) {
            SCOPED_TRACE(std::to_string(cutoff) + (attenuated ? " attenuated" : ""));
            ShaderProgram& program = useLight(kImgSpotlight);
            program.setVec3v("lightDir", &beam.x);
            program.setFloat("lightCosCutoff", cutoff);
            program.setInt("lightAttenuation", attenuated);
            expectAdded(surfaces, [&](const Surface& s) {
                return spotlight(s, beam, cutoff, attenuated == 1);
            });
        }
}

TEST_F(LightShaderTest, EdgesAreLitSampleBySample) {
    auto samples = std::vector<std::vector<Surface>>(4, variedSurfaces());
    for (size_t i = 1; i < samples.size(); ++i) // other surfaces in each
        std::rotate(samples[i].begin(), samples[i].begin() + static_cast<long>(i),
                    samples[i].end());
    fillGBuffer(samples);
    std::vector<Texel> mask(pixels());
    for (size_t i = 0; i < mask.size(); i += 2)
        mask[i][3] = 0.4f;
    useLight(kImgPointlight, mask, 4);
    const std::vector<Texel> actual = draw();
    for (size_t i = 0; i < pixels(); ++i) {
        SCOPED_TRACE(i);
        Texel expected = before_;
        const size_t count = i % 2 == 0 ? 4 : 1;
        for (size_t k = 0; k < count; ++k)
            for (size_t c = 0; c < 4; ++c)
                expected[c] += pointlight(samples[k][i])[c] / static_cast<float>(count);
        expectTexel(actual[i], expected, kTolerance);
    }
}

// Shadows. The map is 8 x 8 texels; its left half holds something at depth 0.3. Its outermost
// texels go on beside it.

constexpr int kMapSize = 8;
constexpr float kBlur = 0.04f;
constexpr float kProjectiveW = 2.0f;

struct ShadowFilter {
    std::array<float, 16> x{}, y{};

    ShadowFilter() {
        for (size_t i = 0; i < 16; ++i) {
            x[i] = 0.013f * static_cast<float>(i) - 0.1f;
            y[i] = 0.11f - 0.017f * static_cast<float>(i);
        }
    }
    static float litAt(float u, float z) {
        return std::min(z, 1.0f) <= (u < 0.5f ? 0.3f : 1.0f) ? 1.0f : 0.0f;
    }
    /// The filtered shadow at `p` of the map for a pixel.
    float at(Vec3 p, int pixelX, int pixelY) const {
        const float o = kBlur * kProjectiveW;
        float sum = litAt(p.x - o, p.z) + litAt(p.x, p.z) * 3.0f + litAt(p.x + o, p.z);
        if (sum == 0.0f || sum == 5.0f)
            return sum / 5.0f;
        const Texel jitter = jitterAt(pixelX % 32, pixelY % 32);
        for (size_t i = 0; i < 16; ++i)
            sum += litAt(p.x + x[i] + jitter[0], p.z);
        return sum / 21.0f;
    }
    static Texel jitterAt(int x, int y) {
        return {0.0017f * static_cast<float>(x), -0.05f * static_cast<float>(y), 0.0f, 0.0f};
    }
};

GLTexture halfCoveredMap() {
    std::vector<float> depths;
    for (int i = 0; i < kMapSize * kMapSize; ++i)
        depths.push_back(i % kMapSize < kMapSize / 2 ? 0.3f : 1.0f);
    GLTexture map;
    map.create();
    glActiveTexture(GL_TEXTURE5);
    glBindTexture(GL_TEXTURE_2D, map.name());
    glTexImage2D(GL_TEXTURE_2D, 0, GL_DEPTH_COMPONENT24, kMapSize, kMapSize, 0, GL_DEPTH_COMPONENT,
                 GL_FLOAT, depths.data());
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_COMPARE_MODE, GL_COMPARE_R_TO_TEXTURE);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_COMPARE_FUNC, GL_LEQUAL);
    return map;
}

GLTexture jitterTexture() {
    std::vector<Texel> texels;
    for (int i = 0; i < 32 * 32; ++i)
        texels.push_back(ShadowFilter::jitterAt(i % 32, i / 32));
    GLTexture texture;
    texture.create();
    glActiveTexture(GL_TEXTURE0);
    glBindTexture(GL_TEXTURE_2D, texture.name());
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA32F, 32, 32, 0, GL_RGBA, GL_FLOAT, texels.data());
    glBindTexture(GL_TEXTURE_2D, 0);
    return texture;
}

void loadShadowMatrix(float w) {
    glActiveTexture(GL_TEXTURE5);
    glMatrixMode(GL_TEXTURE);
    glLoadIdentity();
    const float matrix[16] = {w, 0, 0, 0, 0, w, 0, 0, 0, 0, w, 0, 0, 0, 0, w};
    glLoadMatrixf(matrix);
    glMatrixMode(GL_MODELVIEW);
}

class ShadowShaderTest : public LightShaderTest {
  protected:
    void SetUp() override {
        LightShaderTest::SetUp();
        setSize(44, 2);
        for (int i = 0; i < width_ * height_; ++i) {
            Surface s;
            s.place = {-0.3f + 0.0361f * static_cast<float>(i % width_), 0.4031f,
                       i == width_ - 9 ? 1.2f : 0.5f};
            surfaces_.push_back(s);
        }
        fillGBuffer({surfaces_});
        map_ = halfCoveredMap();
        jitter_ = jitterTexture();
    }
    void TearDown() override {
        map_.reset();
        jitter_.reset();
        LightShaderTest::TearDown();
    }
    ShaderProgram& useSun(float w) {
        ShaderProgram& program = useLight(kImgSunlight);
        program.setInt("useShadow", 1);
        program.setVec3("lightDir", 0, 0, 1);
        program.setFloat("shadowBlurFactor", kBlur);
        program.setMat4("shadowSamplesX", filter_.x.data());
        program.setMat4("shadowSamplesY", filter_.y.data());
        bindTexture(4, TextureKind::Repeating, jitter_.name(), GL_NEAREST, 1.0f);
        glActiveTexture(GL_TEXTURE5);
        glBindTexture(GL_TEXTURE_2D, map_.name());
        loadShadowMatrix(w);
        return program;
    }

    std::vector<Surface> surfaces_;
    ShadowFilter filter_;
    GLTexture map_;
    GLTexture jitter_;
};

TEST_F(ShadowShaderTest, ShadowsAreFilteredWhereTheyMeetLightAlsoBesideTheMap) {
    int partly = 0;
    for (const float aside : {0.0f, -3.0f, 3.0f})
        for (const float w : {kProjectiveW, -kProjectiveW}) {
            SCOPED_TRACE(std::to_string(aside) + " aside, w " + std::to_string(w));
            std::vector<Surface> surfaces = surfaces_;
            for (Surface& s : surfaces)
                s.place.x += aside;
            fillGBuffer({surfaces});
            useSun(w);
            int pixel = 0;
            expectAdded(surfaces, [&](const Surface& s) {
                const float visible = filter_.at(s.place, pixel % width_, pixel / width_);
                partly += visible > 0.0f && visible < 1.0f ? 1 : 0;
                ++pixel;
                return sunlight(s, {0, 0, 1}, visible);
            });
        }
    EXPECT_GT(partly, 10);
}

/// Form factor of a rectangle parallel to a surface, one corner straight above it at height 1.
float cornerFactor(float a, float b) {
    const auto side = [](float p, float q) {
        return p / std::sqrt(1.0f + p * p) * std::atan(q / std::sqrt(1.0f + p * p));
    };
    return (side(a, b) + side(b, a)) / (2.0f * kPi);
}

TEST_F(LightShaderTest, PortalsLightByTheirFormFactor) {
    // A rectangle of 2 x 1 at height 1, seen from below.
    const struct {
        const char* name;
        Vec3 place, normal;
        float factor;
    } rows[] = {
        {"centre", {0, 0, 0}, {0, 0, 1}, 4 * cornerFactor(1, 0.5f)},
        {"corner", {1, 0.5f, 0}, {0, 0, 1}, cornerFactor(2, 1)},
        {"aside", {-3, 0.5f, 0}, {0, 0, 1}, cornerFactor(4, 1) - cornerFactor(2, 1)},
        {"facing away", {0, 0, 0}, {0, 0, -1}, 0},
        {"twice as far", {1, 0.5f, -1}, {0, 0, 1}, cornerFactor(1, 0.5f)},
        {"in the plane", {3, 0, 1}, {0, 0, 1}, 0},
        {"in the line of an edge", {3, 0.5f, 1}, {0, 0, 1}, 0},
        {"in the line of another", {1, 4, 1}, {0, 0, 1}, 0},
    };
    std::vector<Surface> surfaces(8);
    for (size_t i = 0; i < surfaces.size(); ++i) {
        surfaces[i].place = rows[i].place;
        surfaces[i].normal = rows[i].normal;
    }
    fillGBuffer({surfaces});
    ShaderProgram& program = useLight(kImgPortallight);
    program.setVec3("lightQuad0", -1, 0.5f, 1);
    program.setVec3("lightQuad1", -1, -0.5f, 1);
    program.setVec3("lightQuad2", 1, -0.5f, 1);
    program.setVec3("lightQuad3", 1, 0.5f, 1);
    const std::vector<Texel> actual = draw();
    for (size_t i = 0; i < surfaces.size(); ++i) {
        SCOPED_TRACE(rows[i].name);
        Texel expected = before_;
        for (size_t c = 0; c < 3; ++c)
            expected[c] += std::log(kIntensity[c] * rows[i].factor + 1.0f);
        expectTexel(actual[i], expected, kTolerance);
    }
}

} // namespace
} // namespace ogl
