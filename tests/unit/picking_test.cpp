// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "scene/picking/picking.h"

#include "support/scene_fixture.h"

#include <gtest/gtest.h>

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
