// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Packing for ray tracing. That rays find what was packed is tested with the tracer.
#include "raytrace/scene_packer.h"

#include "raytrace/cell_grid.h"
#include "raytrace/texture_sides.h"
#include "support/scene_fixture.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

namespace ogl::test {
namespace {

constexpr int kLargeSide = 16384;
constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

struct TestScene : SceneFixture {
    PackedScene packed() {
        commit();
        PackedScene result;
        EXPECT_TRUE(packScene(scene(), kLargeSide, result));
        return result;
    }
};

bool operator==(Vec3 a, Vec3 b) {
    return a.x == b.x && a.y == b.y && a.z == b.z;
}

void expectNear(Vec3 a, double x, double y, double z, double tolerance, const std::string& where) {
    EXPECT_NEAR(a.x, x, tolerance) << where;
    EXPECT_NEAR(a.y, y, tolerance) << where;
    EXPECT_NEAR(a.z, z, tolerance) << where;
}

// Whether an object has faces in a material or not.
TEST(RayPacking, EveryMaterialHasARecordForEveryObject) {
    TestScene scene;
    for (const uint8_t red : {uint8_t{10}, uint8_t{20}, uint8_t{30}, uint8_t{40}}) {
        MATERIAL material = plainMaterial();
        material.color = {1, 2, red};
        material.useCount = red == 20 ? 0 : 1;
        scene.addMaterial(material);
    }
    FaceShape keptOut = quad({0, 0, 0}, {0, 1, 0}, {1, 1, 0}, {1, 0, 0});
    keptOut.flags = kFaceNotRayTraced;
    scene.addObject(0x8);
    scene.addObject(); // two without faces
    scene.addObject();
    scene.addObject();
    scene.addFace(keptOut);
    scene.addObject();
    scene.addFace(quad({0, 0, 0}, {0, 1, 0}, {1, 1, 0}, {1, 0, 0}, 3));
    scene.addFace(quad({0, 0, 0}, {0, 1, 0}, {1, 1, 0}, {1, 0, 0}, 0));
    const PackedScene packed = scene.packed();
    std::vector<int> reds;
    for (const MaterialRecord& record : packed.materialRecords)
        reds.push_back(static_cast<int>(std::lround(record.red * 255.0f)));
    EXPECT_EQ(reds, (std::vector<int>{10, 10, 10, 30, 30, 30, 40, 40, 40}));
    ASSERT_EQ(packed.uvs.size(), 12u);
    EXPECT_EQ(packed.uvs.front().z, 2.0f); // the third object of the first material
    EXPECT_EQ(packed.uvs.back().z, 8.0f);

    // Where they do not fit, only those that triangles use are there.
    PackedScene few;
    EXPECT_TRUE(packScene(scene.scene(), 4, few));
    EXPECT_EQ(few.materialRecords.size(), 2u);
    EXPECT_EQ(few.uvs.back().z, 1.0f);
}

TEST(RayPacking, LeavesOutWhatRaysDoNotSee) {
    const struct Row {
        const char* name;
        void (*change)(MATERIAL& material, uint32_t& objectFlags, FaceShape& firstFace);
        bool packed;
    } rows[] = {
        {"plain", [](MATERIAL&, uint32_t&, FaceShape&) {}, true},
        {"unused material", [](MATERIAL& m, uint32_t&, FaceShape&) { m.useCount = 0; }, false},
        {"only textured, without texture",
         [](MATERIAL& m, uint32_t&, FaceShape&) { m.flags = kMaterialOnlyTextured; }, false},
        {"only textured, with texture",
         [](MATERIAL& m, uint32_t&, FaceShape&) {
             m.flags = kMaterialOnlyTextured;
             m.textureIndex = 0;
         },
         true},
        {"invisible", [](MATERIAL& m, uint32_t&, FaceShape&) { m.opacity = 0; }, false},
        {"invisible, with texture",
         [](MATERIAL& m, uint32_t&, FaceShape&) {
             m.opacity = 0;
             m.textureIndex = 3;
         },
         true},
        {"hidden object", [](MATERIAL&, uint32_t& flags, FaceShape&) { flags = 0x8; }, false},
        {"kept out by its first face",
         [](MATERIAL&, uint32_t&, FaceShape& face) { face.flags = kFaceNotRayTraced; }, false},
    };
    for (const Row& row : rows) {
        MATERIAL material = plainMaterial();
        uint32_t flags = 0;
        FaceShape first = quad({0, 0, 0}, {0, 1, 0}, {1, 1, 0}, {1, 0, 0});
        row.change(material, flags, first);
        TestScene scene;
        scene.addMaterial(material);
        scene.addMaterial(plainMaterial());
        scene.addObject(flags);
        scene.addFace(first);
        scene.addObject();
        // Only the first face of an object keeps it out.
        FaceShape second = quad({0, 0, 0}, {0, 1, 0}, {1, 1, 0}, {1, 0, 0}, 1);
        scene.addFace(second);
        second.flags = kFaceNotRayTraced;
        scene.addFace(second);
        const PackedScene packed = scene.packed();
        EXPECT_EQ(packed.objectBounds.size(), row.packed ? 2u : 1u) << row.name;
        EXPECT_EQ(packed.triangleCount(), row.packed ? 6 : 4) << row.name;
    }
}

TEST(RayPacking, CellsAlongAnAxisGrowWithTheTriangles) {
    const struct Row {
        Vec3 size;
        int triangles;
        std::array<int, 3> cells;
    } rows[] = {
        {{1, 1, 1}, 1, {1, 1, 1}},
        {{1, 1, 1}, 13, {1, 1, 1}},
        {{1, 1, 1}, 14, {2, 2, 2}},
        {{2, 1, 1}, 32, {2, 1, 1}},
        {{2, 1, 1}, 256, {4, 2, 2}},
        {{3, 3, 0}, 256, {4, 4, 1}},
        {{5, 5, 5}, 1000000, {63, 63, 63}},
        {{5, 5, 5}, 1100000, {64, 64, 64}},
        {{5, 5, 5}, 10000000, {64, 64, 64}},
        {{0, 0, 0}, 100, {1, 1, 1}}, // far from the origin the margin is lost
        {{3e38f, 3e38f, 3e38f}, 256, {4, 4, 4}},
    };
    for (const Row& row : rows) {
        const Vec3 corner{row.size.x > 1e30f ? -3e38f : 2.0f, 2.0f, -4.0f};
        const GridShape shape({corner, corner + row.size}, row.triangles);
        EXPECT_EQ(shape.cells, row.cells) << row.triangles << " in " << row.size.x;
        const Box last = shape.cellBox(shape.cellCount() - 1);
        EXPECT_LE(length((last.max - corner - row.size) * 1e-3f),
                  1e-6f * std::max(1.0f, row.size.x))
            << "last cell";
    }
}

TEST(RayPacking, RefusesWhatDoesNotFitIntoTheTextures) {
    // 363 triangles would have 33 x 33 vertices, and need one more column.
    for (const int triangles : {362, 363}) {
        TestScene scene;
        scene.addMaterial(plainMaterial());
        scene.addObject();
        FaceShape face;
        face.triangles.assign(static_cast<size_t>(3 * triangles), Vec3{0, 0, 0}); // in one cell
        scene.addFace(face);
        scene.commit();
        PackedScene packed;
        const bool fits = packScene(scene.scene(), 33, packed);
        EXPECT_EQ(fits, triangles == 362);
        EXPECT_EQ(packed.triangleCount(), fits ? 362 : 0);
        EXPECT_EQ(packed.materialRecords.empty(), !fits);
        if (fits) {
            EXPECT_EQ(textureSides(packed).vertTexRes, 33);
        }
    }
    // Records and boxes of 127 objects fit, of 128 not.
    for (const int objects : {127, 128}) {
        TestScene scene;
        scene.addMaterial(plainMaterial());
        for (int k = 0; k < objects; ++k) {
            scene.addObject();
            FaceShape face;
            face.triangles = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}};
            scene.addFace(face);
        }
        scene.commit();
        PackedScene packed;
        // Boxes: 2 x int(sqrt(n) + 1) a side.
        const int side = 22;
        EXPECT_EQ(packScene(scene.scene(), side, packed), objects < 121) << objects;
        EXPECT_TRUE(packScene(scene.scene(), side + 2, packed)) << objects;
    }
}

// Each row breaks one number of a host's records; nothing past a list may be read.
TEST(RayPacking, ReadsNothingPastTheHostsLists) {
    const struct Row {
        const char* name;
        void (*breakIt)(SceneFixture& fixture);
    } rows[] = {
        {"cluster past the faces",
         [](SceneFixture& f) {
             element<INDEX>(f.geometry().clusters.index, 0) = INDEX{1, 1000000};
         }},
        {"triangle bytes past their list",
         [](SceneFixture& f) {
             element<INDEX>(f.geometry().faceTriangles.index, 1) = INDEX{36, 0x7fffffff};
         }},
        {"texture coordinates over the end", [](SceneFixture& f) { f.face(1).texCoordIndex = 10; }},
        {"material past the list", [](SceneFixture& f) { f.face(0).material = 30000; }},
        {"no objects", [](SceneFixture& f) { f.geometry().objects = nullptr; }},
        {"no view", [](SceneFixture& f) { f.geometry().view = nullptr; }},
        {"more vertex normals than bytes",
         [](SceneFixture& f) { f.face(1).flags = kFaceVertexNormals; }},
    };
    uint32_t canaryBits = 0;
    std::memset(&canaryBits, SceneFixture::kCanary, sizeof canaryBits);
    float canary = 0;
    std::memcpy(&canary, &canaryBits, sizeof canary);
    for (const Row& row : rows) {
        TestScene scene;
        scene.addMaterial(plainMaterial());
        scene.addObject();
        scene.addFace(quad({0, 0, 0}, {0, 1, 0}, {1, 1, 0}, {1, 0, 0}));
        scene.addFace(quad({0, 0, 0}, {0, 2, 0}, {2, 2, 0}, {2, 0, 0}));
        scene.commit();
        row.breakIt(scene);
        PackedScene packed;
        EXPECT_TRUE(packScene(scene.scene(), kLargeSide, packed)) << row.name;
        EXPECT_LE(packed.triangleCount(), 5) << row.name;
        for (const Vec3Array* array : {&packed.vertices, &packed.normals, &packed.uvs})
            for (const Vec3& v : *array)
                for (const float value : {v.x, v.y, v.z})
                    EXPECT_TRUE(std::isfinite(value) && value != canary && value != 1.0f - canary)
                        << row.name;
        if (row.breakIt == rows[0].breakIt || row.breakIt == rows[1].breakIt) {
            EXPECT_GT(packed.triangleCount(), 0) << row.name;
        }
    }
}

// Many overlapping faces in few records would fill any memory.
TEST(RayPacking, RefusesEndlesslyRepeatedTriangles) {
    TestScene scene;
    scene.addMaterial(plainMaterial());
    scene.addObject();
    FaceShape face;
    for (int t = 0; t < 3000; ++t)
        for (const Vec3 corner : {Vec3{0, 0, 0}, Vec3{1, 1, 0}, Vec3{0, 1, 1}})
            face.triangles.push_back(corner);
    scene.addFace(face);
    for (int f = 0; f < 3000; ++f)
        scene.addFace(FaceShape{});
    scene.commit();
    const LIST index = scene.geometry().faceTriangles.index;
    auto* clusters = static_cast<INDEX*>(index.data.get());
    for (int f = 1; f <= 3000; ++f)
        clusters[f] = clusters[0];
    PackedScene packed;
    EXPECT_FALSE(packScene(scene.scene(), 1024, packed));
    EXPECT_EQ(packed.triangleCount(), 0);
}

TEST(RayPacking, NormalsHaveUnitLength) {
    TestScene scene;
    scene.addMaterial(plainMaterial());
    scene.addObject();
    FaceShape face;
    face.triangles = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}};
    face.normals = {{0, 0, 0}, {0, -3, 4}, {1e30f, 0, 0}};
    scene.addFace(face);
    face.normals.clear();
    face.normal = {0, 5, 0};
    scene.addFace(face);
    face.normal = {0, 0, 0};
    scene.addFace(face);
    const PackedScene packed = scene.packed();
    ASSERT_EQ(packed.normals.size(), 9u);
    expectNear(packed.normals[0], 0, 0, 1, 0, "none stored");
    expectNear(packed.normals[1], 0, -0.6, 0.8, 1e-6, "scaled");
    expectNear(packed.normals[2], 1, 0, 0, 1e-6, "huge");
    expectNear(packed.normals[3], 0, -1, 0, 0, "of the face, negated");
    expectNear(packed.normals[6], 0, 0, 1, 0, "the face has none");
}

TEST(RayPacking, SkipsTrianglesThatAreNowhere) {
    TestScene scene;
    scene.addMaterial(plainMaterial());
    scene.addObject();
    FaceShape face;
    for (const float bad : {kNan, kInfinity, -kInfinity})
        for (int corner = 0; corner < 3; ++corner) {
            std::array<Vec3, 3> triangle{Vec3{0, 0, 0}, Vec3{1, 0, 0}, Vec3{0, 1, 0}};
            triangle[static_cast<size_t>(corner)].y = bad;
            for (const Vec3& p : triangle)
                face.triangles.push_back(p);
        }
    for (const Vec3 p : {Vec3{3, 3, 3}, Vec3{4, 3, 3}, Vec3{3, 4, 3}})
        face.triangles.push_back(p);
    for (size_t i = 0; i < face.triangles.size(); ++i)
        face.texCoords.push_back({static_cast<float>(i), 0.0f});
    scene.addFace(face);
    const PackedScene packed = scene.packed();
    ASSERT_EQ(packed.triangleCount(), 1);
    EXPECT_TRUE((packed.vertices[0] == Vec3{3, 3, 3}));
    EXPECT_TRUE((packed.uvs[0] == Vec3{27, 1, 0})); // they keep their places
    EXPECT_TRUE((packed.bounds.min == Vec3{3, 3, 3}));
}

} // namespace
} // namespace ogl::test
