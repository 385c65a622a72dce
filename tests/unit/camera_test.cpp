// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "render/camera.h"

#include "render/light.h"
#include "support/scene_fixture.h"

#include <gtest/gtest.h>

namespace ogl {
namespace {

using test::SceneFixture;

void expectNear(Vec3 actual, Vec3 expected) {
    EXPECT_NEAR(actual.x, expected.x, 1e-5f);
    EXPECT_NEAR(actual.y, expected.y, 1e-5f);
    EXPECT_NEAR(actual.z, expected.z, 1e-5f);
}

TEST(OrthoCamera, SeesTheWholeBoxAlongADirection) {
    OrthoCamera camera;
    camera.setBounds({{0, 0, 0}, {2, 0, 0}});
    camera.setDirection({0, 0, -1});
    expectNear(camera.position, {1, 0, 2.2f});
    expectNear(camera.target, {1, 0, 0});
    EXPECT_NEAR(camera.near, 1.2f, 1e-5f);
    EXPECT_NEAR(camera.far, 3.2f, 1e-5f);
}

TEST(ViewCamera, FollowsTheZoomWindow) {
    const struct {
        const char* name;
        int width, height; ///< of the view
        int centerX, centerY, windowWidth, windowHeight;
        double scale, offsetX, offsetY;
    } rows[] = {
        {"no window", 800, 600, 5, 5, 0, 0, 1.0, -10.0 / (800.0 / 600 * 32000), -10.0 / 32000},
        {"half the height", 800, 800, 0, 0, 16000, 16000, 2.0, 0, 0},
        {"by height, moved", 800, 400, 3200, -1600, 16000, 16000, 2.0, -0.1, 0.1},
        {"by width", 800, 400, 0, 0, 32000, 8000, 2.0, 0, 0},
        {"by width, narrow", 400, 800, 0, 0, 8000, 8000, 2.0, 0, 0},
    };
    for (const auto& row : rows) {
        SceneFixture fixture;
        SCENE& scene = fixture.scene();
        scene.viewWindowCenterX = row.centerX;
        scene.viewWindowCenterY = row.centerY;
        scene.viewWindowWidth = row.windowWidth;
        scene.viewWindowHeight = row.windowHeight;
        PerspectiveCamera camera;
        setViewCamera(camera, scene, row.width, row.height, 1000.0f);
        const bool hasWindow = row.windowWidth > 0;
        EXPECT_NEAR(camera.scale, row.scale, 1e-6) << row.name;
        EXPECT_NEAR(camera.offsetX, hasWindow ? row.offsetX : 0.0, 1e-6) << row.name;
        EXPECT_NEAR(camera.offsetY, hasWindow ? row.offsetY : 0.0, 1e-6) << row.name;
        EXPECT_FLOAT_EQ(camera.near, 0.4f) << row.name;
        EXPECT_FLOAT_EQ(camera.far, 1000.0f) << row.name;
    }
}

TEST(ViewCamera, HasAnAspectWhenTheViewHasNoSize) {
    SceneFixture fixture;
    PerspectiveCamera camera;
    setViewCamera(camera, fixture.scene(), 0, 0, 1000.0f);
    EXPECT_FLOAT_EQ(camera.aspect, 1.0f);
}

TEST(SpotUpVector, IsAcrossTheDirectionForEveryDirection) {
    for (const Vec3 direction :
         {Vec3{0, 0, -1}, Vec3{1, 0, 0}, Vec3{0, 1, 0}, Vec3{0.6f, 0, 0.8f}}) {
        const Vec3 up = spotUpVector(direction);
        EXPECT_NEAR(up.x * direction.x + up.y * direction.y + up.z * direction.z, 0, 1e-6f);
        EXPECT_NEAR(length(up), 1.0f, 1e-6f);
    }
    expectNear(spotUpVector({1, 0, 0}), {0, 0, 1});
    expectNear(spotUpVector({0, 0, -1}), {1, 0, 0}); // by the second rule
}

TEST(Hammersley, MirrorsTheBinaryDigits) {
    const struct {
        unsigned k;
        float x, y;
    } rows[] = {{0, 0.0f, 0.03125f},
                {1, 0.5f, 0.09375f},
                {2, 0.25f, 0.15625f},
                {3, 0.75f, 0.21875f},
                {15, 0.9375f, 0.96875f}};
    for (const auto& row : rows) {
        EXPECT_FLOAT_EQ(hammersley(row.k)[0], row.x) << row.k;
        EXPECT_FLOAT_EQ(hammersley(row.k)[1], row.y) << row.k;
    }
}

} // namespace
} // namespace ogl
