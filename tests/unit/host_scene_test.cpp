// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host_scene_reader.h"

#include <gtest/gtest.h>

#include <cstring>
#include <numbers>

namespace ogl::test {
namespace {

using namespace ogl::host;

template <class T> T at(const void* record, size_t offset) {
    T value;
    std::memcpy(&value, static_cast<const uint8_t*>(record) + offset, sizeof value);
    return value;
}

const uint8_t* pointerAt(const void* record, size_t offset) {
    return reinterpret_cast<const uint8_t*>(static_cast<uintptr_t>(at<uint32_t>(record, offset)));
}

Polygon square(double size, double z) {
    Polygon polygon;
    polygon.material = 0;
    polygon.outline = {{0, 0, z}, {size, 0, z}, {size, size, z}, {0, size, z}};
    return polygon;
}

TEST(HostScene, PolygonTrianglesCoverTheOutlineWithoutItsHoles) {
    struct Case {
        const char* name;
        std::vector<Vec3> outline;
        std::vector<std::vector<Vec3>> holes;
        double area;
    };
    const Case cases[] = {
        {"square", {{0, 0, 0}, {4, 0, 0}, {4, 4, 0}, {0, 4, 0}}, {}, 16.0},
        {"L, concave", {{0, 0, 0}, {4, 0, 0}, {4, 1, 0}, {1, 1, 0}, {1, 4, 0}, {0, 4, 0}}, {}, 7.0},
        {"hole like the outline",
         {{0, 0, 0}, {4, 0, 0}, {4, 4, 0}, {0, 4, 0}},
         {{{1, 1, 0}, {2, 1, 0}, {2, 2, 0}, {1, 2, 0}}},
         15.0},
        {"two holes, one the other way",
         {{0, 0, 0}, {4, 0, 0}, {4, 4, 0}, {0, 4, 0}},
         {{{1, 1, 0}, {1, 2, 0}, {2, 2, 0}, {2, 1, 0}}, {{3, 3, 0}, {3.5, 3, 0}, {3.5, 3.5, 0}}},
         14.875},
        {"upright wall with a door",
         {{0, 0, 0}, {5, 0, 0}, {5, 0, 3}, {0, 0, 3}},
         {{{1, 0, 0.5}, {2, 0, 0.5}, {2, 0, 2.5}, {1, 0, 2.5}}},
         13.0},
        {"repeated corners",
         {{0, 0, 0}, {0, 0, 0}, {4, 0, 0}, {4, 4, 0}, {0, 4, 0}, {0, 0, 0}},
         {},
         16.0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        SceneBuilder builder;
        builder.addMaterial({});
        const ObjectId object = builder.addObject("o");
        Polygon polygon;
        polygon.material = 0;
        polygon.outline = c.outline;
        polygon.holes = c.holes;
        ASSERT_TRUE(builder.addPolygon(object, polygon));
        const auto faces = readObject(*builder.build(), object);
        ASSERT_EQ(faces.size(), 1u);
        EXPECT_NEAR(faces[0].area(), c.area, 1e-4);
        ASSERT_EQ(faces[0].loops.size(), 1 + c.holes.size());
        double loops = 0.0;
        for (const ReadLoop& loop : faces[0].loops)
            loops += dot(loopArea(loop), faces[0].normal) * 0.5;
        EXPECT_NEAR(loops, c.area, 1e-4) << "holes run against the outline";
        const Vec3 a = faces[0].corners[0];
        EXPECT_GT(dot(cross(faces[0].corners[1] - a, faces[0].corners[2] - a), faces[0].normal),
                  0.0);
    }
}

TEST(HostScene, BadPolygonsAreRefused) {
    const std::vector<Vec3> outlines[] = {
        {},
        {{0, 0, 0}, {1, 0, 0}},
        {{0, 0, 0}, {1, 0, 0}, {2, 0, 0}},
        {{0, 0, 0}, {1, 0, 0}, {1, 1, 0.5}, {0, 1, 0}},
        {{0, 0, 0}, {1, 0, 0}, {0.0 / 0.0, 1, 0}},
        {{0, 0, 0}, {1e12, 0, 0}, {0, 1, 0}},
    };
    SceneBuilder builder;
    const ObjectId object = builder.addObject("o");
    for (const auto& outline : outlines) {
        Polygon polygon;
        polygon.outline = outline;
        EXPECT_FALSE(builder.addPolygon(object, polygon));
    }
    EXPECT_TRUE(readObject(*builder.build(), object).empty());
}

TEST(HostScene, RecordHoldsWhatWasAsked) {
    SceneBuilder builder;
    const TextureId texture =
        builder.addTexture({"wood", {{TextureUsage::Opacity, {}, 1, 1, 8, {}}}});
    Material red;
    red.color = {200, 100, 50};
    red.opacity = 0.5f;
    builder.addMaterial({});
    red.texture = texture;
    const MaterialId material = builder.addMaterial(red);
    ObjectOptions window;
    window.kind = ObjectKind::Window;
    window.faceFlags = kFaceTwoSided;
    builder.addObject("empty");
    const ObjectId object = builder.addObject("window", window);
    Polygon polygon = square(2.0, 1.5);
    polygon.material = material;
    polygon.textureMap = TextureMap{{}, {0.5, 0, 0}, {0, 0.25, 0}};
    ASSERT_TRUE(builder.addPolygon(object, polygon));
    Lamp spot;
    spot.kind = Lamp::Kind::Spot;
    spot.position = {1, 2, 3};
    builder.addLamp(spot);
    builder.addPath({"walk", {{0, 0, 0}, {1, 2, 0}}});
    builder.setSite(30.0, 20.0, 10.0);
    builder.setCamera({{1, 2, 3}, {4, 5, 6}, {0, 0, 1}, 60.0});
    builder.setViewWindow(ViewWindow{0.25, -0.5, 0.5, 0.5});
    builder.setSun({180.0, 30.0, {10, 20, 30}, 80, true});
    builder.setObjectVisible(0, false);
    const SCENE* scene = builder.build();

    // Site box: half the width x / (unitScale x 1000) = 15 m.
    const double unitScale = at<double>(scene, 15379);
    EXPECT_NEAR(at<int32_t>(scene, 437) * 0.5 / (unitScale * 1000.0), 15.0, 1e-9);
    EXPECT_NEAR(at<int32_t>(scene, 441) * 0.5 / (unitScale * 1000.0), 10.0, 1e-9);
    EXPECT_NEAR(at<int32_t>(scene, 445) / (unitScale * 1000.0), 10.0, 1e-9);
    EXPECT_EQ(at<int32_t>(scene, 467), 8000);
    EXPECT_EQ(at<int32_t>(scene, 471), -16000);
    EXPECT_EQ(at<int32_t>(scene, 491), 16000);
    EXPECT_EQ(at<float>(scene, 16891), 3.0f);
    EXPECT_EQ(at<float>(scene, 16895), 4.0f);
    EXPECT_NEAR(at<double>(scene, 16511), std::numbers::pi / 3.0, 1e-12);
    EXPECT_EQ(at<int32_t>(scene, 11720), 1);
    EXPECT_EQ(at<int16_t>(scene, 7676), -30) << "the light travels downwards";

    const uint8_t* lights = pointerAt(scene, 17389);
    EXPECT_EQ(at<int32_t>(scene, 17373), 3) << "two reserved records and the spot";
    EXPECT_NEAR(at<float>(lights, 12), -0.8660254f, 1e-6f);
    EXPECT_NEAR(at<float>(lights, 20), -0.5f, 1e-6f);
    EXPECT_EQ(at<uint8_t>(lights, 2 * 59 + 58), 2);

    const uint8_t* materials = pointerAt(scene, 17333 + 16) + material * 290;
    EXPECT_EQ(at<uint8_t>(materials, 2), 50);
    EXPECT_EQ(at<uint8_t>(materials, 4), 200);
    EXPECT_EQ(at<float>(materials, 50), 0.5f);
    EXPECT_EQ(at<int16_t>(materials, 256), texture);
    EXPECT_EQ(at<uint32_t>(materials, 286), 1u);
    EXPECT_EQ(at<uint32_t>(materials - 290, 286), 0u);

    const uint8_t* objectList = pointerAt(scene, 15375);
    const uint8_t* objects = pointerAt(objectList, 16);
    const auto objectSize = static_cast<size_t>(at<int16_t>(objectList, 12));
    EXPECT_NE(at<uint32_t>(objects, 60) & 0x20002008u, 0u);
    EXPECT_EQ(at<uint32_t>(objects, objectSize + 60) & 0x20002008u, 0u);
    EXPECT_EQ(at<uint8_t>(objects, objectSize + 270), 1);
    EXPECT_EQ(at<int32_t>(objects, objectSize + 158), 15) << "1.5 m in steps of 10 cm";

    const uint8_t* faces = pointerAt(scene, 17113 + 20 + 16);
    EXPECT_EQ(at<uint32_t>(faces, 0), 0x20000000u);
    EXPECT_EQ(at<int32_t>(faces, 56), 0);
    EXPECT_EQ(at<int16_t>(faces, 60), material);
    const auto coords = reinterpret_cast<const uint8_t*>(pointerAt(scene, 17353 + 16));
    const auto corners = pointerAt(scene, 17273 + 20 + 16);
    for (size_t i = 0; i < 6; ++i) {
        EXPECT_EQ(at<float>(coords, i * 8), at<float>(corners, i * 12) * 0.5f);
        EXPECT_EQ(at<float>(coords, i * 8 + 4), at<float>(corners, i * 12 + 4) * 0.25f);
    }

    const uint8_t* view = pointerAt(scene, 17393);
    EXPECT_EQ(at<int32_t>(view, 1174), 2) << "one cache entry per object";
    const auto loads = builder.textureLoads();
    ASSERT_EQ(loads.size(), 1u);
    EXPECT_EQ(reinterpret_cast<const uint8_t*>(loads[0].slot),
              pointerAt(scene, 17313 + 16) + 24 + 4)
        << "usage 1 of texture 0";
}

TEST(HostScene, FacesOfSeveralObjectsKeepTheirLists) {
    SceneBuilder builder;
    builder.addMaterial({});
    for (int i = 0; i < 3; ++i) {
        const ObjectId object = builder.addObject("o" + std::to_string(i));
        for (int k = 0; k <= i; ++k) {
            Polygon polygon = square(1.0 + i, 10.0 * i + k);
            polygon.textureMap = TextureMap{{0, 0, -10.0 * i - k}, {}, {0, 0, 1}};
            ASSERT_TRUE(builder.addPolygon(object, polygon));
        }
    }
    const SCENE* scene = builder.build();
    const SceneLists lists(*scene);
    for (int f = 0; f < lists.faces.items().size(); ++f) {
        const FACE& face = *lists.faces.items().at(f);
        const TEXCOORD* texCoord = lists.texCoords.at(face.texCoordIndex);
        ASSERT_NE(texCoord, nullptr);
        const FaceTriangles triangles = faceTriangles(lists, f, face.flags);
        EXPECT_NEAR(texCoord->v, 2.0 * readVectors(triangles.positions, 1)[0].z, 1e-4);
    }
    for (int i = 0; i < 3; ++i) {
        const auto faces = readObject(*scene, i);
        ASSERT_EQ(faces.size(), static_cast<size_t>(i) + 1);
        for (int k = 0; k <= i; ++k) {
            const ReadFace& face = faces[static_cast<size_t>(k)];
            EXPECT_NEAR(face.area(), (1.0 + i) * (1.0 + i), 1e-5);
            EXPECT_NEAR(face.corners[0].z, 10.0 * i + k, 1e-5);
            ASSERT_EQ(face.loops.size(), 1u);
            EXPECT_NEAR(face.loops[0].points[0].z, 10.0 * i + k, 1e-5);
        }
    }
}

TEST(HostScene, ChangesReachTheRecord) {
    SceneBuilder builder;
    builder.addMaterial({});
    const ObjectId object = builder.addObject("o");
    builder.addPolygon(object, square(1.0, 0.0));
    SCENE* scene = builder.build();
    const SceneLists lists(*scene);
    CACHEENTRY* entry = cacheEntry(*viewOf(*scene), 0);
    entry->changeFlags = 0;
    EXPECT_TRUE(lists.isDrawn(object));
    builder.setObjectVisible(object, false);
    EXPECT_FALSE(lists.isDrawn(object));
    EXPECT_NE(entry->changeFlags & kObjectChanged, 0u) << "edges are rebuilt without the object";
    EXPECT_THROW(builder.setObjectVisible(1, true), std::out_of_range);
    EXPECT_THROW(builder.addObject("late"), std::logic_error);

    EXPECT_TRUE(builder.librarySlots().empty());
    entry->edgeRecord = reinterpret_cast<BatchSet*>(uintptr_t{0x1000});
    const auto slots = builder.librarySlots();
    ASSERT_EQ(slots.size(), 1u);
    EXPECT_EQ(slots[0].releaseKind, kReleaseBatchSet);
    EXPECT_EQ(at<uint32_t>(slots[0].slot, 0), 0x1000u);
    entry->edgeRecord = nullptr;
}

} // namespace
} // namespace ogl::test
