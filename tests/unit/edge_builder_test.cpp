// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/batches/edge_builder.h"

#include "support/scene_fixture.h"

#include <functional>
#include <gtest/gtest.h>

namespace ogl::test {
namespace {

constexpr EdgeRules kDrawing{.silhouettes = true, .edgesOnly = false};
constexpr EdgeRules kEdgesAlone{.silhouettes = false, .edgesOnly = true};

struct Built {
    ColorVertexArray edges;
    ColorVertexArray silhouettes;
    int count = 0;

    Built(SceneFixture& fixture, EdgeRules rules, int object = 0) {
        const EdgeBuilder builder(fixture.scene(), rules);
        builder.reserve(object + 1, edges, &silhouettes);
        const size_t room = edges.positions.capacity();
        count = builder.append(object, edges, &silhouettes);
        EXPECT_EQ(edges.positions.capacity(), room); // counted first, reserved once
        EXPECT_EQ(edges.positions.size(), edges.colors.size());
        EXPECT_EQ(silhouettes.positions.size(), silhouettes.colors.size());
    }
};

LoopShape loop(int points, uint8_t kind, uint8_t flags = 0) {
    LoopShape shape{{}, closedStyle()};
    shape.style.kind = kind;
    shape.style.flags = flags;
    for (int i = 0; i < points; ++i)
        shape.points.push_back({1000 * i, 2000, -500});
    return shape;
}

FaceShape faceWith(std::vector<LoopShape> loops) {
    FaceShape face = quad({0, 0, 0}, {0, 1, 0}, {1, 1, 0}, {1, 0, 0});
    face.loops = std::move(loops);
    return face;
}

TEST(EdgeBuilder, DrawsTheLoopsOfAFace) {
    const struct {
        const char* name;
        std::vector<LoopShape> loops;
        size_t segments;
        size_t segmentsEdgesAlone;
    } rows[] = {
        {"closed outline", {loop(4, kLoopClosed)}, 4, 4},
        {"the first loop is always closed", {loop(4, kLoopOpen)}, 4, 4},
        {"closed hole", {loop(4, kLoopClosed), loop(3, kLoopClosed)}, 7, 4},
        {"open polyline", {loop(4, kLoopClosed), loop(3, kLoopOpen)}, 6, 4},
        {"later loop of an unknown kind", {loop(4, kLoopClosed), loop(3, 7)}, 4, 4},
        {"hidden outline", {loop(4, kLoopClosed, kLoopHidden), loop(3, kLoopClosed)}, 3, 4},
        {"one open point", {loop(4, kLoopClosed), loop(1, kLoopOpen)}, 4, 4},
        {"empty outline", {loop(0, kLoopClosed), loop(3, kLoopOpen)}, 2, 0},
        {"no loops", {}, 0, 0},
    };
    for (const auto& row : rows) {
        SceneFixture fixture;
        fixture.addMaterial(plainMaterial());
        fixture.addObject();
        fixture.addFace(faceWith(row.loops));
        fixture.commit();
        const Built drawing(fixture, kDrawing);
        EXPECT_EQ(drawing.edges.positions.size(), row.segments * 2) << row.name;
        EXPECT_EQ(drawing.count, 1) << row.name;
        const Built alone(fixture, kEdgesAlone);
        EXPECT_EQ(alone.edges.positions.size(), row.segmentsEdgesAlone * 2) << row.name;
        EXPECT_EQ(alone.count, 1) << row.name;
    }
}

TEST(EdgeBuilder, LeavesOutFacesThatAreNotDrawn) {
    const struct {
        const char* name;
        std::function<void(SceneFixture&)> change;
        bool drawn;
        bool drawnEdgesAlone;
    } rows[] = {
        {"plain", [](SceneFixture&) {}, true, true},
        {"no material", [](SceneFixture& f) { f.face(0).material = -1; }, false, true},
        {"invisible", [](SceneFixture& f) { f.material(0).opacity = 0.0f; }, false, true},
        {"unused", [](SceneFixture& f) { f.material(0).useCount = 0; }, false, true},
        {"lacks its texture", [](SceneFixture& f) { f.material(0).flags = kMaterialOnlyTextured; },
         false, true},
        {"has its texture",
         [](SceneFixture& f) {
             f.material(0).flags = kMaterialOnlyTextured;
             f.material(0).textureIndex = 0;
         },
         true, true},
        {"no triangles",
         [](SceneFixture& f) {
             static_cast<INDEX*>(f.geometry().faceTriangles.index.data.get())->count = 35;
         },
         false, false},
    };
    for (const auto& row : rows) {
        SceneFixture fixture;
        fixture.addMaterial(plainMaterial());
        fixture.addObject();
        fixture.addFace(faceWith({loop(4, kLoopClosed)}));
        fixture.commit();
        row.change(fixture);
        EXPECT_EQ(Built(fixture, kDrawing).count, row.drawn ? 1 : 0) << row.name;
        EXPECT_EQ(Built(fixture, kEdgesAlone).count, row.drawnEdgesAlone ? 1 : 0) << row.name;
    }
}

TEST(EdgeBuilder, SendsSmoothAndWeaklyStyledFacesToTheSilhouettes) {
    const struct {
        const char* name;
        bool pen, smooth;
        uint8_t kind;
        EdgeRules rules;
        size_t triangles;
    } rows[] = {
        {"planar with a pen", true, false, 0, kDrawing, 0},
        {"planar without a pen", false, false, 0, kDrawing, 2},
        {"smooth", true, true, 0, kDrawing, 2},
        {"smooth, of the kind without silhouettes", true, true, 6, kDrawing, 0},
        {"smooth, silhouettes off", true, true, 0, {.silhouettes = false, .edgesOnly = false}, 0},
        {"smooth, edges alone", true, true, 0, kEdgesAlone, 0},
    };
    for (const auto& row : rows) {
        SceneFixture fixture;
        fixture.addMaterial(plainMaterial());
        fixture.addObject(0, row.kind);
        FaceShape face = faceWith({loop(4, kLoopClosed)});
        face.loops[0].style.pen = row.pen ? 1 : 0;
        face.loops[0].style.penNumber = kLoopNoPen;
        face.loops[0].style.color = {0, 0, 255};
        if (row.smooth)
            face.normals.assign(6, {0, 0, 1});
        fixture.addFace(face);
        fixture.commit();
        const Built built(fixture, row.rules);
        EXPECT_EQ(built.silhouettes.positions.size(), row.triangles * 3) << row.name;
        EXPECT_EQ(built.edges.positions.empty(), row.triangles != 0) << row.name;
        EXPECT_EQ(built.count, row.triangles != 0 ? 2 : 1) << row.name;
        if (row.triangles != 0) {
            EXPECT_EQ(built.silhouettes.colors[5].x, 255 * 0.003921569f) << row.name;
            EXPECT_EQ(built.silhouettes.positions[5].x, 1.0f) << row.name;
        }
    }
}

TEST(EdgeBuilder, DrawsLessOfBadRecords) {
    const struct {
        const char* name;
        std::function<void(GEOMETRY&)> spoil;
        size_t segments; ///< of a face with loops of 4 and 3 points
    } rows[] = {
        {"nothing spoiled", [](GEOMETRY&) {}, 7},
        {"no face loops", [](GEOMETRY& g) { g.faceLoops.data = nullptr; }, 0},
        {"loops past the end",
         [](GEOMETRY& g) { element<FACELOOPS>(g.faceLoops, 0).firstLoop = 2; }, 0},
        {"more loops than there are",
         [](GEOMETRY& g) { element<FACELOOPS>(g.faceLoops, 0).loopCount = 0x7fffffff; }, 7},
        {"points past the end", [](GEOMETRY& g) { element<LOOP>(g.loops, 1).pointCount = 4; }, 4},
        {"point numbers that overflow",
         [](GEOMETRY& g) {
             element<LOOP>(g.loops, 1) = {3, 0x7fffffff};
         },
         4},
        {"fewer styles than loops", [](GEOMETRY& g) { g.loopStyles.count = 1; }, 4},
    };
    for (const auto& row : rows) {
        SceneFixture fixture;
        fixture.addMaterial(plainMaterial());
        fixture.addObject();
        fixture.addFace(faceWith({loop(4, kLoopClosed), loop(3, kLoopClosed)}));
        fixture.commit();
        row.spoil(fixture.geometry());
        const Built built(fixture, kDrawing);
        EXPECT_EQ(built.edges.positions.size(), row.segments * 2) << row.name;
        for (const Vec3& p : built.edges.positions)
            EXPECT_FLOAT_EQ(p.y, 2.0f) << row.name; // every point of the list lies there
    }
}

} // namespace
} // namespace ogl::test
