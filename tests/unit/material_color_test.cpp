// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/surfaces/material_color.h"

#include "fixed/surfaces/surface_pass.h"
#include "support/scene_fixture.h"

#include <gtest/gtest.h>

namespace ogl {
namespace {

MATERIAL paint(float brightness, float opacity, float reflection = 0.0f) {
    MATERIAL material = test::plainMaterial();
    material.color = {51, 102, 153}; // blue, green, red: 0.2, 0.4, 0.6
    material.brightness = brightness;
    material.opacity = opacity;
    material.reflection = reflection;
    return material;
}

TEST(MaterialColor, FollowsTheModes) {
    constexpr TextureMode kNone = TextureMode::None;
    constexpr TextureMode kShared = TextureMode::SharedOnly;
    constexpr TextureMode kAll = TextureMode::All;
    constexpr ColorMode kMaterials = ColorMode::OfMaterials;
    constexpr ColorMode kWhite = ColorMode::White;
    const struct {
        const char* name;
        MATERIAL material;
        TextureMode textureMode;
        ColorMode colorMode;
        bool sharedSlot, textured;
        Vec4 expected;
    } rows[] = {
        {"drawing is white", paint(0.4f, 1), kShared, kWhite, false, false, {1, 1, 1, 1}},
        {"no textures", paint(0.4f, 1), kNone, kMaterials, false, false, {1, 1, 1, 1}},
        {"white keeps opacity", paint(0.4f, 0.7f), kShared, kWhite, false, false, {1, 1, 1, 0.7f}},
        {"shared slot is opaque", paint(0.4f, 0.7f), kShared, kWhite, true, true, {1, 1, 1, 1}},
        {"faint becomes 0.2", paint(0.4f, 0.1f), kShared, kWhite, false, false, {1, 1, 1, 0.2f}},
        {"nothing stays nothing", paint(0.4f, 0), kShared, kWhite, false, false, {1, 1, 1, 0}},
        {"by brightness", paint(0.4f, 1), kAll, kMaterials, false, false, {0.6f, 0.4f, 0.2f, 1}},
        {"clamped", paint(0.8f, 1), kAll, kMaterials, false, false, {1, 0.8f, 0.4f, 1}},
        {"reflection", paint(0.4f, 1, 0.2f), kAll, kMaterials, false, false, {0.7f, 0.5f, 0.3f, 1}},
        {"textured", paint(0.4f, 1), kAll, kMaterials, false, true, {0.5f, 0.5f, 0.5f, 1}},
        {"grey", paint(0.8f, 1), kAll, ColorMode::Grey, false, false, {0.44f, 0.44f, 0.44f, 1}},
    };
    for (const auto& row : rows) {
        const Vec4 color = materialColor(row.material, row.textureMode, row.colorMode,
                                         row.sharedSlot, row.textured);
        EXPECT_NEAR(color.x, row.expected.x, 1e-4f) << row.name;
        EXPECT_NEAR(color.y, row.expected.y, 1e-4f) << row.name;
        EXPECT_NEAR(color.z, row.expected.z, 1e-4f) << row.name;
        EXPECT_NEAR(color.w, row.expected.w, 1e-4f) << row.name;
    }
}

TEST(SurfaceLayer, IsChosenByOpacityAndTextures) {
    const struct {
        const char* name;
        float opacity;
        uint16_t flags;
        bool sharedSlot, alphaMap;
        SurfaceLayer expected;
    } rows[] = {
        {"opaque", 1.0f, 0, false, false, SurfaceLayer::Opaque},
        {"glass", 0.3f, 0, false, false, SurfaceLayer::Blended},
        {"cut out", 0.3f, 0, false, true, SurfaceLayer::Opaque},
        {"shared texture on glass", 0.3f, 0, true, false, SurfaceLayer::Opaque},
        {"shared texture with alpha", 1.0f, kMaterialAlphaTextured, true, false,
         SurfaceLayer::Blended},
        {"inline texture with alpha bit", 1.0f, kMaterialAlphaTextured, false, false,
         SurfaceLayer::Opaque},
    };
    for (const auto& row : rows) {
        MATERIAL material = test::plainMaterial();
        material.opacity = row.opacity;
        material.flags = row.flags;
        EXPECT_EQ(surfaceLayer(material, row.sharedSlot, row.alphaMap), row.expected) << row.name;
    }
}

} // namespace
} // namespace ogl
