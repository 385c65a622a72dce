// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "scene/picking.h"

#include "support/scene_fixture.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace ogl::test {
namespace {

constexpr int kWidth = 640;
constexpr int kHeight = 480;
constexpr ViewPixel kMiddle{kWidth, kHeight, kWidth / 2, kHeight / 2};

/// A square of side 2 across the line of sight of a camera at the origin that looks along y.
FaceShape wall(float y, float x = 0.0f, float z = 0.0f) {
    return quad({x - 1, y, z - 1}, {x - 1, y, z + 1}, {x + 1, y, z + 1}, {x + 1, y, z - 1});
}

class Picking : public testing::Test {
  protected:
    Picking() {
        fixture_.addMaterial(plainMaterial());
        fixture_.look({0, 0, 0}, {0, 1, 0}, 1.0);
    }
    int add(const FaceShape& face, uint32_t flags = 0) {
        const int object = fixture_.addObject(flags);
        fixture_.addFace(face);
        return object;
    }
    std::vector<PickedObject> pickAt(const ViewPixel& pixel = kMiddle) {
        return pickObjects(fixture_.scene(), pickRay(fixture_.scene(), pixel));
    }
    std::vector<int> numbersAt(const ViewPixel& pixel = kMiddle) {
        std::vector<int> numbers;
        for (const PickedObject& picked : pickAt(pixel))
            numbers.push_back(picked.object);
        return numbers;
    }

    SceneFixture fixture_;
};

using Numbers = std::vector<int>;

TEST_F(Picking, GivesTheNearestFirstAndEqualOnesByNumber) {
    add(wall(9));
    add(wall(3));
    add(wall(5));
    add(wall(3));
    add(wall(4, 2.5f)); // beside the ray
    add(wall(-3));      // behind the eye
    fixture_.commit();
    EXPECT_EQ(numbersAt(), (Numbers{1, 3, 2, 0}));
    EXPECT_FLOAT_EQ(pickAt().front().distance, 3.0f);
}

TEST_F(Picking, LeavesOutWhatIsNotDrawn) {
    for (const uint32_t flags : {0u, 0x8u, 0x2000u, 0x20000000u, 0x1u, 0x20002008u})
        add(wall(3), flags);
    fixture_.commit();
    EXPECT_EQ(numbersAt(), (Numbers{0, 4}));
    // The object cache says how many objects there are.
    const LIST cache = fixture_.view().objectCache;
    fixture_.view().objectCache.count = 4;
    EXPECT_EQ(numbersAt(), (Numbers{0}));
    fixture_.view().objectCache = cache;
}

TEST_F(Picking, TakesAFacesFirstTriangleAndAnObjectsNearestFace) {
    // One face of two squares: the first triangle in stored order counts, near or far.
    FaceShape both = wall(7);
    const FaceShape nearer = wall(2);
    both.triangles.insert(both.triangles.end(), nearer.triangles.begin(), nearer.triangles.end());
    fixture_.addObject();
    fixture_.addFace(both);
    fixture_.addObject();
    fixture_.addFace(wall(6));
    fixture_.addFace(wall(5));
    fixture_.addFace(wall(8));
    fixture_.commit();
    const std::vector<PickedObject> picked = pickAt();
    ASSERT_EQ(picked.size(), 2u);
    EXPECT_EQ(picked[0].object, 1);
    EXPECT_FLOAT_EQ(picked[0].distance, 5.0f);
    EXPECT_FLOAT_EQ(picked[1].distance, 7.0f);
}

TEST_F(Picking, TakesNormalsForNormals) {
    // Behind the triangles of a curved face lie its normals: they must never be met.
    FaceShape curved = wall(5, 3.0f);
    curved.normals = wall(4).triangles;
    add(curved);
    FaceShape met = wall(6);
    met.normals = wall(1).triangles;
    fixture_.addFace(met);
    fixture_.addFace(wall(7));
    fixture_.commit();
    const std::vector<PickedObject> picked = pickAt();
    ASSERT_EQ(picked.size(), 1u);
    EXPECT_FLOAT_EQ(picked[0].distance, 6.0f);
}

TEST_F(Picking, CountsFarHitsAtTheFarthestDistance) {
    const float far = 3e7f;
    add(quad({-far, far, -far}, {-far, far, far}, {far, far, far}, {far, far, -far}));
    fixture_.commit();
    ASSERT_EQ(pickAt().size(), 1u);
    EXPECT_EQ(pickAt().front().distance, 1e7f);
}

struct PictureWindow {
    double zoom = 1.0, centerX = 0.0, centerY = 0.0;
};

/// Where the view shows a point: the pinhole camera, and the zoom window as a part of its picture.
struct Seen {
    double x, y; ///< pixels from the top left corner
};
Seen seenAt(Vec3 point, const ViewPixel& view, double fov, const PictureWindow& window) {
    const double half = std::tan(fov / 2.0);
    const double aspect = static_cast<double>(view.viewWidth) / view.viewHeight;
    const double right = static_cast<double>(point.x) / static_cast<double>(point.y) / half;
    const double up = static_cast<double>(point.z) / static_cast<double>(point.y) / half;
    const double x = window.zoom * (right - 2.0 * window.centerX) / aspect;
    const double y = window.zoom * (up - 2.0 * window.centerY);
    return {(x + 1.0) * 0.5 * view.viewWidth, (1.0 - y) * 0.5 * view.viewHeight};
}

TEST_F(Picking, FollowsTheViewAndItsZoomWindow) {
    const Vec3 places[] = {{-1.2f, 4, 0.7f}, {1.5f, 4, 1.2f}, {0.3f, 4, -1.6f}};
    for (const Vec3& p : places) {
        const float s = 0.02f;
        add(quad({p.x - s, p.y, p.z - s}, {p.x - s, p.y, p.z + s}, {p.x + s, p.y, p.z + s},
                 {p.x + s, p.y, p.z - s}));
    }
    fixture_.commit();
    const struct {
        const char* name;
        int width, height;
        int window[4]; ///< centre and size
    } views[] = {{"whole", 640, 480, {0, 0, 0, 0}},
                 {"whole, upright", 300, 700, {0, 0, 0, 0}},
                 {"limited by its height", 640, 480, {-4000, 2000, 20000, 28000}},
                 {"limited by its width", 640, 480, {2000, -1000, 40000, 9000}},
                 {"a width alone is no window", 640, 480, {9000, 9000, 20000, 0}}};
    int met = 0;
    for (const auto& view : views) {
        SCOPED_TRACE(view.name);
        SCENE& scene = fixture_.scene();
        scene.viewWindowCenterX = view.window[0];
        scene.viewWindowCenterY = view.window[1];
        scene.viewWindowWidth = view.window[2];
        scene.viewWindowHeight = view.window[3];
        PictureWindow window;
        if (view.window[2] > 0 && view.window[3] > 0) {
            const double byHeight = 32000.0 / view.window[3];
            const double byWidth = 32000.0 * view.width / view.window[2] / view.height;
            window = {std::min(byHeight, byWidth), view.window[0] / 32000.0,
                      view.window[1] / 32000.0};
        }
        for (int k = 0; k < 3; ++k) {
            const Seen seen = seenAt(places[k], {view.width, view.height, 0, 0}, 1.0, window);
            const ViewPixel at{view.width, view.height, static_cast<int>(std::lround(seen.x)),
                               static_cast<int>(std::lround(seen.y))};
            EXPECT_EQ(numbersAt(at), Numbers{k});
            EXPECT_EQ(numbersAt({at.viewWidth, at.viewHeight, at.x + 9, at.y}), Numbers{});
            EXPECT_EQ(numbersAt({at.viewWidth, at.viewHeight, at.x, at.y + 9}), Numbers{});
            ++met;
        }
    }
    EXPECT_EQ(met, 15);
}

TEST_F(Picking, MeetsNothingWithoutAView) {
    add(wall(3));
    fixture_.commit();
    EXPECT_EQ(numbersAt({0, 0, 0, 0}), Numbers{});
    fixture_.look({0, 0, 0}, {0, 0, 0}, 1.0);
    EXPECT_EQ(numbersAt(), Numbers{});
    fixture_.look({0, 0, 0}, {0, 1, 0}, std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(numbersAt(), Numbers{});
    fixture_.look({0, 0, 0}, {0, 1, 0}, 1.0);
    EXPECT_EQ(numbersAt(), Numbers{0});
    fixture_.geometry().view = nullptr;
    EXPECT_EQ(numbersAt(), Numbers{});
    // The fixture still owns its view.
}

} // namespace
} // namespace ogl::test
