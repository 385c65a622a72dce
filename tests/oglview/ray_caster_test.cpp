// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/ray_caster.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using namespace oglview;
using ogl::host::Vec3;

/// Horizontal squares of 4 x 4 m around the z axis, one above the other.
TriangleCorners stackOfFloors(std::initializer_list<double> heights) {
    TriangleCorners corners;
    for (const double z : heights)
        corners.insert(corners.end(),
                       {{-2, -2, z}, {2, -2, z}, {2, 2, z}, {-2, -2, z}, {2, 2, z}, {-2, 2, z}});
    return corners;
}

TEST(RayCaster, FindsTheFirstAndAllHits) {
    const TriangleCorners floors = stackOfFloors({0.0, 3.0, 6.0, 7.5});
    const RayCaster rays(floors);
    EXPECT_DOUBLE_EQ(rays.firstHit({0.5, 0.3, 10}, {0, 0, -1}, 100), 2.5);
    EXPECT_DOUBLE_EQ(rays.firstHit({0.5, 0.3, 5}, {0, 0, 1}, 100), 1.0);
    EXPECT_DOUBLE_EQ(rays.firstHit({2.5, 0.3, 10}, {0, 0, -1}, 100), 100.0) << "beside them";
    EXPECT_DOUBLE_EQ(rays.firstHit({0.5, 0.3, 10}, {0, 0, -1}, 2.0), 2.0) << "too far away";
    EXPECT_DOUBLE_EQ(rays.firstHit({0.5, 0.3, 8}, {0, 0, 1}, 100), 100.0) << "behind the ray";
    const std::vector<double> hits = rays.allHits({0.5, 0.3, 10}, {0, 0, -1}, 9.0);
    ASSERT_EQ(hits.size(), 3u);
    EXPECT_DOUBLE_EQ(hits[0], 2.5);
    EXPECT_DOUBLE_EQ(hits[1], 4.0);
    EXPECT_DOUBLE_EQ(hits[2], 7.0);
}

TEST(RayCaster, AgreesWithLookingAtEveryTriangle) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> place(-10.0, 10.0);
    std::uniform_real_distribution<double> small(-0.7, 0.7);
    TriangleCorners corners;
    for (int k = 0; k < 2000; ++k) {
        const Vec3 center{place(random), place(random), place(random)};
        for (int corner = 0; corner < 3; ++corner)
            corners.push_back(center + Vec3{small(random), small(random), small(random)});
    }
    const RayCaster all(corners);
    int hits = 0;
    for (int k = 0; k < 200; ++k) {
        const Vec3 origin{place(random), place(random), place(random)};
        const Vec3 direction = normalized(Vec3{place(random), place(random), place(random)});
        double nearest = 50.0;
        for (size_t triangle = 0; triangle < corners.size(); triangle += 3) {
            const TriangleCorners one(corners.begin() + static_cast<std::ptrdiff_t>(triangle),
                                      corners.begin() + static_cast<std::ptrdiff_t>(triangle + 3));
            nearest = std::min(nearest, RayCaster(one).firstHit(origin, direction, 50.0));
        }
        EXPECT_EQ(all.firstHit(origin, direction, 50.0), nearest);
        hits += nearest < 50.0 ? 1 : 0;
    }
    EXPECT_GT(hits, 50);
}

} // namespace
