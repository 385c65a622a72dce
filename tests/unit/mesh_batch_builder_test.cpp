// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/batches/mesh_batch_builder.h"

#include "support/scene_fixture.h"

#include <cmath>
#include <cstring>
#include <functional>
#include <gtest/gtest.h>
#include <limits>

namespace ogl {
namespace {

using test::FaceShape;
using test::plainMaterial;
using test::SceneFixture;

/// A face of `triangles` triangles, whose first vertex's x tells it from others.
FaceShape numbered(float number, int16_t material, int triangles = 1) {
    FaceShape face;
    for (int i = 0; i < triangles * 3; ++i)
        face.triangles.push_back({number, static_cast<float>(i), 0.0f});
    face.normal = {0.0, 0.0, -2.0};
    face.material = material;
    return face;
}

MATERIAL withUse(uint32_t useCount) {
    MATERIAL material = plainMaterial();
    material.useCount = useCount;
    return material;
}

std::vector<float> firstXOfTriangles(const MeshVertexArray& batch) {
    std::vector<float> numbers;
    for (size_t i = 0; i < batch.positions.size(); i += 3)
        numbers.push_back(batch.positions[i].x);
    return numbers;
}

bool holdsCanary(const Vec3Array& vectors) {
    uint32_t canary = 0;
    std::memset(&canary, SceneFixture::kCanary, sizeof canary);
    for (const Vec3& v : vectors)
        for (const float value : {v.x, v.y, v.z}) {
            uint32_t bits = 0;
            std::memcpy(&bits, &value, sizeof bits);
            if (bits == canary)
                return true;
        }
    return false;
}

MeshBatches build(MeshBatchBuilder& builder, int object) {
    Box bounds;
    return builder.build(object, builder.batchSizes(object), bounds);
}

MeshBatches build(SceneFixture& fixture, int object) {
    MeshBatchBuilder builder(fixture.scene());
    return build(builder, object);
}

TEST(MeshBatchBuilder, SortsFacesByMaterialAndKeepsTheirOrder) {
    SceneFixture fixture;
    for (int m = 0; m < 4; ++m)
        fixture.addMaterial(withUse(m == 2 ? 0 : 1));
    fixture.addObject();
    fixture.addFace(numbered(1, 3));
    fixture.addFace(numbered(2, 0, 2));
    fixture.addFace(numbered(3, 3, 2));
    fixture.addFace(numbered(4, 2)); // an unused material
    fixture.addFace(numbered(5, -1));
    fixture.addFace(numbered(6, 0));
    fixture.addObject();
    fixture.addFace(numbered(7, 1));
    fixture.commit();

    const MeshBatches first = build(fixture, 0);
    ASSERT_EQ(first.size(), 2u);
    EXPECT_EQ(first[0]->material, 0);
    EXPECT_EQ(firstXOfTriangles(*first[0]), (std::vector<float>{2, 2, 6}));
    EXPECT_EQ(first[1]->material, 3);
    EXPECT_EQ(firstXOfTriangles(*first[1]), (std::vector<float>{1, 3, 3}));
    EXPECT_EQ(first[1]->positions[5].y, 2.0f); // triangles keep their vertices in order

    const MeshBatches second = build(fixture, 1);
    ASSERT_EQ(second.size(), 1u);
    EXPECT_EQ(second[0]->material, 1);
    EXPECT_TRUE(build(fixture, 2).empty());
    EXPECT_EQ(MeshBatchBuilder(fixture.scene()).countTriangles(0), 8);
}

TEST(MeshBatchBuilder, WritesNormalsTangentsAndTextureCoordinates) {
    const float nan = std::numeric_limits<float>::quiet_NaN();
    SceneFixture fixture;
    fixture.addMaterial(plainMaterial());
    fixture.addMaterial(plainMaterial());
    fixture.addObject();
    FaceShape flat = numbered(1, 0);
    flat.texCoords = {{0.25f, 0.25f}, {1.0f, 0.0f}, {0.0f, 1.0f}};
    fixture.addFace(flat);
    FaceShape smooth = numbered(2, 1);
    smooth.normals = {{1, 0, 0}, {0, 0, 9e-6f}, {nan, 0, 0}};
    fixture.addFace(smooth);
    fixture.commit();
    const MeshBatches batches = build(fixture, 0);
    ASSERT_EQ(batches.size(), 2u);

    const MeshVertexArray& plane = *batches[0];
    EXPECT_EQ(plane.normals[0].z, 1.0f); // negated and of unit length
    EXPECT_EQ(plane.tangents[0].y, 1.0f);
    EXPECT_EQ(plane.texCoords[0].x, 0.25f);
    EXPECT_EQ(plane.texCoords[0].y, 0.75f);
    EXPECT_EQ(plane.texCoords[2].y, 0.0f);

    const MeshVertexArray& curve = *batches[1];
    EXPECT_EQ(curve.normals[0].x, 1.0f);
    EXPECT_EQ(curve.tangents[0].y, -1.0f);
    EXPECT_EQ(curve.normals[1].z, 2.0f); // too short: the face's, negated, not scaled
    EXPECT_EQ(curve.normals[2].z, 2.0f);
    EXPECT_EQ(curve.texCoords[0].x, 0.0f);
    EXPECT_EQ(curve.texCoords[0].y, 0.0f);
}

TEST(MeshBatchBuilder, NeverWritesNormalsThatAreNoNumbers) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (const VEC3D normal : {VEC3D{nan, 0, 0}, VEC3D{0, 0, 0}, VEC3D{1e308, 1e308, 0}}) {
        SceneFixture fixture;
        fixture.addMaterial(plainMaterial());
        fixture.addObject();
        FaceShape face = numbered(1, 0);
        face.normal = normal;
        fixture.addFace(face);
        face.normals = {{0, 0, 0}, {0, 0, 0}, {0, 0, 0}};
        fixture.addFace(face);
        fixture.commit();
        for (const auto& batch : build(fixture, 0))
            for (size_t i = 0; i < batch->normals.size(); ++i) {
                EXPECT_TRUE(std::isfinite(batch->normals[i].x));
                EXPECT_TRUE(std::isfinite(length(batch->tangents[i])));
            }
    }
}

TEST(MeshBatchBuilder, SetsTheFlagsOfABatch) {
    const Ptr32<TextureImage> image = [] {
        Ptr32<TextureImage> pointer{};
        pointer.set(reinterpret_cast<TextureImage*>(uintptr_t{64})); // only tested for null
        return pointer;
    }();
    const struct {
        const char* name;
        uint32_t firstFace, secondFace, geometryFlags;
        float opacity;
        int textureIndex; ///< 0: a slot with a colour image, 1: alternative only, 2: empty
        uint32_t expected;
    } rows[] = {
        {"plain", 0, 0, 0, 1.0f, -1, 0},
        {"unlit", kFaceUnlit, 0, 0, 1.0f, -1, kBatchNoShadow | kBatchUnlit},
        {"only the first face counts", 0, kFaceUnlit | kFaceTwoSided, 0, 1.0f, -1, 0},
        {"two-sided", kFaceTwoSided, 0, 0, 1.0f, -1, kBatchNoShadow},
        {"two-sided ignored", kFaceTwoSided, 0, kGeometryTwoSided, 1.0f, -1, 0},
        {"glass", 0, 0, 0, 0.5f, -1, kBatchTranslucent},
        {"glass with a shared image", 0, 0, 0, 0.5f, 0, 0},
        {"glass with an alternative image", 0, 0, 0, 0.5f, 1, 0},
        {"glass with a wrong slot", 0, 0, 0, 0.5f, 99, kBatchTranslucent},
    };
    for (const auto& row : rows) {
        SceneFixture fixture;
        MATERIAL material = plainMaterial();
        material.opacity = row.opacity;
        material.textureIndex = static_cast<int16_t>(row.textureIndex);
        fixture.addMaterial(material);
        TEXTURESLOT slot{};
        slot.color = image;
        fixture.addTexture(slot);
        slot = {};
        slot.alternativeColor = image;
        fixture.addTexture(slot);
        fixture.addTexture({});
        fixture.addObject();
        FaceShape face = numbered(1, 0);
        face.flags = row.firstFace;
        fixture.addFace(face);
        face.flags = row.secondFace;
        fixture.addFace(face);
        fixture.commit();
        fixture.geometry().flags = row.geometryFlags;
        const MeshBatches batches = build(fixture, 0);
        ASSERT_EQ(batches.size(), 1u) << row.name;
        EXPECT_EQ(batches[0]->flags, row.expected) << row.name;
    }
}

/// Two good objects with four triangles each, one face with and one without vertex normals.
void addTwoObjects(SceneFixture& fixture) {
    fixture.addMaterial(plainMaterial());
    for (int k = 0; k < 2; ++k) {
        fixture.addObject();
        FaceShape face = numbered(1, 0, 2);
        face.texCoords.assign(6, {0.5f, 0.5f});
        fixture.addFace(face);
        face.normals.assign(6, {0, 1, 0});
        fixture.addFace(face);
    }
    fixture.commit();
}

template <class T> T& element(const LIST& list, int k) {
    return static_cast<T*>(list.data.get())[k];
}

TEST(MeshBatchBuilder, DrawsLessOfBadRecords) {
    const struct {
        const char* name;
        std::function<void(SceneFixture&)> spoil;
        size_t vertices[2]; ///< of objects 0 and 1
    } rows[] = {
        {"nothing spoiled", [](SceneFixture&) {}, {12, 12}},
        {"negative face number",
         [](SceneFixture& f) { element<INDEX>(f.geometry().clusters.index, 0).first = -2; },
         {0, 12}},
        {"face count beyond the list",
         [](SceneFixture& f) { element<INDEX>(f.geometry().clusters.index, 1).count = 1000000; },
         {12, 12}},
        {"overflowing face range",
         [](SceneFixture& f) {
             element<INDEX>(f.geometry().clusters.index, 0) = {1, 0x7fffffff};
         },
         {18, 12}},
        {"triangle size no multiple of 72",
         [](SceneFixture& f) { element<INDEX>(f.geometry().faceTriangles.index, 1).count = 143; },
         {9, 12}},
        {"fewer triangle clusters than faces",
         [](SceneFixture& f) { f.geometry().faceTriangles.index.count = 3; },
         {12, 6}},
        {"material past the end", [](SceneFixture& f) { f.face(0).material = 1; }, {6, 12}},
        {"negative material", [](SceneFixture& f) { f.face(1).material = -32768; }, {6, 12}},
        {"texture coordinates past the end",
         [](SceneFixture& f) { f.face(3).texCoordIndex = 21; },
         {12, 12}},
    };
    for (const auto& row : rows) {
        SceneFixture fixture;
        addTwoObjects(fixture);
        row.spoil(fixture);
        MeshBatchBuilder builder(fixture.scene());
        for (int k = 0; k < 2; ++k) {
            size_t vertices = 0;
            for (const auto& batch : build(builder, k)) {
                vertices += batch->positions.size();
                for (const Vec3Array* array :
                     {&batch->positions, &batch->normals, &batch->tangents, &batch->texCoords})
                    EXPECT_FALSE(holdsCanary(*array)) << row.name << ", object " << k;
            }
            EXPECT_EQ(vertices, row.vertices[k]) << row.name << ", object " << k;
        }
    }
}

} // namespace
} // namespace ogl
