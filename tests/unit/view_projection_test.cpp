// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host/view_projection.h"

#include "host/scene_builder.h"

#include <gtest/gtest.h>

#include <array>

namespace ogl::host {
namespace {

/// Looks along +y from 10 m away; at the target the picture is 20 m high.
Camera level() {
    return {{0, -10, 1}, {0, 0, 1}, {0, 0, 1}, 90.0};
}

TEST(ViewProjection, FindsThePixelOfAPoint) {
    const ViewWindow middle{0, 0, 0.5, 0.5};
    const ViewWindow corner{0.25, 0.25, 0.5, 0.5};
    const ViewWindow wide{0, 0, 2, 0.1}; // its width fills the picture
    const struct {
        const char* what;
        std::optional<ViewWindow> window;
        Vec3 point;
        Vec2 pixel; ///< of 400 x 200
    } rows[] = {
        {"target", std::nullopt, {0, 0, 1}, {200, 100}},
        {"right edge", std::nullopt, {20, 0, 1}, {400, 100}},
        {"top edge", std::nullopt, {0, 0, 11}, {200, 0}},
        {"twice as far", std::nullopt, {20, 10, 21}, {300, 0}},
        {"zoom", middle, {5, 0, 6}, {300, 0}},
        {"shifted zoom", corner, {5, 0, 6}, {200, 100}},
        {"zoom by width", wide, {20, 0, 11}, {400, 0}},
        {"no size", ViewWindow{9, 9, 0, 0}, {20, 0, 1}, {400, 100}},
    };
    for (const auto& row : rows) {
        const ViewProjection view(level(), row.window, 400, 200);
        const Vec2 pixel = view.pixel(row.point);
        EXPECT_NEAR(pixel.x, row.pixel.x, 1e-9) << row.what;
        EXPECT_NEAR(pixel.y, row.pixel.y, 1e-9) << row.what;
    }
    EXPECT_NEAR(ViewProjection(level(), {}, 4, 4).depth({3, -4, 9}), 6.0, 1e-12);
}

TEST(ViewProjection, CutsPathsBehindTheEye) {
    const ViewProjection view(level(), std::nullopt, 400, 200);
    // In front, through the eye's plane, behind it, back to the front, two more points.
    const PathPlace place =
        placeOfPath({{0, 0, 1}, {1, -20, 1}, {1, -30, 1}, {1, 0, 1}, {2, 0, 1}, {3, 0, 1}}, view);
    ASSERT_EQ(place.markers.size(), 6u);
    EXPECT_LT(place.markers[1].x, -1000);
    EXPECT_LT(place.markers[2].y, -1000);
    EXPECT_EQ(place.markers[5].x, 230);
    ASSERT_EQ(place.line.size(), 4u); // from where the way comes into view
    EXPECT_GT(place.line[0].x, 400);  // at once far to the right
    EXPECT_EQ(place.line[1].x, 210);
    EXPECT_EQ(place.line[3].x, 230);
    EXPECT_TRUE(placeOfPath({{0, -11, 0}, {0, -12, 0}}, view).line.empty());
    EXPECT_TRUE(placeOfPath({}, view).line.empty());
}

TEST(ViewProjection, PathsReachTheRecord) {
    SceneBuilder builder;
    builder.addPath({"first", {{0, 0, 1}, {10, 0, 1}, {0, -20, 1}}, {1, 7, -1}});
    builder.addPath({"second", {{0, 0, 11}}});
    builder.setCamera(level());
    builder.placePaths(400, 200); // not built yet: nothing to write to
    SCENE& scene = *builder.build();
    builder.placePaths(400, 200);
    const VIEW& view = *scene.geometry.view.get();
    const auto cluster = [](const VLIST& list, int k) {
        const INDEX index = static_cast<INDEX*>(list.index.data.get())[k];
        const auto* items = static_cast<PIXEL*>(list.items.data.get());
        std::vector<std::array<int, 2>> pixels;
        for (int i = 0; i < index.count; ++i)
            pixels.push_back({items[index.first + i].x, items[index.first + i].y});
        return pixels;
    };
    ASSERT_EQ(cluster(view.pathPixels, 0).size(), 3u);
    EXPECT_EQ(cluster(view.pathPixels, 0)[1], (std::array<int, 2>{300, 100}));
    ASSERT_EQ(cluster(view.markerPixels, 0).size(), 3u);
    EXPECT_EQ(cluster(view.markerPixels, 1), (std::vector<std::array<int, 2>>{{200, 0}}));
    const auto* points = static_cast<POINT3D*>(scene.pathPoints.items.data.get());
    EXPECT_EQ(points[0].flags, 0);
    EXPECT_EQ(points[1].flags, kPointSolid);
    EXPECT_EQ(points[2].flags, 0);
}

} // namespace
} // namespace ogl::host
