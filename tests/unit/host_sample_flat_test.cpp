// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host_scene_reader.h"

#include "fixed/batches/edge_builder.h"
#include "fixed/batches/mesh_batch_builder.h"
#include "host/sample_flat.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <tuple>

namespace ogl::test {
namespace {

using namespace ogl::host;

/// The flat as built, once for all cases.
SampleScene& flat() {
    static SampleScene sample = [] {
        SampleScene made = makeSampleFlat();
        made.builder.build();
        return made;
    }();
    return sample;
}

ObjectId objectNamed(const std::string& name) {
    const SceneBuilder& builder = flat().builder;
    for (ObjectId i = 0; i < builder.objectCount(); ++i)
        if (builder.objectName(i) == name)
            return i;
    return kNone;
}

TEST(HostSampleFlat, NumbersInTheRecordStayInTheirLists) {
    const SceneLists lists(*flat().builder.scene());
    ASSERT_GT(lists.faces.items().size(), 1000);
    ASSERT_EQ(lists.faceLoops.size(), lists.faces.items().size());
    ASSERT_EQ(lists.loopStyles.size(), lists.loops.size());
    for (int f = 0; f < lists.faces.items().size(); ++f) {
        const FACE& face = *lists.faces.items().at(f);
        ASSERT_NE(lists.materials.at(face.material), nullptr) << "face " << f;
        const FaceTriangles triangles = faceTriangles(lists, f, face.flags);
        ASSERT_GT(triangles.triangleCount, 0) << "face " << f;
        if (face.texCoordIndex >= 0) {
            ASSERT_NE(lists.texCoords.at(face.texCoordIndex + triangles.triangleCount * 3 - 1),
                      nullptr);
        }
        const FACELOOPS& loops = *lists.faceLoops.at(f);
        ASSERT_GT(loops.loopCount, 0);
        for (int i = 0; i < loops.loopCount; ++i) {
            const LOOP* loop = lists.loops.at(loops.firstLoop + i);
            ASSERT_NE(loop, nullptr);
            if (loop->pointCount > 0) {
                ASSERT_NE(lists.loopPoints.at(loop->firstPoint + loop->pointCount - 1), nullptr);
            }
        }
    }
}

TEST(HostSampleFlat, PortalsComeInPairsThatLookOutLast) {
    const SCENE& scene = *flat().builder.scene();
    const SceneLists lists(scene);
    int portals = 0;
    for (int k = 0; k < lists.objects.size(); ++k) {
        if (lists.objects.at(k)->kind != static_cast<uint8_t>(ObjectKind::Window))
            continue;
        const auto faces = readObject(scene, k);
        ASSERT_EQ(faces.size(), 2u);
        for (const ReadFace& face : faces)
            EXPECT_NE(face.flags & kFaceNotRayTraced, 0u);
        const Vec3 middle{6.3, 4.5, 1.3};
        EXPECT_GT(dot(-faces[1].normal, faces[1].corners[0] - middle), 0.0)
            << "the second face of a pane is the portal and looks outside";
        ++portals;
    }
    EXPECT_EQ(portals, 8);
}

/// How often each side of a triangle occurs in each direction, over the faces of an object.
struct OpenSides {
    using Key = std::tuple<double, double, double, double, double, double>;
    std::map<Key, int> sides;

    void add(const ReadFace& face) {
        for (size_t i = 0; i < face.corners.size(); ++i) {
            const Vec3 a = face.corners[i];
            const Vec3 b = face.corners[i % 3 == 2 ? i - 2 : i + 1];
            ++sides[{a.x, a.y, a.z, b.x, b.y, b.z}];
            --sides[{b.x, b.y, b.z, a.x, a.y, a.z}];
        }
    }
    auto open() const {
        return std::ranges::count_if(sides, [](const auto& side) { return side.second != 0; });
    }
};

TEST(HostSampleFlat, FurnitureIsClosed) {
    // Shapes made of brushes: a gap would show as a hole from behind and as stray lines.
    const SCENE& scene = *flat().builder.scene();
    for (const char* name : {"sofa", "armchair", "dining table", "bath tub", "toilet", "sink",
                             "arc lamp", "pendant", "base cabinets", "office chair"}) {
        OpenSides sides;
        for (const ReadFace& face : readObject(scene, objectNamed(name)))
            if (!face.isLine())
                sides.add(face);
        EXPECT_FALSE(sides.sides.empty()) << name;
        EXPECT_EQ(sides.open(), 0) << name;
    }
}

TEST(HostSampleFlat, TheLibraryReadsWhatTheBuilderMeant) {
    const SCENE& scene = *flat().builder.scene();
    MeshBatchBuilder meshes(scene);
    EXPECT_EQ(static_cast<size_t>(meshes.countTriangles(-1)), flat().builder.triangleCount());

    // Every edge ends in corners of triangles, to the last bit.
    const ObjectId walls = objectNamed("walls");
    ColorVertexArray edges;
    ColorVertexArray silhouettes;
    EdgeBuilder(scene, {}).append(walls, edges, &silhouettes);
    EXPECT_TRUE(silhouettes.positions.empty()) << "walls are flat";
    std::set<std::tuple<float, float, float>> corners;
    for (const ReadFace& face : readObject(scene, walls))
        for (size_t i = 0; i + 2 < face.floats.size(); i += 3)
            corners.insert({face.floats[i], face.floats[i + 1], face.floats[i + 2]});
    ASSERT_GT(edges.positions.size(), 100u);
    for (const auto& p : edges.positions)
        EXPECT_TRUE(corners.contains({p.x, p.y, p.z})) << p.x << " " << p.y << " " << p.z;
}

} // namespace
} // namespace ogl::test
