// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/interior_view.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using namespace oglview;
using ogl::host::Camera;
using ogl::host::Vec3;

void addBox(TriangleCorners& corners, Vec3 low, Vec3 high) {
    const auto corner = [&](int k) {
        return Vec3{k & 1 ? high.x : low.x, k & 2 ? high.y : low.y, k & 4 ? high.z : low.z};
    };
    const int sides[6][4] = {{0, 1, 3, 2}, {4, 5, 7, 6}, {0, 1, 5, 4},
                             {2, 3, 7, 6}, {0, 2, 6, 4}, {1, 3, 7, 5}};
    for (const auto& s : sides)
        for (const int k : {s[0], s[1], s[2], s[0], s[2], s[3]})
            corners.push_back(corner(k));
}

/// Two rooms side by side on a slab in a garden: 3 x 3 m and, from x = 4 on, 9 x 4 m.
TriangleCorners house() {
    TriangleCorners corners;
    addBox(corners, {-20, -20, -0.5}, {30, 20, -0.01});
    addBox(corners, {0, 0, 0}, {3, 3, 2.5});
    addBox(corners, {4, 0, 0}, {13, 4, 2.5});
    return corners;
}

TEST(InteriorView, StandsInTheLargestRoomAndLooksAlongIt) {
    const TriangleCorners corners = house();
    const auto camera = interiorView(corners, 4.0 / 3.0);
    ASSERT_TRUE(camera.has_value());
    EXPECT_GT(camera->eye.x, 4.4);
    EXPECT_LT(camera->eye.x, 12.6);
    EXPECT_GT(camera->eye.y, 0.4);
    EXPECT_LT(camera->eye.y, 3.6);
    EXPECT_NEAR(camera->eye.z, 1.6, 1e-6);
    const Vec3 forward = normalized(camera->target - camera->eye);
    EXPECT_NEAR(forward.z, 0.0, 1e-9) << "upright walls stay upright";
    EXPECT_GT(std::abs(forward.x), 0.8) << "along the room";
    // From one end towards the other.
    const double ahead = forward.x > 0.0 ? 13.0 - camera->eye.x : camera->eye.x - 4.0;
    EXPECT_GT(ahead, 6.0);
}

TEST(InteriorView, WiderPicturesShowAsMuchAcross) {
    const TriangleCorners corners = house();
    const auto square = interiorView(corners, 1.0);
    const auto wide = interiorView(corners, 2.0);
    ASSERT_TRUE(square && wide);
    const auto across = [](const Camera& camera, double aspect) {
        return aspect * std::tan(camera.fieldOfViewDegrees * 0.5 * 3.14159265358979 / 180.0);
    };
    EXPECT_NEAR(across(*square, 1.0), across(*wide, 2.0), 1e-6);
}

TEST(InteriorView, FindsNoneWhereThereIsNoRoom) {
    TriangleCorners garden;
    addBox(garden, {-20, -20, -0.5}, {30, 20, 0});
    EXPECT_FALSE(interiorView(garden, 1.0)) << "open ground";
    TriangleCorners table;
    addBox(table, {0, 0, 0.7}, {2, 1, 0.75});
    EXPECT_FALSE(interiorView(table, 1.0)) << "too low to stand under";
    TriangleCorners roof;
    addBox(roof, {-5, -5, -0.1}, {5, 5, 0});
    addBox(roof, {-5, -5, 3.0}, {5, 5, 3.2});
    EXPECT_FALSE(interiorView(roof, 1.0)) << "a roof without walls";
    EXPECT_FALSE(interiorView({}, 1.0));
}

} // namespace
