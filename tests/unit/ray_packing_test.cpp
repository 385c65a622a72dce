// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Packing for ray tracing, against a plain reading of the scene: every material, every object,
// every face, every cell.
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
#include <random>
#include <string>
#include <vector>

namespace ogl {
namespace {

using test::FaceShape;
using test::plainMaterial;
using test::quad;
using test::SceneFixture;

constexpr int kLargeSide = 16384;
constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

bool operator==(Vec3 a, Vec3 b) {
    return a.x == b.x && a.y == b.y && a.z == b.z;
}

struct PlainTriangle {
    std::array<Vec3, 3> positions;
    std::array<Vec3, 3> normals;
    std::array<Vec3, 3> uvs;
};

struct PlainPair {
    MaterialRecord record{};
    std::vector<PlainTriangle> triangles;
};

float coordinate(Vec3 v, int axis) {
    return axis == 0 ? v.x : axis == 1 ? v.y : v.z;
}

/// What a fixture's faces look like, kept beside it.
struct TestScene {
    struct Face {
        int object;
        FaceShape shape;
    };
    SceneFixture fixture;
    std::vector<Face> faces;
    std::vector<MATERIAL> materials;
    int objects = 0;

    void addMaterial(const MATERIAL& material) {
        fixture.addMaterial(material);
        materials.push_back(material);
    }
    void addObject(uint32_t flags = 0) {
        fixture.addObject(flags);
        ++objects;
    }
    void addFace(const FaceShape& shape) {
        fixture.addFace(shape);
        faces.push_back({objects - 1, shape});
    }
    PackedScene packed(int side = kLargeSide) {
        fixture.commit();
        PackedScene result;
        EXPECT_TRUE(packScene(fixture.scene(), side, result));
        return result;
    }
    std::vector<PlainPair> plainPairs() const;
};

Vec3 plainNormal(const FaceShape& shape, size_t vertex) {
    Vec3 n = shape.normals.empty()
                 ? Vec3{static_cast<float>(-shape.normal.x), static_cast<float>(-shape.normal.y),
                        static_cast<float>(-shape.normal.z)}
                 : shape.normals[vertex];
    const float size = length(n);
    return size > 0 ? n * (1.0f / size) : Vec3{0, 0, 1};
}

std::vector<PlainPair> TestScene::plainPairs() const {
    std::vector<PlainPair> pairs;
    for (int m = 0; m < static_cast<int>(materials.size()); ++m)
        for (int object = 0; object < objects; ++object) {
            PlainPair pair;
            bool hasFace = false;
            for (const Face& face : faces) {
                if (face.object != object || face.shape.material != m)
                    continue;
                hasFace = true;
                for (size_t k = 0; k < face.shape.triangles.size(); ++k) {
                    if (k % 3 == 0)
                        pair.triangles.emplace_back();
                    PlainTriangle& triangle = pair.triangles.back();
                    triangle.positions[k % 3] = face.shape.triangles[k];
                    triangle.normals[k % 3] = plainNormal(face.shape, k);
                    triangle.uvs[k % 3] = {0, 0, static_cast<float>(pairs.size())};
                    if (!face.shape.texCoords.empty())
                        triangle.uvs[k % 3] = {face.shape.texCoords[k][0],
                                               1.0f - face.shape.texCoords[k][1],
                                               static_cast<float>(pairs.size())};
                }
            }
            if (hasFace)
                pairs.push_back(pair);
        }
    return pairs;
}

/// The cells' number of an axis, and their size.
struct PlainAxis {
    double low = 1e7;
    double high = -1e7;
    int cells = 1;
    double size() const { return (high - low) / cells; }
};

std::array<PlainAxis, 3> plainAxes(const PlainPair& pair) {
    std::array<PlainAxis, 3> axes;
    double longest = 0;
    for (int a = 0; a < 3; ++a) {
        PlainAxis& axis = axes[static_cast<size_t>(a)];
        for (const PlainTriangle& triangle : pair.triangles)
            for (const Vec3& p : triangle.positions) {
                axis.low = std::min(axis.low, static_cast<double>(coordinate(p, a)));
                axis.high = std::max(axis.high, static_cast<double>(coordinate(p, a)));
            }
        axis.low = static_cast<float>(axis.low) - 0.01f;
        axis.high = static_cast<float>(axis.high) + 0.01f;
        longest = std::max(longest, axis.high - axis.low);
    }
    const double n = static_cast<double>(pair.triangles.size());
    for (PlainAxis& axis : axes) {
        const double scaled =
            (axis.high - axis.low) * 2.0 * std::pow(n / 32.0, 0.3333333432674408) / longest;
        const double cells = std::floor(scaled + 0.5);
        axis.cells = cells < 2 ? 1 : cells > 63 ? 64 : static_cast<int>(cells);
    }
    return axes;
}

bool touches(const PlainTriangle& triangle, const std::array<PlainAxis, 3>& axes,
             const std::array<int, 3>& cell) {
    for (int a = 0; a < 3; ++a) {
        const PlainAxis& axis = axes[static_cast<size_t>(a)];
        const auto place = [&](int corner) {
            return static_cast<double>(
                coordinate(triangle.positions[static_cast<size_t>(corner)], a));
        };
        const double low = std::min({place(0), place(1), place(2)});
        const double high = std::max({place(0), place(1), place(2)});
        const auto number = [&](double value) {
            return std::clamp(static_cast<int>((value - axis.low) / axis.size()), 0,
                              axis.cells - 1);
        };
        if (cell[static_cast<size_t>(a)] < number(low) ||
            cell[static_cast<size_t>(a)] > number(high))
            return false;
    }
    return true;
}

void expectNear(Vec3 a, double x, double y, double z, double tolerance, const std::string& where) {
    EXPECT_NEAR(a.x, x, tolerance) << where;
    EXPECT_NEAR(a.y, y, tolerance) << where;
    EXPECT_NEAR(a.z, z, tolerance) << where;
}

/// Compares the packed scene with the plain pairs, cell by cell.
void expectPacked(const PackedScene& packed, const std::vector<PlainPair>& pairs) {
    ASSERT_EQ(packed.materialRecords.size(), pairs.size());
    size_t box = 0;
    size_t cellNumber = 0;
    size_t vertex = 0;
    for (const PlainPair& pair : pairs) {
        if (pair.triangles.empty())
            continue;
        const std::array<PlainAxis, 3> axes = plainAxes(pair);
        ASSERT_LT(box, packed.objectBounds.size());
        const BoxRecord& record = packed.objectBounds[box++];
        const std::string where = "box " + std::to_string(box - 1);
        expectNear(record.min, axes[0].low, axes[1].low, axes[2].low, 0, where);
        expectNear(record.max, axes[0].high, axes[1].high, axes[2].high, 0, where);
        EXPECT_EQ(record.first, static_cast<int>(cellNumber)) << where;
        const size_t firstCell = cellNumber;
        for (int z = 0; z < axes[2].cells; ++z)
            for (int y = 0; y < axes[1].cells; ++y)
                for (int x = 0; x < axes[0].cells; ++x) {
                    std::vector<const PlainTriangle*> inside;
                    for (const PlainTriangle& triangle : pair.triangles)
                        if (touches(triangle, axes, {x, y, z}))
                            inside.push_back(&triangle);
                    if (inside.empty())
                        continue;
                    ASSERT_LT(cellNumber, packed.gridCells.size()) << where;
                    const BoxRecord& cell = packed.gridCells[cellNumber++];
                    const std::string there = where + ", cell " + std::to_string(x) + " " +
                                              std::to_string(y) + " " + std::to_string(z);
                    expectNear(cell.min, axes[0].low + x * axes[0].size(),
                               axes[1].low + y * axes[1].size(), axes[2].low + z * axes[2].size(),
                               1e-5, there);
                    expectNear(cell.max, axes[0].low + (x + 1) * axes[0].size(),
                               axes[1].low + (y + 1) * axes[1].size(),
                               axes[2].low + (z + 1) * axes[2].size(), 1e-5, there);
                    EXPECT_EQ(cell.first, static_cast<int>(vertex / 3)) << there;
                    ASSERT_EQ(cell.count, static_cast<int>(inside.size())) << there;
                    ASSERT_LE(vertex + 3 * inside.size(), packed.vertices.size()) << there;
                    for (const PlainTriangle* triangle : inside)
                        for (size_t i = 0; i < 3; ++i, ++vertex) {
                            EXPECT_TRUE(packed.vertices[vertex] == triangle->positions[i]) << there;
                            EXPECT_TRUE(packed.uvs[vertex] == triangle->uvs[i]) << there;
                            const Vec3 n = triangle->normals[i];
                            expectNear(packed.normals[vertex], n.x, n.y, n.z, 1e-6, there);
                        }
                }
        EXPECT_EQ(record.count, static_cast<int>(cellNumber - firstCell)) << where;
    }
    EXPECT_EQ(box, packed.objectBounds.size());
    EXPECT_EQ(cellNumber, packed.gridCells.size());
    EXPECT_EQ(vertex, packed.vertices.size());
    EXPECT_EQ(vertex, packed.normals.size());
    EXPECT_EQ(vertex, packed.uvs.size());
}

/// A face of random triangles within a box of the size, some with vertex normals.
FaceShape randomFace(std::mt19937& random, int triangles, int16_t material, bool smooth,
                     Vec3 corner, Vec3 size) {
    std::uniform_real_distribution<float> unit(0.0f, 1.0f);
    FaceShape face;
    face.material = material;
    face.normal = {unit(random) - 0.5, unit(random), 0.25};
    for (int t = 0; t < triangles; ++t) {
        const Vec3 middle{corner.x + size.x * unit(random), corner.y + size.y * unit(random),
                          corner.z + size.z * unit(random)};
        for (int i = 0; i < 3; ++i) {
            const Vec3 off{unit(random), unit(random), unit(random)};
            face.triangles.push_back(middle + off);
            face.texCoords.push_back({unit(random) * 3.0f, unit(random)});
            if (smooth)
                face.normals.push_back({unit(random) - 0.5f, unit(random) - 0.5f, 0.3f});
        }
    }
    return face;
}

TEST(RayPacking, PacksByMaterialObjectAndCell) {
    std::mt19937 random(11);
    TestScene scene;
    for (int m = 0; m < 3; ++m) {
        MATERIAL material = plainMaterial();
        material.color = {static_cast<uint8_t>(40 * m), 7, 200};
        scene.addMaterial(material);
    }
    for (int object = 0; object < 5; ++object) {
        scene.addObject();
        for (int f = 0; f < 9; ++f) {
            const auto material = static_cast<int16_t>((object + f * f) % 3);
            FaceShape face = randomFace(random, 1 + 17 * (f % 4), material, f % 2 == 0,
                                        {static_cast<float>(object), -3.0f, 0.5f},
                                        {1.0f + static_cast<float>(f), 2.0f, 4.0f});
            if (f % 5 == 4)
                face.texCoords.clear();
            scene.addFace(face);
        }
    }
    FaceShape empty; // a pair without triangles has a record, but no box
    empty.material = 2;
    scene.addObject();
    scene.addFace(empty);
    const PackedScene packed = scene.packed();
    const std::vector<PlainPair> pairs = scene.plainPairs();
    EXPECT_GT(packed.triangleCount(), 1200); // 1065 triangles, some in several cells
    EXPECT_GT(packed.gridCells.size(), 2 * packed.objectBounds.size());
    EXPECT_LT(packed.objectBounds.size(), packed.materialRecords.size());
    expectPacked(packed, pairs);
    Box bounds;
    for (const Vec3& p : packed.vertices)
        bounds.grow(p);
    EXPECT_TRUE(bounds.min == packed.bounds.min && bounds.max == packed.bounds.max);
}

TEST(RayPacking, AnObjectInTwoMaterialsIsTwoBoxes) {
    TestScene scene;
    for (const uint8_t red : {uint8_t{10}, uint8_t{20}}) {
        MATERIAL material = plainMaterial();
        material.color = {1, 2, red};
        scene.addMaterial(material);
    }
    scene.addObject();
    scene.addFace(quad({0, 0, 0}, {0, 1, 0}, {1, 1, 0}, {1, 0, 0}, 1));
    scene.addFace(quad({5, 0, 0}, {5, 1, 0}, {6, 1, 0}, {6, 0, 0}, 0));
    const PackedScene packed = scene.packed();
    ASSERT_EQ(packed.objectBounds.size(), 2u);
    ASSERT_EQ(packed.materialRecords.size(), 2u);
    EXPECT_FLOAT_EQ(packed.objectBounds[0].min.x, 4.99f); // material 0 first
    EXPECT_FLOAT_EQ(packed.materialRecords[0].red, 10 / 255.0f);
    EXPECT_FLOAT_EQ(packed.materialRecords[1].red, 20 / 255.0f);
    EXPECT_EQ(packed.uvs.front().z, 0.0f);
    EXPECT_EQ(packed.uvs.back().z, 1.0f);
}

TEST(RayPacking, ARecordTellsWhatRaysKnowOfAMaterial) {
    MATERIAL material = plainMaterial();
    material.color = {51, 102, 255};
    material.opacity = 0.25f;
    material.reflection = 0.5f;
    material.specular = 0.75f;
    material.fresnel = 0.125f;
    material.glossiness = 0.5f;
    const MaterialRecord record = materialRecord(material);
    const std::array<float, 8> expected{1.0f, 0.4f, 0.2f, 0.25f, 0.5f, 0.75f, 0.125f, 398.107f};
    std::array<float, 8> texels{};
    std::memcpy(texels.data(), &record, sizeof record);
    for (size_t i = 0; i < texels.size(); ++i)
        EXPECT_NEAR(texels[i], expected[i], 1e-6f * std::max(1.0f, expected[i] * 10)) << i;
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
        {"nearly invisible", [](MATERIAL& m, uint32_t&, FaceShape&) { m.opacity = 1e-6f; }, true},
        {"hidden object", [](MATERIAL&, uint32_t& flags, FaceShape&) { flags = 0x8; }, false},
        {"hidden object", [](MATERIAL&, uint32_t& flags, FaceShape&) { flags = 0x2000; }, false},
        {"hidden object", [](MATERIAL&, uint32_t& flags, FaceShape&) { flags = 0x20000000; },
         false},
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
        EXPECT_EQ(packed.materialRecords.size(), packed.objectBounds.size()) << row.name;
        EXPECT_EQ(packed.triangleCount(), row.packed ? 6 : 4) << row.name;
    }
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
        {{1, 2, 1}, 256, {2, 4, 2}},
        {{1, 1, 2}, 256, {2, 2, 4}},
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
        expectNear(last.max * 1e-3f, 1e-3 * (corner + row.size).x, 1e-3 * (corner + row.size).y,
                   1e-3 * (corner + row.size).z, 1e-6 * std::max(1.0f, row.size.x), "last cell");
    }
}

TEST(RayPacking, ATriangleIsListedOnceInEachCellThatItTouches) {
    CellGrid grid(GridShape({{0, 0, 0}, {4, 2, 2}}, 256)); // 4 x 2 x 2 cells of 1
    const std::vector<Vec3> positions{
        {0.5f, 0.5f, 0.5f}, {0.6f, 0.5f, 0.5f}, {0.5f, 0.6f, 0.5f}, // inside the first
        {0.5f, 0.5f, 0.5f}, {1.5f, 0.5f, 0.5f}, {0.5f, 0.6f, 0.5f}, // across one border
        {0.5f, 0.5f, 0.5f}, {3.5f, 1.5f, 1.5f}, {0.5f, 0.6f, 0.5f}, // its box is everywhere
        {1.0f, 0.5f, 0.5f}, {1.0f, 0.6f, 0.5f}, {1.0f, 0.6f, 0.6f}, // in a border
        {4.0f, 2.0f, 2.0f}, {4.0f, 1.6f, 2.0f}, {4.0f, 1.6f, 1.6f}, // in the outermost border
    };
    ASSERT_TRUE(grid.sort(positions, 100));
    const auto list = [&](size_t cell) {
        const auto span = grid.list(cell);
        return std::vector<int>(span.begin(), span.end());
    };
    EXPECT_EQ(list(0), (std::vector<int>{0, 1, 2}));
    EXPECT_EQ(list(1), (std::vector<int>{1, 2, 3}));
    EXPECT_EQ(list(2), (std::vector<int>{2}));
    EXPECT_EQ(list(5), (std::vector<int>{2}));
    EXPECT_EQ(list(15), (std::vector<int>{2, 4}));
    EXPECT_EQ(grid.listedCount(), 21u);
    EXPECT_TRUE(grid.sort(positions, 21));
    EXPECT_FALSE(grid.sort(positions, 20));
}

TEST(RayPacking, TextureSides) {
    const auto sides = [](size_t vertices, size_t records, size_t cells, size_t boxes) {
        PackedScene packed;
        packed.vertices.resize(vertices);
        packed.materialRecords.resize(records);
        packed.gridCells.resize(cells);
        packed.objectBounds.resize(boxes);
        const TextureSides s = textureSides(packed);
        return std::array<int, 4>{s.vertices, s.materials, s.cells, s.bounds};
    };
    using Sides = std::array<int, 4>;
    EXPECT_EQ(sides(0, 0, 0, 0), (Sides{1, 16, 2, 2}));
    EXPECT_EQ(sides(3, 1, 1, 1), (Sides{2, 16, 4, 4}));
    EXPECT_EQ(sides(9, 127, 8, 3), (Sides{4, 16, 6, 4}));
    EXPECT_EQ(sides(15, 128, 9, 4), (Sides{4, 17, 8, 6}));
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
        scene.fixture.commit();
        PackedScene packed;
        const bool fits = packScene(scene.fixture.scene(), 33, packed);
        EXPECT_EQ(fits, triangles == 362);
        EXPECT_EQ(packed.triangleCount(), fits ? 362 : 0);
        EXPECT_EQ(packed.materialRecords.empty(), !fits);
        if (fits) {
            EXPECT_EQ(textureSides(packed).vertices, 33);
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
        scene.fixture.commit();
        PackedScene packed;
        // Boxes: 2 x int(sqrt(n) + 1) a side.
        const int side = 22;
        EXPECT_EQ(packScene(scene.fixture.scene(), side, packed), objects < 121) << objects;
        EXPECT_TRUE(packScene(scene.fixture.scene(), side + 2, packed)) << objects;
    }
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

TEST(RayPacking, TakesTrianglesFarAwayAndWithoutExtent) {
    TestScene scene;
    scene.addMaterial(plainMaterial());
    const auto addTriangles = [&](Vec3 a, Vec3 b, Vec3 c) {
        scene.addObject();
        FaceShape face;
        for (int t = 0; t < 40; ++t)
            for (const Vec3 p : {a, b, c})
                face.triangles.push_back(p);
        scene.addFace(face);
    };
    const float most = std::numeric_limits<float>::max();
    addTriangles({1, 1, 1}, {1, 1, 1}, {1, 1, 1});
    addTriangles({9e6f, 0, 0}, {9e6f, 0, 0}, {9e6f, 0, 0});
    addTriangles({most, most, most}, {-most, -most, -most}, {0, 0, 0});
    addTriangles({most, 1, 1}, {most, 1, 1}, {most, 1, 1});
    const PackedScene packed = scene.packed();
    ASSERT_EQ(packed.objectBounds.size(), 4u);
    for (const BoxRecord& cell : packed.gridCells)
        for (const float value :
             {cell.min.x, cell.min.y, cell.min.z, cell.max.x, cell.max.y, cell.max.z})
            EXPECT_TRUE(std::isfinite(value));
    EXPECT_EQ(packed.gridCells.back().first + packed.gridCells.back().count,
              packed.triangleCount());
}

// Each row breaks one number of a host's records; nothing past a list may be read.
TEST(RayPacking, ReadsNothingPastTheHostsLists) {
    const struct Row {
        const char* name;
        void (*breakIt)(SceneFixture& fixture);
    } rows[] = {
        {"cluster past the faces",
         [](SceneFixture& f) {
             const LIST index = f.geometry().clusters.index;
             static_cast<INDEX*>(index.data.get())[0] = {1, 1000000};
         }},
        {"cluster before the faces",
         [](SceneFixture& f) {
             const LIST index = f.geometry().clusters.index;
             static_cast<INDEX*>(index.data.get())[0] = {-5, 7};
         }},
        {"triangle bytes past their list",
         [](SceneFixture& f) {
             const LIST index = f.geometry().faceTriangles.index;
             static_cast<INDEX*>(index.data.get())[1] = {36, 0x7fffffff};
         }},
        {"triangle bytes of half a triangle",
         [](SceneFixture& f) {
             const LIST index = f.geometry().faceTriangles.index;
             static_cast<INDEX*>(index.data.get())[0] = {0, 35};
         }},
        {"texture coordinates past their list",
         [](SceneFixture& f) { f.face(1).texCoordIndex = 0x7ffffffe; }},
        {"texture coordinates before their list",
         [](SceneFixture& f) { f.face(0).texCoordIndex = -7; }},
        {"texture coordinates over the end", [](SceneFixture& f) { f.face(1).texCoordIndex = 10; }},
        {"material past the list", [](SceneFixture& f) { f.face(0).material = 30000; }},
        {"negative material", [](SceneFixture& f) { f.face(0).material = -2; }},
        {"fewer objects than cache entries", [](SceneFixture& f) { f.objects().count = 0; }},
        {"no objects", [](SceneFixture& f) { f.geometry().objects = nullptr; }},
        {"no view", [](SceneFixture& f) { f.geometry().view = nullptr; }},
        {"no triangles", [](SceneFixture& f) { f.geometry().faceTriangles.items.data = nullptr; }},
        {"materials of no size", [](SceneFixture& f) { f.geometry().materials.elementSize = 0; }},
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
        scene.fixture.commit();
        row.breakIt(scene.fixture);
        PackedScene packed;
        EXPECT_TRUE(packScene(scene.fixture.scene(), kLargeSide, packed)) << row.name;
        EXPECT_LE(packed.triangleCount(), 5) << row.name;
        for (const Vec3Array* array : {&packed.vertices, &packed.normals, &packed.uvs})
            for (const Vec3& v : *array)
                for (const float value : {v.x, v.y, v.z})
                    EXPECT_TRUE(std::isfinite(value) && value != canary && value != 1.0f - canary)
                        << row.name;
        if (row.breakIt == rows[0].breakIt || row.breakIt == rows[2].breakIt) {
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
    scene.fixture.commit();
    const LIST index = scene.fixture.geometry().faceTriangles.index;
    auto* clusters = static_cast<INDEX*>(index.data.get());
    for (int f = 1; f <= 3000; ++f)
        clusters[f] = clusters[0];
    PackedScene packed;
    EXPECT_FALSE(packScene(scene.fixture.scene(), 1024, packed));
    EXPECT_EQ(packed.triangleCount(), 0);
}

} // namespace
} // namespace ogl
