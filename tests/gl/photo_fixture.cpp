// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "gl/photo_fixture.h"

#include "gl/shading_formulas.h"
#include "scene/sun/sun_position.h"

#include <cmath>

namespace ogl::test {

namespace {

Vec3 inParts(Pixel color) {
    return Vec3{static_cast<float>(color.red), static_cast<float>(color.green),
                static_cast<float>(color.blue)} *
           (1.0f / 255.0f);
}

} // namespace

void PhotoTest::SetUp() {
    GLTest::SetUp();
    SCENE& scene = scene_->scene();
    scene.renderMode = kRenderModePhoto;
    scene.exposure = 0.6f;
    scene.toneGamma = 0.8f;
    scene.saturation = 1.2f;
    scene.ambientLevel = 60;
    scene.lightFlags = kLightBackgroundColor;
    scene.geometry.backgroundColor = 0x785028; // red in the lowest byte
}

DeferredRenderer& PhotoTest::selectPhoto(uint32_t drawFlags) {
    scene_->commit();
    auto& renderer = select<DeferredRenderer>();
    renderer.choices.drawFlags = drawFlags;
    renderer.choices.textureMode = TextureMode::All;
    renderer.choices.colorMode = ColorMode::OfMaterials;
    renderer.choices.edgeMode = EdgeMode::Visible;
    renderer.choices.drawFaces = true;
    return renderer;
}

int PhotoTest::addColored(Pixel color) {
    MATERIAL material = plainMaterial();
    material.color = {static_cast<uint8_t>(color.blue), static_cast<uint8_t>(color.green),
                      static_cast<uint8_t>(color.red)};
    return scene_->addMaterial(material);
}

void PhotoTest::setSun(int azimuth, int elevation) {
    SCENE& scene = scene_->scene();
    scene.lightFlags = scene.lightFlags | kLightSunAndPortals | kLightSunPresent;
    scene.sunAzimuthAngle = static_cast<int16_t>(azimuth);
    scene.sunElevationAngle = static_cast<int16_t>(elevation);
    scene.sunColor = {255, 230, 200};
    scene.sunIntensity = 120;
}

void PhotoTest::addLamps(const std::vector<LIGHT>& lamps) {
    scene_->addLight({});
    scene_->addLight({});
    for (const LIGHT& lamp : lamps)
        scene_->addLight(lamp);
}

Vec3 PhotoTest::sunOn(Vec3 normal) const {
    const SCENE& scene = scene_->scene();
    Vec3 direction{};
    EXPECT_EQ(sunDirection(scene, direction), SunState::Known);
    const Vec3 color = inParts({scene.sunColor.red, scene.sunColor.green, scene.sunColor.blue});
    return color * (static_cast<float>(scene.sunIntensity) * 0.01f *
                    std::max(-dot(direction, normal), 0.0f));
}

Pixel PhotoTest::shown(Pixel albedo, Vec3 light) const {
    const Vec3 all = light + Vec3{kAmbient, kAmbient, kAmbient};
    return toned(times(all, toLinear(inParts(albedo))));
}

Pixel PhotoTest::toned(Vec3 light) const {
    const SCENE& scene = scene_->scene();
    const Vec3 c =
        toneCurve(saturated(light, scene.saturation), 2.0f * scene.exposure, scene.toneGamma);
    const auto byte = [](float x) {
        return static_cast<int>(std::lround(std::min(x, 1.0f) * 255));
    };
    return {byte(c.x), byte(c.y), byte(c.z)};
}

LIGHT pointLamp(Vec3 position, Vec3 color) {
    LIGHT lamp{};
    lamp.position = {position.x, position.y, position.z};
    lamp.color = {color.x, color.y, color.z};
    lamp.kind = 1;
    return lamp;
}

LIGHT spotLamp(Vec3 position, Vec3 target, Vec3 color, float coneDegrees) {
    LIGHT lamp = pointLamp(position, color);
    lamp.target = {target.x, target.y, target.z};
    lamp.coneAngle = coneDegrees;
    lamp.kind = 2;
    return lamp;
}

std::string plainTga(Pixel color) {
    constexpr int kSize = 8;
    std::string file(18, '\0');
    file[2] = 2;
    file[12] = file[14] = kSize;
    file[16] = 24;
    for (int i = 0; i < kSize * kSize; ++i)
        for (const int channel : {color.blue, color.green, color.red})
            file.push_back(static_cast<char>(channel));
    return file;
}

void addRoom(SceneFixture& scene, Vec3 low, Vec3 high, int16_t material) {
    const auto corner = [&](int i) {
        return Vec3{(i & 1) != 0 ? high.x : low.x, (i & 2) != 0 ? high.y : low.y,
                    (i & 4) != 0 ? high.z : low.z};
    };
    // Clockwise seen from inside.
    constexpr int kSides[5][4] = {
        {0, 2, 3, 1}, {4, 5, 7, 6}, {0, 1, 5, 4}, {2, 6, 7, 3}, {1, 3, 7, 5}};
    for (const auto& side : kSides)
        scene.addFace(
            quad(corner(side[0]), corner(side[1]), corner(side[2]), corner(side[3]), material));
}

} // namespace ogl::test
