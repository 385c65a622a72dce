// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// What lit surfaces look like, against the shading formula.
#include "fixed/textures/texture_image.h"
#include "gl/shadow_fixture.h"

#include <cmath>

namespace ogl::test {
namespace {

class ShadowShadingTest : public ShadowTest {
  protected:
    void expectPixel(const Picture& picture, float x, float y, Pixel expected, const char* name) {
        const Pixel actual = pixelAt(picture, x, y);
        EXPECT_TRUE(isNear(actual, expected, 2))
            << name << ": " << actual.red << ", " << actual.green << ", " << actual.blue
            << " instead of " << expected.red << ", " << expected.green << ", " << expected.blue;
    }
};

Vec3 channels(Pixel color) {
    return Vec3{static_cast<float>(color.red), static_cast<float>(color.green),
                static_cast<float>(color.blue)} *
           (1.0f / 255.0f);
}

/// An image of one colour.
TextureImage* makeImage(unsigned format, Pixel color, TextureRole role) {
    constexpr int kSize = 8;
    TextureImage* image = makeTextureImage();
    image->width = image->height = kSize;
    image->pixelFormat = format;
    image->role = role;
    std::vector<uint8_t> bytes;
    for (int i = 0; i < kSize * kSize; ++i)
        for (const int channel : {color.red, color.green, color.blue})
            bytes.push_back(static_cast<uint8_t>(channel));
    image->setBytes(std::move(bytes));
    return image;
}

constexpr Pixel kClay{200, 120, 60};

TEST_F(ShadowShadingTest, LightsFacesByTheirDirection) {
    setSun({0.6f, -0.2f, -0.9f});
    const auto clay = static_cast<int16_t>(addColored(kClay));
    scene_->addObject();
    // Four slopes of a pyramid around the origin, each in its own quarter of the view.
    scene_->addFace(quad({-8, -1, 0}, {-8, 1, 0}, {-2, 1, 2}, {-2, -1, 2}, clay));
    scene_->addFace(quad({2, -1, 2}, {2, 1, 2}, {8, 1, 0}, {8, -1, 0}, clay));
    scene_->addFace(quad({-1, -8, 0}, {-1, -2, 3}, {1, -2, 3}, {1, -8, 0}, clay));
    scene_->addFace(plate(-1, 3, 1, 8, 0, clay));
    const struct {
        const char* name;
        float x, y;
        Vec3 normal;
    } rows[] = {{"west slope", -5.0f, 0.0f, normalized({-1, 0, 3})},
                {"east slope", 5.0f, 0.0f, normalized({1, 0, 3})},
                {"south slope", 0.0f, -5.5f, normalized({0, -1, 2})},
                {"flat", 0.0f, 6.0f, {0, 0, 1}}};
    for (const uint32_t shadows : {0u, kDrawShadows}) {
        selectShadow(kDrawFullQuality | shadows);
        const Picture picture = drawFrame();
        for (const auto& row : rows)
            expectPixel(picture, row.x, row.y, shaded(channels(kClay), row.normal, 1.0), row.name);
        expectPixel(picture, -9, -9, kBackground, "background");
    }
}

TEST_F(ShadowShadingTest, TakesColorsFromMaterialsAndModes) {
    setSun({0.3f, 0.3f, -1.0f});
    MATERIAL shiny = plainMaterial();
    shiny.color = {60, 120, 200};
    shiny.reflection = 0.5f;
    const auto clay = static_cast<int16_t>(addColored(kClay));
    const auto dim = static_cast<int16_t>(addColored(kClay, 0.2f));
    const auto bright = static_cast<int16_t>(addColored(kClay, 0.8f));
    const auto mirror = static_cast<int16_t>(scene_->addMaterial(shiny));
    scene_->addObject();
    scene_->addFace(plate(-8, -2, -4, 2, 0, clay));
    scene_->addFace(plate(-4, -2, 0, 2, 0, dim));
    scene_->addFace(plate(0, -2, 4, 2, 0, bright));
    scene_->addFace(plate(4, -2, 8, 2, 0, mirror));
    const Vec3 up{0, 0, 1};
    const Vec3 full = channels(kClay);
    const float grey = 0.3f * full.x + 0.6f * full.y + 0.1f * full.z;
    const Vec3 greyed{grey, grey, grey};
    const Vec3 white{1, 1, 1};
    const struct {
        const char* name;
        ColorMode colorMode;
        TextureMode textureMode;
        Vec3 clay, dim, bright, mirror;
    } rows[] = {
        {"colours",
         ColorMode::OfMaterials,
         TextureMode::All,
         full,
         full * 0.5f,
         {1.0f, full.y * 2, full.z * 2},
         full},
        {"shared textures only",
         ColorMode::OfMaterials,
         TextureMode::SharedOnly,
         full,
         full * 0.5f,
         {1.0f, full.y * 2, full.z * 2},
         full},
        {"grey", ColorMode::Grey, TextureMode::All, greyed, greyed, greyed, greyed},
        {"white", ColorMode::White, TextureMode::SharedOnly, white, white, white, white},
        {"no textures", ColorMode::OfMaterials, TextureMode::None, white, white, white, white},
    };
    for (const uint32_t shadows : {0u, kDrawShadows})
        for (const auto& row : rows) {
            ShadowRenderer& renderer = selectShadow(kDrawFullQuality | shadows);
            renderer.choices.colorMode = row.colorMode;
            renderer.choices.textureMode = row.textureMode;
            const Picture picture = drawFrame();
            expectPixel(picture, -6, 0, shaded(row.clay, up, 1.0), row.name);
            expectPixel(picture, -2, 0, shaded(row.dim, up, 1.0), row.name);
            expectPixel(picture, 2, 0, shaded(row.bright, up, 1.0), row.name);
            expectPixel(picture, 6, 0, shaded(row.mirror, up, 1.0), row.name);
        }
}

TEST_F(ShadowShadingTest, TexturesCountTwiceAndOpacityMapsCutOut) {
    constexpr Pixel kTexel{100, 60, 30};
    Ptr32<TextureImage> color{};
    Ptr32<TextureImage> solid{};
    Ptr32<TextureImage> clear{};
    color = makeImage(GL_RGB, kTexel, TextureRole::Color);
    solid = makeImage(GL_RGB, {255, 255, 255}, TextureRole::Opacity);
    clear = makeImage(GL_RGB, {0, 0, 0}, TextureRole::Opacity);
    const auto addTextured = [&](TextureImage* opacity) {
        MATERIAL material = plainMaterial();
        material.color = {128, 204, 255};
        material.inlineTexture.color = color.get();
        material.inlineTexture.opacity = opacity;
        return static_cast<int16_t>(scene_->addMaterial(material));
    };
    const int16_t plain = addTextured(nullptr);
    const int16_t whole = addTextured(solid.get());
    const int16_t none = addTextured(clear.get());
    scene_->addObject();
    scene_->addFace(plate(-8, -2, -4, 2, 0, plain));
    scene_->addFace(plate(-4, -2, 0, 2, 0, whole));
    scene_->addFace(plate(0, -2, 4, 2, 0, none));
    for (const uint32_t shadows : {0u, kDrawShadows}) {
        selectShadow(kDrawFullQuality | shadows);
        const Picture picture = drawFrame();
        const Vec3 texel = channels(kTexel) * 2.0f;
        const Vec3 tint = channels({255, 204, 128});
        expectPixel(picture, -6, 0,
                    shaded({texel.x * tint.x, texel.y * tint.y, texel.z * tint.z}, {0, 0, 1}, 1.0),
                    "tinted");
        expectPixel(picture, -2, 0, shaded(texel * 0.5f, {0, 0, 1}, 1.0), "with an opacity map");
        expectPixel(picture, 2, 0, kBackground, "cut out");
    }
    releaseTextureImage(color);
    releaseTextureImage(solid);
    releaseTextureImage(clear);
}

TEST_F(ShadowShadingTest, FacesMarkedUnlitKeepTheirColor) {
    const auto clay = static_cast<int16_t>(addColored(kClay));
    scene_->addObject();
    FaceShape face = plate(-6, -6, 0, 6, 0, clay);
    face.flags = kFaceUnlit;
    scene_->addFace(face);
    scene_->addObject();
    scene_->addFace(plate(0, -6, 6, 6, 0, clay));
    selectShadow(kDrawFullQuality);
    const Picture picture = drawFrame();
    expectPixel(picture, -3, 0, kClay, "unlit");
    expectPixel(picture, 3, 0, shaded(channels(kClay), {0, 0, 1}, 1.0), "lit");
}

TEST_F(ShadowShadingTest, ScenesWithoutASunHaveAmbientLightOnly) {
    scene_->addObject();
    scene_->addFace(plate(-6, -6, 6, 6));
    selectShadow(kDrawFullQuality | kDrawShadows);
    const int ambient =
        static_cast<int>(std::lround(std::pow(0.75 * 4.0 * kAmbient, 1.0 / 1.8) * 255.0));
    scene_->light(0).target = {0, 0, 0};
    expectPixel(drawFrame(), 0, 0, {ambient, ambient, ambient}, "no direction");
    scene_->geometry().lights.count = 0;
    expectPixel(drawFrame(), 0, 0, {ambient, ambient, ambient}, "no light");
    scene_->geometry().lights.count = -5;
    expectPixel(drawFrame(), 0, 0, {ambient, ambient, ambient}, "bad list");
}

} // namespace
} // namespace ogl::test
