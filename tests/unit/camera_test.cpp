// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "render/camera.h"

#include "render/light.h"
#include "support/scene_fixture.h"

#include <gtest/gtest.h>

namespace ogl::test {
namespace {

void expectNear(Vec3 actual, Vec3 expected) {
    EXPECT_NEAR(actual.x, expected.x, 1e-5f);
    EXPECT_NEAR(actual.y, expected.y, 1e-5f);
    EXPECT_NEAR(actual.z, expected.z, 1e-5f);
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
} // namespace ogl::test
