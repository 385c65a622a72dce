// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/view_fit.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

using namespace oglview;
using ogl::host::Camera;
using ogl::host::Vec3;

/// Where a point is in the picture, both from -1 to 1, and how deep.
struct Seen {
    double x;
    double y;
    double depth;
};

Seen project(const Camera& camera, double aspect, Vec3 point) {
    const Vec3 forward = normalized(camera.target - camera.eye);
    const Vec3 right = normalized(cross(forward, camera.up));
    const Vec3 up = cross(right, forward);
    const Vec3 from = point - camera.eye;
    const double depth = dot(from, forward);
    const double slope = std::tan(camera.fieldOfViewDegrees * std::numbers::pi / 360.0);
    return {dot(from, right) / (depth * slope * aspect), dot(from, up) / (depth * slope), depth};
}

std::vector<Vec3> boxCorners(Vec3 low, Vec3 high) {
    std::vector<Vec3> corners;
    for (const double x : {low.x, high.x})
        for (const double y : {low.y, high.y})
            for (const double z : {low.z, high.z})
                corners.push_back({x, y, z});
    return corners;
}

TEST(CameraFit, FillsThePictureUpToTheMargin) {
    struct Row {
        const char* name;
        Vec3 low;
        Vec3 high;
        ViewDirection view;
        double aspect;
    };
    const Vec3 up{0, 0, 1};
    const Row rows[] = {
        {"house from a corner", {0, 0, 0}, {12, 10, 6}, {{0.6, 0.8, -0.3}, up, 35}, 4.0 / 3.0},
        {"far from the origin", {900, 700, 50}, {912, 710, 56}, {{1, 1, -1}, up, 35}, 1.0},
        {"tower, wide picture", {0, 0, 0}, {5, 5, 60}, {{0, 1, 0}, up, 20}, 3.0},
        {"flat site, tall picture", {0, 0, 0}, {80, 60, 0}, {{1, 0.2, -0.4}, up, 50}, 0.4},
        {"plan", {0, 0, 0}, {12, 10, 6}, {{0, 0, -1}, {0, 1, 0}, 6}, 1.5},
    };
    constexpr double kMargin = 0.1;
    for (const Row& row : rows) {
        const std::vector<Vec3> points = boxCorners(row.low, row.high);
        const Camera camera = fitView(points, row.view, row.aspect, kMargin);
        double left = 1e9;
        double right = -1e9;
        double bottom = 1e9;
        double top = -1e9;
        for (const Vec3& point : points) {
            const Seen seen = project(camera, row.aspect, point);
            EXPECT_GE(seen.depth, kNearPlane) << row.name;
            left = std::min(left, seen.x);
            right = std::max(right, seen.x);
            bottom = std::min(bottom, seen.y);
            top = std::max(top, seen.y);
        }
        // Nothing passes the margin, in one direction both sides touch it, and in the other one
        // both leave the same.
        EXPECT_NEAR(left + right, 0.0, 0.01) << row.name;
        EXPECT_NEAR(bottom + top, 0.0, 0.01) << row.name;
        const double limit = 1.0 - kMargin;
        EXPECT_LE(std::max({-left, right, -bottom, top}), limit + 1e-6) << row.name;
        const bool across = std::abs(left + limit) < 1e-6 && std::abs(right - limit) < 1e-6;
        const bool along = std::abs(bottom + limit) < 1e-6 && std::abs(top - limit) < 1e-6;
        EXPECT_TRUE(across || along)
            << row.name << ": " << left << " .. " << right << ", " << bottom << " .. " << top;
    }
}

TEST(CameraFit, KeepsSmallThingsBehindTheNearPlane) {
    const std::vector<Vec3> cup = boxCorners({0, 0, 0}, {0.08, 0.08, 0.1});
    const Camera camera = fitView(cup, {{0, 1, 0}, {0, 0, 1}, 40}, 1.0, 0.0);
    for (const Vec3& point : cup)
        EXPECT_GE(project(camera, 1.0, point).depth, kNearPlane);
    // Still in the middle of the picture.
    const Seen middle = project(camera, 1.0, {0.04, 0.04, 0.05});
    EXPECT_NEAR(middle.x, 0.0, 1e-9);
    EXPECT_NEAR(middle.y, 0.0, 1e-9);
}

TEST(CameraFit, NearlyParallelViewsStayWithinTheDepthRange) {
    for (const double size : {1.0, 15.0, 80.0, 399.0})
        for (const double aspect : {0.3, 1.0, 2.5}) {
            const double side = size / std::sqrt(3.0);
            const std::vector<Vec3> points = boxCorners({0, 0, 0}, {side, side, side});
            const double fieldOfView = nearlyParallelFieldOfView(size, aspect);
            const Camera camera =
                fitView(points, {{0, 1, 0}, {0, 0, 1}, fieldOfView}, aspect, 0.08);
            for (const Vec3& point : points)
                EXPECT_LT(project(camera, aspect, point).depth, kFarPlane)
                    << size << " m, aspect " << aspect;
        }
}

TEST(CameraFit, ScalesOnlyWhatDoesNotFitTheDepthRange) {
    struct Row {
        double size;
        double scale;
    };
    for (const Row& row :
         {Row{17.0, 1.0}, Row{0.5, 1.0}, Row{400.0, 1.0}, Row{0.0, 1.0}, Row{2500.0, 0.1},
          Row{40000.0, 0.01}, Row{0.1, 10.0}, Row{0.004, 1000.0}})
        EXPECT_DOUBLE_EQ(drawingScale(row.size), row.scale) << row.size;
}

} // namespace
