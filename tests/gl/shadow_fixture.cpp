// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "gl/shadow_fixture.h"

#include "support/forward_light.h"

namespace ogl::test {

void ShadowTest::SetUp() {
    GLTest::SetUp();
    scene_->addMaterial(plainMaterial());
    scene_->geometry().backgroundColor = 0x785028; // red in the lowest byte
    scene_->geometry().lightAmbient = kAmbient;
    scene_->addLight({});
    sun_.color = {kSunColor.x, kSunColor.y, kSunColor.z};
    setSun({0, 0, -1});
}

void ShadowTest::setSun(Vec3 direction) {
    sun_.target = {direction.x, direction.y, direction.z};
    if (scene_->geometry().lights.count > 0)
        scene_->light(0) = sun_;
    toSun_ = -normalized(direction);
}

ShadowRenderer& ShadowTest::selectShadow(uint32_t drawFlags) {
    scene_->commit();
    scene_->light(0) = sun_;
    auto& renderer = select<ShadowRenderer>();
    renderer.choices.drawFlags = drawFlags;
    renderer.choices.textureMode = TextureMode::All;
    renderer.choices.colorMode = ColorMode::OfMaterials;
    renderer.choices.edgeMode = EdgeMode::None;
    renderer.choices.drawFaces = true;
    renderer.choices.useLighting = true;
    return renderer;
}

int ShadowTest::addColored(Pixel color, float brightness) {
    MATERIAL material = plainMaterial();
    material.color = {static_cast<uint8_t>(color.blue), static_cast<uint8_t>(color.green),
                      static_cast<uint8_t>(color.red)};
    material.brightness = brightness;
    return scene_->addMaterial(material);
}

Pixel ShadowTest::shaded(Vec3 albedo, Vec3 normal, double lit) const {
    const ForwardSurface surface{normal.z, dot(toSun_, normal), kAmbient, lit};
    return {surface.shaded(albedo.x, kSunColor.x), surface.shaded(albedo.y, kSunColor.y),
            surface.shaded(albedo.z, kSunColor.z)};
}

void addBox(SceneFixture& scene, Vec3 low, Vec3 high, int16_t material) {
    const auto corner = [&](int i) {
        return Vec3{(i & 1) != 0 ? high.x : low.x, (i & 2) != 0 ? high.y : low.y,
                    (i & 4) != 0 ? high.z : low.z};
    };
    // Clockwise seen from outside.
    constexpr int kSides[6][4] = {{0, 1, 3, 2}, {4, 6, 7, 5}, {0, 4, 5, 1},
                                  {2, 3, 7, 6}, {0, 2, 6, 4}, {1, 5, 7, 3}};
    for (const auto& side : kSides)
        scene.addFace(
            quad(corner(side[0]), corner(side[1]), corner(side[2]), corner(side[3]), material));
}

} // namespace ogl::test
