// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// The programs that draw surfaces, against their formulas: a plate at z = 0.5 over a row of pixels
// whose centres lie along x.
#include "gl/shader_bench.h"
#include "gl/shading_formulas.h"
#include "gpu/texture.h"

#include <cmath>

namespace ogl {
namespace {

using test::expectTexel;
using test::KnownMap;
using test::Surface;
using test::Texel;
using test::times;

constexpr Vec3 kEye{0.7f, -1.5f, 2.5f};
constexpr Vec3 kColor{0.5f, 0.3f, 0.2f};

struct Plate {
    Vec3 normal{0, 0, 1};
    Vec3 tangent{1, 0, 0};

    void draw() const {
        glMatrixMode(GL_PROJECTION);
        glLoadIdentity();
        glOrtho(-1, 1, -1, 1, -1, 1);
        glMatrixMode(GL_MODELVIEW);
        glLoadIdentity();
        glDisable(GL_DEPTH_TEST);
        glDisable(GL_ALPHA_TEST);
        glDisable(GL_BLEND);
        glNormal3f(normal.x, normal.y, normal.z);
        glSecondaryColor3f(tangent.x, tangent.y, tangent.z);
        glTexCoord2f(0.5f, 0.5f);
        glBegin(GL_QUADS);
        glVertex3f(-1, -1, 0.5f);
        glVertex3f(-1, 1, 0.5f);
        glVertex3f(1, 1, 0.5f);
        glVertex3f(1, -1, 0.5f);
        glEnd();
    }
};

/// A map of a material: one texel, or none.
struct Map {
    bool exists = false;
    Texel texel{};
};

class SurfaceShaderTest : public test::ShaderBench {
  protected:
    void TearDown() override {
        for (GLTexture& texture : maps_)
            texture.reset();
        environment_.reset();
        ShaderBench::TearDown();
    }
    Vec3 place(size_t pixel) const {
        return {-1.0f + (static_cast<float>(pixel) + 0.5f) * 2.0f / static_cast<float>(width_), 0,
                0.5f};
    }
    void setMap(const ShaderProgram& program, int unit, const Map& map) {
        constexpr const char* kNames[][2] = {{"diffuseMap", "hasDiffTexture"},
                                             {"normalMap", "hasNormalTexture"},
                                             {"specularMap", "hasSpecularTexture"},
                                             {"opacityMap", "hasOpacityTexture"}};
        program.setInt(kNames[unit][0], unit);
        program.setInt(kNames[unit][1], map.exists ? 1 : 0);
        maps_[static_cast<size_t>(unit)] = makeTexture(GL_TEXTURE_2D, 1, 1, {map.texel});
        bindTexture(unit, TextureKind::Repeating, maps_[static_cast<size_t>(unit)].name(),
                    GL_NEAREST, 1.0f);
    }

    std::array<GLTexture, 4> maps_;
    GLTexture environment_;
};

// A normal map that bends the normal towards the tangent: (0.6, 0, 0.8).
constexpr Map kBentNormal{true, {0.8f, 0.5f, 0.9f, 1}};
constexpr Vec3 kSkewNormal{0.48f, -0.6f, 0.64f};
constexpr Vec3 kSkewTangent{0.8f, 0, -0.6f};

struct GBufferRow {
    const char* name;
    Plate plate{};
    Map diffuse{}, normal{}, specular{}, opacity{};
    int useLighting = 1;
    float reflection = 0.5f;
    float fresnel = 0.2f;
    Vec3 expectedNormal{0, 0, 1};
    float expectedSpecular = 0.7f;
    Vec3 expectedColor = kColor;
    float kept = -1.0f; ///< reflection mark that passes unchanged; below 0 = none
    bool drawn = true;
};

const GBufferRow kGBufferRows[] = {
    {.name = "plain"},
    {.name = "no reflection", .reflection = 0.0f, .kept = 0.0f},
    {.name = "diffuse map",
     .diffuse = {true, {0.4f, 0.6f, 1.0f, 0.93f}},
     .expectedColor = {0.4f, 0.36f, 0.4f}},
    {.name = "hole of the diffuse map", .diffuse = {true, {1, 1, 1, 0.91f}}, .drawn = false},
    {.name = "opacity map", .opacity = {true, {0.93f, 0, 0, 0}}},
    {.name = "hole of the opacity map", .opacity = {true, {0.91f, 1, 1, 1}}, .drawn = false},
    {.name = "specular map", .specular = {true, {0.5f, 0, 0, 0}}, .expectedSpecular = 0.35f},
    {.name = "skew", .plate = {kSkewNormal, kSkewTangent}, .expectedNormal = kSkewNormal},
    {.name = "normal map", .normal = kBentNormal, .expectedNormal = {0.6f, 0, 0.8f}},
    {.name = "normal map on a skew plate",
     .plate = {kSkewNormal, kSkewTangent},
     .normal = kBentNormal,
     .expectedNormal = {0.864f, -0.48f, 0.152f}},
    {.name = "normal map along the bitangent",
     .normal = {true, {0.5f, 0.8f, 0.9f, 1}},
     .expectedNormal = {0, -0.6f, 0.8f}},
    {.name = "from below", .plate = {{0, 0, -1}}, .expectedNormal = {0, 0, -1}},
    {.name = "long normal", .plate = {{0, 0, 5}}},
    {.name = "emission", .reflection = 4.5f, .kept = 4.5f},
    {.name = "unlit", .useLighting = 0, .kept = 8.0f},
};

Vec3 decoded(const Texel& t) {
    const float x = t[0] * 4 - 2;
    const float y = t[1] * 4 - 2;
    const float d = x * x + y * y;
    const float g = std::sqrt(std::max(1 - d / 4, 0.0f));
    return {x * g, y * g, 1 - d / 2};
}

TEST_F(SurfaceShaderTest, TheGBufferTakesMaterialsAndNormals) {
    for (const GBufferRow& row : kGBufferRows) {
        SCOPED_TRACE(row.name);
        const ShaderProgram& program = use(kObjGBuffer);
        setMap(program, 0, row.diffuse);
        setMap(program, 1, row.normal);
        setMap(program, 2, row.specular);
        setMap(program, 3, row.opacity);
        program.setVec3v("camPos", &kEye.x);
        program.setInt("useLighting", row.useLighting);
        program.setVec4("diffuseMat", kColor.x, kColor.y, kColor.z, 0.9f);
        program.setFloat("specularMat", 0.7f);
        program.setFloat("shininessMat", 120.0f);
        program.setFloat("fresnelFacMat", row.fresnel);
        program.setFloat("reflFacMat", row.reflection);
        program.setFloat("faceID", 41.0f);
        const auto outputs = drawOutputs([&] { row.plate.draw(); });
        for (size_t i = 0; i < pixels(); ++i) {
            SCOPED_TRACE(i);
            if (!row.drawn) {
                expectTexel(outputs[0][i], kClear, 0);
                continue;
            }
            const Vec3 p = place(i);
            const float cosine = dot(normalized(kEye - p), normalized(row.plate.normal));
            float reflection = row.reflection * (row.specular.exists ? 0.5f : 1.0f);
            reflection *= row.fresnel + (1 - row.fresnel) * std::pow(1 - cosine, 5.0f);
            if (row.kept >= 0)
                reflection = row.kept;
            expectTexel(outputs[0][i], {p.x, p.y, p.z, 120}, kTolerance);
            const Vec3 n = decoded(outputs[1][i]);
            expectTexel({n.x, n.y, n.z, outputs[1][i][3]},
                        {row.expectedNormal.x, row.expectedNormal.y, row.expectedNormal.z,
                         row.expectedSpecular},
                        1e-3f);
            EXPECT_EQ(outputs[1][i][2], 42.0f);
            expectTexel(outputs[2][i],
                        {row.expectedColor.x, row.expectedColor.y, row.expectedColor.z, reflection},
                        kTolerance);
        }
    }
}

struct ForwardRow {
    const char* name;
    Plate plate{};
    Map diffuse{}, normal{}, opacity{};
    int useLighting = 1;
    int drawMono = 0;
    Vec3 shadingNormal{0, 0, 1};
    Vec3 color = kColor;
    float alpha = 0.9f;
};

const ForwardRow kForwardRows[] = {
    {.name = "plain"},
    {.name = "unlit", .useLighting = 0},
    {.name = "grey", .drawMono = 1, .color = {0.35f, 0.35f, 0.35f}},
    {.name = "diffuse map",
     .diffuse = {true, {0.4f, 0.6f, 1.0f, 0.5f}},
     .color = {0.4f, 0.36f, 0.4f},
     .alpha = 0.45f},
    {.name = "opacity map",
     .diffuse = {true, {0.5f, 0.5f, 0.5f, 0.5f}},
     .opacity = {true, {0.3f, 1, 1, 1}},
     .alpha = 0.3f},
    {.name = "away from the light", .plate = {{0, 0, -1}}, .shadingNormal = {0, 0, -1}},
    {.name = "normal map", .normal = kBentNormal, .shadingNormal = {0.6f, 0, 0.8f}},
};

TEST_F(SurfaceShaderTest, ForwardShadingGoesByItsFormula) {
    const Vec3 toLight = normalized({0.5f, -0.3f, 0.8f});
    const Vec3 intensity{2.0f, 1.5f, 1.0f};
    for (const ForwardRow& row : kForwardRows) {
        SCOPED_TRACE(row.name);
        const ShaderProgram& program = use(kObjShader);
        setMap(program, 0, row.diffuse);
        setMap(program, 1, row.normal);
        setMap(program, 3, row.opacity);
        program.setVec4("diffuseMat", kColor.x, kColor.y, kColor.z, 0.9f);
        program.setVec3v("lightDir", &toLight.x);
        program.setVec3v("lightIntensity", &intensity.x);
        program.setFloat("ambientFactor", 0.8f);
        program.setInt("useLighting", row.useLighting);
        program.setInt("drawMono", row.drawMono);
        const Texel actual = drawOutputs([&] { row.plate.draw(); })[0][3];
        const float cosine = dot(toLight, row.shadingNormal);
        const float ambient = ((row.shadingNormal.z + 1) * 0.5f * 0.5f + 0.25f) * 0.8f;
        const float light = std::max(cosine, 0.0f) + test::wrapLight(cosine) * 0.125f;
        Vec3 color = row.color;
        if (row.useLighting == 1)
            color = test::toScreen(
                times(test::toLinear(color), intensity * light + Vec3{ambient, ambient, ambient}));
        expectTexel(actual, {color.x, color.y, color.z, row.alpha}, kTolerance);
    }
}

struct GlassRow {
    const char* name;
    Vec3 normal{0, 0, 1};
    Map diffuse{}, opacity{};
    float reflection = 0.3f;
    float specular = 0.4f;
    float saturation = 1.0f;
    int drawMono = 0;
};

const GlassRow kGlassRows[] = {
    {.name = "glass"},
    {.name = "no reflection", .reflection = 0.0f},
    {.name = "diffuse map", .diffuse = {true, {0.4f, 0.6f, 1.0f, 0.5f}}},
    {.name = "opacity map", .opacity = {true, {0.6f, 1, 1, 1}}},
    {.name = "mirror", .reflection = 0.9f, .specular = 0.0f},
    {.name = "away from the light", .normal = {-0.6f, 0, -0.8f}},
    {.name = "garish", .saturation = 3.0f},
    {.name = "pale", .saturation = 0.2f},
    {.name = "monochrome", .drawMono = 1},
};

constexpr Vec3 kTint{0.2f, 0.1f, 0.4f};
constexpr float kFresnel = 0.25f;
constexpr float kReflectionLevel = 0.6f;
constexpr float kExposure = 1.3f;
constexpr float kGamma = 0.8f;

/// What glass shows at a place.
Texel glass(const GlassRow& row, Vec3 p, const KnownMap& environment) {
    Vec3 color = kColor;
    float alpha = 0.4f;
    if (row.diffuse.exists) {
        const Texel& t = row.diffuse.texel;
        color = times(color, Vec3{t[0], t[1], t[2]} * 2.0f);
        alpha *= t[3];
    }
    if (row.opacity.exists)
        alpha = row.opacity.texel[0];
    const Vec3 toEye = normalized(kEye - p);
    const Vec3 toLight = normalized({1, 1, 1});
    const float fresnel = std::pow(1 - std::abs(dot(toEye, row.normal)), 4.0f);
    const float r = row.reflection * (kFresnel + (1 - kFresnel) * fresnel);
    const Vec3 reflection = test::perChannel(environment.towards(test::mirrored(toEye, row.normal)),
                                             [=](float x) { return std::pow(x, 1.5f) * 4 * r; });
    const float cosine = dot(toLight, row.normal);
    Surface s;
    s.place = p;
    s.normal = row.normal;
    s.shininess = 30.0f;
    const float highlight = cosine > 0 ? test::highlight(s, toLight, kEye) * row.specular : 0.0f;
    const float diffuse = std::max(cosine, 0.0f) + std::max(test::wrapLight(cosine), 0.25f) * 0.5f;
    Vec3 c = color * (diffuse * (1 - r)) + Vec3{highlight, highlight, highlight} +
             reflection * kReflectionLevel;
    c = test::perChannel(test::saturated(c, row.saturation),
                         [](float x) { return std::clamp(x, 0.0f, 1.0f); });
    c = test::toneCurve(c, kExposure, kGamma);
    if (row.drawMono == 1)
        c = test::tinted(c, kTint);
    return {c.x, c.y, c.z, std::min(alpha + r, 1.0f)};
}

TEST_F(SurfaceShaderTest, GlassGoesByItsFormula) {
    const KnownMap environment = KnownMap::varied(16, 8);
    environment_ = makeTexture(GL_TEXTURE_2D, 16, 8, environment.texels);
    for (const GlassRow& row : kGlassRows) {
        SCOPED_TRACE(row.name);
        const ShaderProgram& program = use(kObjTransparent);
        setMap(program, 0, row.diffuse);
        setMap(program, 3, row.opacity);
        program.setInt("enviroMap", 6);
        bindTexture(6, TextureKind::Repeating, environment_.name(), GL_NEAREST, 1.0f);
        program.setVec3v("camPos", &kEye.x);
        program.setVec4("diffuseMat", kColor.x, kColor.y, kColor.z, 0.4f);
        program.setFloat("specularMat", row.specular);
        program.setFloat("shininessMat", 30.0f);
        program.setFloat("fresnelFacMat", kFresnel);
        program.setFloat("reflFacMat", row.reflection);
        const Vec3 toLight = normalized({1, 1, 1});
        program.setVec3v("lightDir", &toLight.x);
        program.setVec3("lightIntensity", 1, 1, 1);
        program.setFloat("reflectionLevel", kReflectionLevel);
        program.setFloat("saturation", row.saturation);
        program.setFloat("exposure", kExposure);
        program.setFloat("gamma", kGamma);
        program.setInt("drawMono", row.drawMono);
        program.setVec3v("edgeColor", &kTint.x);
        const auto actual = drawOutputs([&] { Plate{row.normal}.draw(); })[0];
        for (size_t i = 0; i < pixels(); ++i) {
            SCOPED_TRACE(i);
            expectTexel(actual[i], glass(row, place(i), environment), 1e-3f);
        }
    }
}

} // namespace
} // namespace ogl
