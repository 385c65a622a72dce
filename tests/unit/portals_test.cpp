// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/forward/portals.h"

#include "support/scene_fixture.h"

#include <gtest/gtest.h>

#include <limits>

namespace ogl::test {
namespace {

void expectNear(Vec3 actual, Vec3 expected, const char* name) {
    EXPECT_NEAR(actual.x, expected.x, 1e-5f) << name;
    EXPECT_NEAR(actual.y, expected.y, 1e-5f) << name;
    EXPECT_NEAR(actual.z, expected.z, 1e-5f) << name;
}

/// A pane in the plane y = `y`, seen from +y.
FaceShape pane(float y) {
    FaceShape face = quad({3, y, 1}, {3, y, 4}, {1, y, 4}, {1, y, 1});
    face.flags = kFacePortal;
    return face;
}

TEST(Portals, TakeEverySecondPortalFace) {
    const struct {
        const char* name;
        std::vector<uint8_t> kinds;  ///< of objects with one pane each
        std::vector<float> expected; ///< planes
    } rows[] = {
        {"one", {1}, {}},
        {"a pane", {1, 1}, {1}},
        {"three", {1, 2, 1}, {1}},
        {"two panes", {2, 2, 1, 1}, {1, 3}},
        {"other kinds between", {0, 1, 6, 3, 1}, {4}},
    };
    for (const auto& row : rows) {
        SceneFixture fixture;
        fixture.addMaterial(plainMaterial());
        for (size_t i = 0; i < row.kinds.size(); ++i) {
            fixture.addObject(0, row.kinds[i]);
            FaceShape frame = pane(100);
            frame.flags = 0; // not a portal face
            fixture.addFace(frame);
            fixture.addFace(pane(static_cast<float>(i)));
        }
        fixture.commit();
        const auto portals = findPortals(fixture.scene());
        ASSERT_EQ(portals.size(), row.expected.size()) << row.name;
        for (size_t i = 0; i < portals.size(); ++i)
            expectNear(portals[i].center, {2, row.expected[i], 2.5f}, row.name);
    }
}

TEST(Portals, AreRectanglesWithANormal) {
    SceneFixture fixture;
    fixture.addMaterial(plainMaterial());
    fixture.addObject(0, 1);
    fixture.addFace(pane(0));
    fixture.addFace(pane(5));
    FaceShape skylight = quad({0, 0, 9}, {0, 2, 9}, {6, 2, 9}, {6, 0, 9});
    skylight.flags = kFacePortal;
    skylight.normals.assign(6, {0, 0, -7});
    fixture.addFace(skylight);
    fixture.addFace(skylight);
    fixture.commit();
    const auto portals = findPortals(fixture.scene());
    ASSERT_EQ(portals.size(), 2u);
    expectNear(portals[0].normal, {0, 1, 0}, "of the face");
    expectNear(portals[0].halfU, {1, 0, 0}, "u");
    expectNear(portals[0].halfV, {0, 0, 1.5f}, "v");
    EXPECT_EQ(portals[0].firstTriangle, 2);
    EXPECT_EQ(portals[0].triangleCount, 2);
    expectNear(portals[1].normal, {0, 0, -1}, "of the first vertex");
    expectNear(portals[1].center, {3, 1, 9}, "centre");
    expectNear(portals[1].halfU, {0, -1, 0}, "u");
    expectNear(portals[1].halfV, {3, 0, 0}, "v");
    EXPECT_EQ(portals[1].firstTriangle, 6);
}

TEST(Portals, BadRecordsAreNoPortals) {
    SceneFixture fixture;
    fixture.addMaterial(plainMaterial());
    fixture.addObject(0, 1);
    FaceShape empty = pane(0);
    empty.triangles.clear();
    FaceShape flat = pane(1);
    flat.normal = {0, 0, 0};
    FaceShape infinite = pane(2);
    infinite.triangles[0].x = std::numeric_limits<float>::infinity();
    for (const FaceShape& face : {pane(9), empty, pane(9), flat, pane(9), infinite})
        fixture.addFace(face);
    fixture.commit();
    const auto portals = findPortals(fixture.scene());
    ASSERT_EQ(portals.size(), 1u);
    expectNear(portals[0].normal, {0, 0, 1}, "without a normal");
    fixture.objects().count = 1000; // more than there are
    fixture.geometry().clusters.index.count = -1;
    EXPECT_TRUE(findPortals(fixture.scene()).empty());
}

} // namespace
} // namespace ogl::test
