// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/orbit_camera.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using namespace oglview;
using ogl::host::Camera;
using ogl::host::Vec3;

Camera startCamera() {
    Camera camera;
    camera.eye = {0, -10, 2};
    camera.target = {0, 0, 2};
    camera.fieldOfViewDegrees = 90.0;
    return camera;
}

double distance(const OrbitCamera& orbit) {
    return length(orbit.camera().target - orbit.camera().eye);
}

TEST(OrbitCamera, TurnsAroundTheTargetWithThePointer) {
    OrbitCamera orbit(startCamera(), 20.0);
    orbit.orbit(0.5, 0.0); // a quarter turn: dragging right brings the left side into view
    EXPECT_NEAR(orbit.camera().eye.x, -10.0, 1e-9);
    EXPECT_NEAR(orbit.camera().eye.y, 0.0, 1e-9);
    orbit.orbit(0.0, 0.25); // dragging down shows the top
    EXPECT_NEAR(orbit.camera().eye.z, 2.0 + 10.0 * std::sqrt(0.5), 1e-9);
    EXPECT_NEAR(distance(orbit), 10.0, 1e-9);
}

TEST(OrbitCamera, NeverTurnsOver) {
    OrbitCamera orbit(startCamera(), 20.0);
    for (int k = 0; k < 50; ++k)
        orbit.orbit(0.0, 0.3);
    EXPECT_GT(orbit.camera().eye.z, 11.9);
    const Vec3 forward = normalized(orbit.camera().target - orbit.camera().eye);
    EXPECT_GT(length(cross(forward, orbit.camera().up)), 0.01) << "up is never the view direction";
    orbit.orbit(0.0, -0.5);
    EXPECT_NEAR(orbit.camera().eye.z, 2.0, 0.5) << "and it comes back without delay";
}

TEST(OrbitCamera, MovesWithThePicture) {
    OrbitCamera orbit(startCamera(), 20.0);
    orbit.pan(0.1, 0.2); // the picture is 20 m high at the target
    EXPECT_NEAR(orbit.camera().target.x, -2.0, 1e-9);
    EXPECT_NEAR(orbit.camera().target.z, 6.0, 1e-9);
    EXPECT_NEAR(orbit.camera().eye.x, -2.0, 1e-9);
    EXPECT_NEAR(distance(orbit), 10.0, 1e-9);
}

TEST(OrbitCamera, ZoomsTowardsTheTargetAndOnThroughIt) {
    OrbitCamera orbit(startCamera(), 20.0);
    orbit.zoom(1.0);
    EXPECT_NEAR(orbit.camera().eye.y, -8.5, 1e-9);
    orbit.zoom(-1.0);
    EXPECT_NEAR(orbit.camera().eye.y, -10.0, 1e-9);
    for (int k = 0; k < 60; ++k)
        orbit.zoom(1.0);
    EXPECT_GT(orbit.camera().eye.y, 0.0) << "past where the target was";
    EXPECT_GE(distance(orbit), 0.29);
    for (int k = 0; k < 200; ++k)
        orbit.zoom(-1.0);
    EXPECT_LE(distance(orbit), 400.1) << "the scene stays within reach";
}

TEST(OrbitCamera, WalksOnTheLevel) {
    Camera down = startCamera();
    down.target = {0, -5, -3};
    OrbitCamera orbit(down, 20.0);
    orbit.walk(1.0, 0.5, 0.25);
    EXPECT_NEAR(orbit.camera().eye.x, 0.5, 1e-9);
    EXPECT_NEAR(orbit.camera().eye.y, -9.0, 1e-9);
    EXPECT_NEAR(orbit.camera().eye.z, 2.25, 1e-9);
    orbit.reset();
    EXPECT_NEAR(orbit.camera().eye.y, -10.0, 1e-9);
}

TEST(OrbitCamera, TakesAPlanAsItsStart) {
    Camera plan;
    plan.eye = {3, 4, 100};
    plan.target = {3, 4, 0};
    plan.up = {0, 1, 0};
    const OrbitCamera orbit(plan, 20.0);
    const Vec3 forward = normalized(orbit.camera().target - orbit.camera().eye);
    EXPECT_LT(forward.z, -0.99);
    EXPECT_GT(forward.y, 0.0) << "what was up in the plan is still ahead";
    EXPECT_EQ(orbit.camera().up.z, 1.0);
}

} // namespace
