// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "gl/photo_fixture.h"
#include "gl/shading_formulas.h"
#include "gl/shadow_fixture.h"

#include <cmath>

namespace ogl {
namespace {

using test::isNear;
using test::Picture;
using test::Pixel;
using test::plate;

constexpr Pixel kBrick{180, 90, 60};

void expectPixel(Pixel actual, Pixel expected, const std::string& what, int tolerance = 2) {
    EXPECT_TRUE(isNear(actual, expected, tolerance))
        << what << ": " << actual.red << ' ' << actual.green << ' ' << actual.blue << ", not "
        << expected.red << ' ' << expected.green << ' ' << expected.blue;
}

class DeferredRendererTest : public test::PhotoTest {
  protected:
    /// A wall from -5 to 5 in both directions.
    int addWall(Pixel color = kBrick) {
        const int material = addColored(color);
        scene_->addObject();
        scene_->addFace(plate(-5, -5, 5, 5, 0, static_cast<int16_t>(material)));
        return material;
    }
};

TEST_F(DeferredRendererTest, WallInTheSunBeforeTheBackground) {
    addWall();
    setSun(30, -50);
    selectPhoto();
    const Vec3 sun = sunOn({0, 0, 1});
    const Pixel grey{80, 80, 80}; // (40 + 80 + 120) / 3
    const struct {
        const char* name;
        bool fxaa;
        uint32_t lights, flags;
        Pixel wall, background;
    } rows[] = {
        {"plain", false, kLightBackgroundColor, kDrawFullQuality, shown(kBrick, sun), kBackground},
        {"FXAA", true, kLightBackgroundColor, kDrawFullQuality, shown(kBrick, sun), kBackground},
        {"white paper", false, 0, kDrawFullQuality, shown(kBrick, sun), {255, 255, 255}},
        {"grey background", true, kLightBackgroundColor, kDrawFullQuality | kDrawGrey,
         shown(kBrick, sun), grey},
        {"no sun", false, kLightBackgroundColor | kLightSunAndPortals, kDrawFullQuality,
         shown(kBrick), kBackground},
    };
    for (const auto& row : rows) {
        context_->settings.useFXAA = row.fxaa ? 1 : 0;
        SCENE& scene = scene_->scene();
        const bool noSun = (row.lights & kLightSunAndPortals) != 0;
        scene.lightFlags = (row.lights & ~kLightSunAndPortals) |
                           (noSun ? 0 : kLightSunAndPortals | kLightSunPresent);
        renderer_->choices.drawFlags = row.flags;
        const Picture picture = drawFrame();
        expectPixel(pixelAt(picture, 0, 0), row.wall, row.name);
        expectPixel(pixelAt(picture, 8, 8), row.background, row.name);
    }
}

TEST_F(DeferredRendererTest, TheShadowOfTheSun) {
    addWall();
    scene_->addObject();
    // Too high to be lit or seen from: the plate hides its own shadow's middle.
    scene_->addFace(plate(-9, -1, -8, 1, 2, 0));
    scene_->addFace(test::quad({-9, -1, 2}, {-8, -1, 2}, {-8, 1, 2}, {-9, 1, 2}, 0));
    setSun(0, -20); // 2 / tan(20 degrees) = 5.5 to the right: x = -3.5 .. -2.5
    selectPhoto();
    Picture picture = drawFrame();
    const Pixel lit = shown(kBrick, sunOn({0, 0, 1}));
    expectPixel(pixelAt(picture, -3, 0), shown(kBrick), "in the shadow");
    for (const auto& [x, y] : {std::pair{-4.4f, 0.0f}, {-1.5f, 0.0f}, {-3.0f, 2.0f}})
        expectPixel(pixelAt(picture, x, y), lit, "beside the shadow");
    renderer_->choices.drawFlags = kDrawFullQuality;
    picture = drawFrame();
    expectPixel(pixelAt(picture, -3, 0), lit, "without shadows");
}

TEST_F(DeferredRendererTest, LampsAddTheirLight) {
    addWall();
    const Vec3 warm{0.6f, 0.5f, 0.4f};
    const Vec3 cold{0.3f, 0.4f, 0.6f};
    addLamps({test::pointLamp({-3, 0, 2}, warm), test::spotLamp({2, 1, 3}, {2, 1, 0}, cold, 70)});
    selectPhoto();
    const Picture picture = drawFrame();
    const auto pointAt = [&](float x, float y) {
        const Vec3 way = Vec3{-3, 0, 2} - Vec3{x, y, 0};
        const float distance = length(way);
        return warm * (way.z / distance / (distance * distance + 0.02f));
    };
    const Vec3 spot = cold * 0.7f; // straight below, without attenuation
    expectPixel(pixelAt(picture, -3, 0), shown(kBrick, pointAt(-2.95f, 0.05f)), "below the point");
    expectPixel(pixelAt(picture, -3, 3), shown(kBrick, pointAt(-2.95f, 3.05f)), "beside the point");
    expectPixel(pixelAt(picture, 2, 1), shown(kBrick, pointAt(2.05f, 1.05f) + spot), "in the cone");
    // cos = 0.7 is 45 degrees off: the cone ends within 3.1.
    expectPixel(pixelAt(picture, 2, -3), shown(kBrick, pointAt(2.05f, -2.95f)), "outside the cone");
}

/// A cone of 45 degrees lights 60 degrees around its axis, which is more than its map shows.
TEST_F(DeferredRendererTest, SpotLightsStopAtWalls) {
    addWall();
    scene_->addObject();
    addBox(*scene_, {2, -3, 0}, {2.2f, 3, 2.5f});
    const Vec3 cold{0.3f, 0.4f, 0.6f};
    addLamps({test::spotLamp({0, 0, 3}, {0, 0, 0}, cold, 45)});
    selectPhoto();
    const Picture picture = drawFrame();
    const auto spotAt = [&](float x) { return cold * (0.7f * 3.0f / std::hypot(x, 3.0f)); };
    expectPixel(pixelAt(picture, -2, 0), shown(kBrick, spotAt(-1.95f)), "in the map");
    expectPixel(pixelAt(picture, -3.6f, 0), shown(kBrick, spotAt(-3.55f)), "beside the map");
    expectPixel(pixelAt(picture, 3.6f, 0), shown(kBrick), "behind the wall");
}

TEST_F(DeferredRendererTest, WhatThePictureIsMadeOf) {
    MATERIAL lamp = test::plainMaterial();
    lamp.color = {100, 150, 200};
    lamp.emission = 1.5f;
    MATERIAL mirror = test::plainMaterial();
    mirror.color = {60, 60, 60};
    mirror.reflection = 0.5f;
    mirror.fresnel = 1.0f;
    scene_->addMaterial(lamp);
    scene_->addMaterial(mirror);
    scene_->addObject();
    scene_->addFace(plate(-5, -5, 0, 5, 0, 0));
    scene_->addFace(plate(0, -5, 5, 5, 0, 1));
    constexpr Pixel kSky{200, 120, 40};
    test::writeFile(folder_.file("environment.tga"), test::plainTga(kSky));
    context_->settings.texturesDir = folder_.hostFile("");
    selectPhoto();
    Picture picture = drawFrame();
    const float own = std::log(1.0f + 1.5f);
    const Vec3 glow = test::toLinear({200 / 255.0f, 150 / 255.0f, 100 / 255.0f}) * own;
    expectPixel(pixelAt(picture, -2.5f, 0), toned(glow), "emission");
    const auto reflected = [](int byte) {
        return std::pow(static_cast<float>(byte) / 255.0f * 0.5f, 1.5f) * 2.0f * (kAmbient + 0.4f);
    };
    const float grey = kAmbient * std::pow(60 / 255.0f * 0.5f, 1.8f);
    const Vec3 shine{grey + reflected(kSky.red), grey + reflected(kSky.green),
                     grey + reflected(kSky.blue)};
    expectPixel(pixelAt(picture, 2.5f, 0), toned(shine), "reflection");

    SCENE& scene = scene_->scene();
    scene.lightFlags = scene.lightFlags | kLightMonochrome;
    scene.edgeColor = {200, 30, 60};
    picture = drawFrame();
    const Pixel plain = toned(glow);
    const float brightness =
        static_cast<float>(plain.red + plain.green + plain.blue) / 255.0f * 0.333333f;
    const auto tint = [&](int ink) {
        return static_cast<int>(
            std::lround(static_cast<float>(ink) * (1 - brightness) + 255.0f * brightness));
    };
    expectPixel(pixelAt(picture, -2.5f, 0), {tint(200), tint(30), tint(60)}, "monochrome");
}

TEST_F(DeferredRendererTest, TheSketchDrawsEdgesOnly) {
    const auto white = static_cast<int16_t>(addColored({255, 255, 255}));
    scene_->addObject();
    // So close that neighbouring pixels are no leap: one unit below the eye, half the view wide.
    scene_->addFace(plate(-0.5f, -0.5f, 0.5f, 0.5f, 9, white));
    SCENE& scene = scene_->scene();
    scene.ambientLevel = 200;
    scene.edgeStrength = 100;
    scene.noiseStrength = 20;
    scene.edgeColor = {0, 0, 0};
    selectPhoto();
    const Picture plain = drawFrame();
    scene.lightFlags = scene.lightFlags | kLightSketchEdges;
    const Picture sketch = drawFrame();
    expectPixel(pixelAt(sketch, 0, 0), pixelAt(plain, 0, 0), "inside", 0);
    expectPixel(pixelAt(sketch, 8, 8), pixelAt(plain, 8, 8), "background", 0);
    int darker = 0;
    for (int y = 60; y < 140; ++y) // along the left edge, x = 50
        darker += sketch.count(46, y, 55, y + 1, [](Pixel p) { return p.red < 60; }) > 0;
    EXPECT_GT(darker, 70);
}

TEST_F(DeferredRendererTest, OcclusionDarkensCorners) {
    const int white = addColored({255, 255, 255});
    scene_->addObject();
    scene_->addFace(plate(-8, -8, 8, 8, 0, static_cast<int16_t>(white)));
    // A wall that stands on it, its front to the left.
    scene_->addFace(
        test::quad({3, 8, 0}, {3, 8, 3}, {3, -8, 3}, {3, -8, 0}, static_cast<int16_t>(white)));
    scene_->scene().aoStrength = 100;
    selectPhoto();
    const Picture picture = drawFrame();
    const Pixel open = pixelAt(picture, -6, 0);
    const Pixel corner = pixelAt(picture, 2.7f, 0);
    expectPixel(open, shown({255, 255, 255}), "open", 4);
    EXPECT_LT(corner.red, open.red - 8);
    scene_->scene().aoStrength = 0;
    expectPixel(pixelAt(drawFrame(), 2.7f, 0), shown({255, 255, 255}), "without occlusion");
}

TEST_F(DeferredRendererTest, SamplesSoftenEdges) {
    context_->settings.photoSamples.set(4.0f);
    scene_->addObject();
    const auto material = static_cast<int16_t>(addColored(kBrick));
    scene_->addFace(test::quad({-5, -5, 0}, {-4, 5, 0}, {5, 5, 0}, {5, -5, 0}, material));
    setSun(30, -50);
    selectPhoto();
    const Picture picture = drawFrame();
    const Pixel wall = shown(kBrick, sunOn({0, 0, 1}));
    expectPixel(pixelAt(picture, 0, 0), wall, "wall");
    expectPixel(pixelAt(picture, -8, 0), kBackground, "background");
    // The slanted edge crosses the columns 50 to 60.
    const int between = picture.count(48, 60, 62, 140, [&](Pixel p) {
        return p.red > kBackground.red + 15 && p.red < wall.red - 15;
    });
    EXPECT_GT(between, 20);
}

TEST_F(DeferredRendererTest, FxaaSoftensEdges) {
    scene_->addObject();
    const auto material = static_cast<int16_t>(addColored({255, 255, 255}));
    scene_->addFace(test::quad({-5, -5, 0}, {-4, 5, 0}, {5, 5, 0}, {5, -5, 0}, material));
    scene_->scene().ambientLevel = 200;
    selectPhoto();
    const auto between = [&] {
        return drawFrame().count(46, 60, 64, 140,
                                 [&](Pixel p) { return p.red > 70 && p.red < 200; });
    };
    EXPECT_EQ(between(), 0);
    context_->settings.useFXAA = 1;
    EXPECT_GT(between(), 40);
}

/// Frames that ambient light alone lights skip the passes that make no difference to them.
TEST_F(DeferredRendererTest, EvenLightIsAsDrawnInFull) {
    MATERIAL lamp = test::plainMaterial();
    lamp.emission = 1.5f;
    MATERIAL mirror = test::plainMaterial();
    mirror.specular = mirror.reflection = 0.5f;
    MATERIAL glass = test::plainMaterial();
    glass.opacity = 0.5f;
    const auto brick = static_cast<int16_t>(addColored(kBrick));
    const auto first = static_cast<int16_t>(scene_->addMaterial(lamp));
    scene_->addMaterial(mirror);
    scene_->addMaterial(glass);
    scene_->addObject();
    scene_->addFace(test::quad({-9, -7, 0}, {-8, 6, 0}, {1, 9, 2}, {3, -9, -2}, brick));
    scene_->addFace(test::quad({2, 3, 1}, {3, 9, 1}, {9, 8, 1}, {8, 2, 1}, first));
    scene_->addFace(
        test::quad({2, -8, 3}, {1, -1, 1}, {9, 0, 1}, {8, -9, 1}, static_cast<int16_t>(first + 1)));
    scene_->addFace(test::quad({-5, -4, 4}, {-4, 5, 4}, {6, 4, 4}, {5, -5, 4},
                               static_cast<int16_t>(first + 2)));
    scene_->addObject();
    test::FaceShape unlit = test::quad({-7, 3, 3}, {-6, 8, 3}, {-2, 9, 3}, {-3, 2, 3}, brick);
    unlit.flags = kFaceUnlit;
    scene_->addFace(unlit);
    addLamps({test::pointLamp({0, 0, 5}, {})}); // black: needs all passes
    test::writeFile(folder_.file("environment.tga"), test::plainTga({200, 120, 40}));
    context_->settings.texturesDir = folder_.hostFile("");
    SCENE& scene = scene_->scene();
    scene.edgeStrength = 80;
    scene.noiseStrength = 30;
    const struct {
        const char* name;
        float samples;
        int fxaa;
        uint32_t lights;
    } rows[] = {
        {"one sample", 1, 0, 0},
        {"four samples", 4, 0, 0},
        {"FXAA", 4, 1, 0},
        {"sketch", 4, 0, kLightSketchEdges},
        {"sketch and FXAA", 1, 1, kLightSketchEdges},
        {"daylight without a sun", 4, 0, kLightSunAndPortals | kLightSunPresent},
    };
    for (const auto& row : rows) {
        context_->settings.photoSamples.set(row.samples);
        context_->settings.useFXAA = row.fxaa;
        scene.lightFlags = kLightBackgroundColor | row.lights;
        std::vector<Picture> pictures;
        for (const bool all : {false, true}) {
            bool blurred = false;
            auto& photo = selectPhoto();
            scene.geometry.lights.count = all ? 3 : 0;
            photo.passDrawn = [&](const char* pass) {
                blurred = blurred || std::string(pass) == "blur";
            };
            pictures.push_back(drawFrame());
            EXPECT_EQ(blurred, all) << row.name;
        }
        int colors = 0;
        int different = 0;
        for (int y = 0; y < kViewSize; ++y)
            for (int x = 0; x < kViewSize; ++x) {
                const Pixel full = pictures[1].at(x, y);
                colors += !isNear(full, kBackground, 5);
                different += !isNear(pictures[0].at(x, y), full, 0);
                // Drivers may cut off what a half-precision number does not hold: the blur's mean
                // of equal values is the next number below then, which few pixels show.
                expectPixel(pictures[0].at(x, y), full, row.name, 1);
            }
        EXPECT_GT(colors, 20000) << row.name;
        EXPECT_LT(different, 20) << row.name;
    }
}

/// A room below the camera whose open side at x = -4 holds a portal.
TEST_F(DeferredRendererTest, InteriorSunComesThroughPortals) {
    const auto white = static_cast<int16_t>(addColored({255, 255, 255}));
    scene_->addObject();
    addRoom(*scene_, {-4, -4, 0}, {4, 4, 4}, white);
    scene_->addObject(0, 1);
    MATERIAL clear = test::plainMaterial();
    clear.opacity = 0.0f;
    const auto pane = static_cast<int16_t>(scene_->addMaterial(clear));
    test::FaceShape outer =
        test::quad({-3.9f, -1, 1}, {-3.9f, -1, 3}, {-3.9f, 1, 3}, {-3.9f, 1, 1}, pane);
    test::FaceShape inner =
        test::quad({-3.9f, 1, 1}, {-3.9f, 1, 3}, {-3.9f, -1, 3}, {-3.9f, -1, 1}, pane);
    inner.flags = outer.flags = kFacePortal;
    scene_->addFace(outer);
    scene_->addFace(inner);
    scene_->look({0, 0, 3.9f}, {0, 0, 0}, 1.5);
    setSun(0, -40);
    SCENE& scene = scene_->scene();
    scene.lightFlags = scene.lightFlags | kLightInterior;
    scene.portalIntensity = -32768; // next to no light of the portals themselves
    selectPhoto();
    const Picture picture = drawFrame();
    // A point of the floor at the distance 3.9 below the eye.
    const auto at = [&](float x, float y) {
        const float scale = 100.0f / (3.9f * std::tan(0.75f));
        return picture.at(static_cast<int>(100 + x * scale), static_cast<int>(100 + y * scale));
    };
    // The light travels 1 / tan(40 degrees) = 1.19 for each unit down: x = -2.71 .. -0.33.
    const Pixel lit = shown({255, 255, 255}, sunOn({0, 0, 1}));
    expectPixel(at(-1.5f, 0), lit, "in the patch", 3);
    expectPixel(at(-1.5f, 0.7f), lit, "in the patch", 3);
    for (const auto& [x, y] : {std::pair{0.6f, 0.0f}, {-1.5f, 1.6f}, {-1.5f, -1.6f}, {2.0f, 0.0f}})
        expectPixel(at(x, y), shown({255, 255, 255}), "beside the patch", 3);
}

} // namespace
} // namespace ogl
