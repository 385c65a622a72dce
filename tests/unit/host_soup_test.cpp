// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host_scene_reader.h"

#include "fixed/batches/edge_builder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <numbers>

namespace ogl::test {
namespace {

using namespace ogl::host;

/// A soup under construction.
struct Soup {
    std::vector<Vec3> positions;
    std::vector<Vec3> normals;
    std::vector<uint32_t> indices;
    std::vector<MaterialId> materials;

    void triangle(Vec3 a, Vec3 b, Vec3 c) {
        for (const Vec3 p : {a, b, c}) {
            indices.push_back(static_cast<uint32_t>(positions.size()));
            positions.push_back(p);
        }
    }
    void quad(Vec3 a, Vec3 b, Vec3 c, Vec3 d) {
        triangle(a, b, c);
        triangle(a, c, d);
    }
    void smoothQuad(const Vec3 (&p)[4], const Vec3 (&n)[4]) {
        quad(p[0], p[1], p[2], p[3]);
        for (const size_t i : {0u, 1u, 2u, 0u, 2u, 3u})
            normals.push_back(n[i]);
    }
    /// A flat quad in a soup with normals.
    void flatQuad(Vec3 a, Vec3 b, Vec3 c, Vec3 d) {
        quad(a, b, c, d);
        normals.insert(normals.end(), 6, normalized(cross(b - a, c - a)));
    }
    TriangleSoup view() const { return {positions, normals, {}, indices, materials}; }
};

struct Result {
    SceneBuilder builder;
    SoupReport report;
    std::vector<ReadFace> faces;

    size_t count(bool (*which)(const ReadFace&)) const {
        return static_cast<size_t>(std::ranges::count_if(faces, which));
    }
    size_t curved() const {
        return count([](const ReadFace& f) { return f.curved(); });
    }
    size_t lines() const {
        return count([](const ReadFace& f) { return f.isLine(); });
    }
    std::vector<ReadFace> flat() const {
        std::vector<ReadFace> result;
        std::ranges::copy_if(faces, std::back_inserter(result),
                             [](const ReadFace& f) { return !f.curved() && !f.isLine(); });
        return result;
    }
};

Result buildSoup(const Soup& soup, const SoupOptions& options = {}) {
    Result result;
    result.builder.addMaterial({});
    result.builder.addMaterial({});
    const ObjectId object = result.builder.addObject("soup");
    result.report = result.builder.addTriangleSoup(object, soup.view(), options);
    result.faces = readObject(*result.builder.build(), object);
    return result;
}

Soup box(Vec3 low, Vec3 high) {
    Soup soup;
    const auto p = [&](int i) {
        return Vec3{(i & 1) ? high.x : low.x, (i & 2) ? high.y : low.y, (i & 4) ? high.z : low.z};
    };
    soup.quad(p(0), p(2), p(3), p(1));
    soup.quad(p(4), p(5), p(7), p(6));
    soup.quad(p(0), p(1), p(5), p(4));
    soup.quad(p(2), p(6), p(7), p(3));
    soup.quad(p(0), p(4), p(6), p(2));
    soup.quad(p(1), p(3), p(7), p(5));
    return soup;
}

/// A cylinder around z; `caps` as fans around the axis.
Soup cylinder(int sides, bool withNormals, bool caps) {
    Soup soup;
    const auto direction = [&](int i) {
        const double a = 2.0 * std::numbers::pi * i / sides;
        return Vec3{std::cos(a), std::sin(a), 0.0};
    };
    const Vec3 up{0.0, 0.0, 1.0};
    for (int i = 0; i < sides; ++i) {
        const Vec3 a = direction(i);
        const Vec3 b = direction(i + 1);
        soup.smoothQuad({a, b, b + up, a + up}, {a, b, b, a});
        if (caps) {
            soup.triangle(up, a + up, b + up);
            soup.triangle({}, b, a);
            soup.normals.insert(soup.normals.end(), {up, up, up, -up, -up, -up});
        }
    }
    if (!withNormals)
        soup.normals.clear();
    return soup;
}

Soup turned(Soup soup) {
    for (size_t i = 0; i + 2 < soup.indices.size(); i += 3)
        std::swap(soup.indices[i + 1], soup.indices[i + 2]);
    return soup;
}

Soup both(Soup soup, const Soup& other) {
    const auto first = static_cast<uint32_t>(soup.positions.size());
    soup.positions.insert(soup.positions.end(), other.positions.begin(), other.positions.end());
    for (const uint32_t index : other.indices)
        soup.indices.push_back(first + index);
    return soup;
}

/// One of two parts of an L around (1, 1), cut from its inner to its outer corner.
Soup corner(bool mirrored) {
    std::vector<Vec3> low{{0, 0, 0}, {2, 0, 0}, {2, 1, 0}, {1, 1, 0}};
    if (mirrored)
        for (Vec3& p : low)
            std::swap(p.x, p.y);
    Soup soup;
    const Vec3 up{0, 0, 1};
    soup.quad(low[3], low[2], low[1], low[0]);
    soup.quad(low[0] + up, low[1] + up, low[2] + up, low[3] + up);
    for (size_t i = 0; i < 4; ++i)
        soup.quad(low[i], low[(i + 1) % 4], low[(i + 1) % 4] + up, low[i] + up);
    return mirrored ? turned(soup) : soup;
}

void expectVisibleSidesOutwards(const std::vector<ReadFace>& faces, Vec3 inside) {
    for (const ReadFace& face : faces) {
        const Vec3 a = face.corners[0];
        const Vec3 stored = cross(face.corners[1] - a, face.corners[2] - a);
        EXPECT_LT(dot(stored, a - inside), 0.0) << "stored triangles run clockwise from outside";
        EXPECT_LT(dot(face.normal, a - inside), 0.0) << "the face normal points inwards";
    }
}

TEST(HostSoup, WallsBetweenTouchingSolidsGo) {
    const Soup left = box({0, 0, 0}, {1, 1, 1});
    const Soup right = box({1, 0, 0}, {2, 1, 1});
    Soup sheet;
    sheet.quad({1, 0, 0}, {1, 1, 0}, {1, 1, 1}, {1, 0, 1});
    const Soup twoSided = both(sheet, turned(sheet));
    Soup open = left; // without its end at x = 1
    open.indices.resize(open.indices.size() - 6);
    Soup painted = both(left, right);
    painted.materials.assign(12, 0);
    painted.materials.resize(24, 1);
    const struct {
        const char* name;
        Soup soup;
        size_t inner, faces;
    } rows[] = {
        {"two boxes are one", both(left, right), 4, 6},
        {"three in a row", both(both(left, right), box({2, 0, 0}, {3, 1, 1})), 8, 6},
        {"round a corner", both(corner(false), corner(true)), 4, 8},
        {"of different materials", painted, 0, 12},
        {"rooms seen from inside", turned(both(left, right)), 0, 8},
        {"a sheet with two sides", twoSided, 0, 2},
        {"as the end of an open box", both(open, twoSided), 0, 7},
        {"a box beside a smaller one", both(left, box({1, 0, 0}, {2, 1, 0.5})), 0, 11},
    };
    for (const auto& row : rows) {
        const Result result = buildSoup(row.soup);
        EXPECT_EQ(result.report.inner, row.inner) << row.name;
        EXPECT_EQ(result.report.triangles, row.soup.indices.size() / 3 - row.inner) << row.name;
        EXPECT_EQ(result.flat().size(), row.faces) << row.name;
    }
}

TEST(HostSoup, CubeBecomesSixFacesWithFourCorners) {
    const Result r = buildSoup(box({-1, -1, -1}, {1, 1, 1}));
    ASSERT_EQ(r.faces.size(), 6u);
    for (const ReadFace& face : r.faces) {
        ASSERT_EQ(face.loops.size(), 1u);
        EXPECT_EQ(face.loops[0].points.size(), 4u);
        EXPECT_TRUE(face.loops[0].closed);
        EXPECT_FALSE(face.loops[0].hidden);
        EXPECT_DOUBLE_EQ(face.area(), 4.0);
        EXPECT_NEAR(length(face.normal), 1.0, 1e-12);
        // The outline runs like the triangles.
        EXPECT_GT(dot(loopArea(face.loops[0]), face.normal), 7.9);
    }
    expectVisibleSidesOutwards(r.faces, {});
}

TEST(HostSoup, WallWithWindowIsOneFaceWithTwoLoops) {
    Soup soup;
    const double x[4] = {0, 1, 3, 5};
    const double z[4] = {0, 1, 2, 2.5};
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j)
            if (i != 1 || j != 1)
                soup.quad({x[i], 0, z[j]}, {x[i + 1], 0, z[j]}, {x[i + 1], 0, z[j + 1]},
                          {x[i], 0, z[j + 1]});
    const Result r = buildSoup(soup);
    ASSERT_EQ(r.faces.size(), 1u);
    const ReadFace& wall = r.faces[0];
    EXPECT_NEAR(wall.area(), 12.5 - 2.0, 1e-5);
    ASSERT_EQ(wall.loops.size(), 2u);
    EXPECT_EQ(wall.loops[0].points.size(), 4u);
    EXPECT_EQ(wall.loops[1].points.size(), 4u);
    EXPECT_NEAR(dot(loopArea(wall.loops[0]), wall.normal), 25.0, 1e-4);
    EXPECT_NEAR(dot(loopArea(wall.loops[1]), wall.normal), -4.0, 1e-4);
    EXPECT_NEAR(wall.normal.y, 1.0, 1e-9); // visible from -y, so inwards is +y
}

TEST(HostSoup, CylinderIsASmoothSideAndTwoCaps) {
    // 200 sides bend by 1.8 degrees each: single triangles are flat by any measure.
    for (const auto& [sides, withNormals] :
         {std::pair{24, false}, {24, true}, {200, false}, {200, true}}) {
        SCOPED_TRACE(std::to_string(sides) + (withNormals ? " with normals" : " without normals"));
        const Result r = buildSoup(cylinder(sides, withNormals, true));
        EXPECT_EQ(r.curved(), 1u);
        EXPECT_EQ(r.lines(), 0u);
        const auto caps = r.flat();
        ASSERT_EQ(caps.size(), 2u);
        for (const ReadFace& cap : caps) {
            ASSERT_EQ(cap.loops.size(), 1u);
            EXPECT_EQ(cap.loops[0].points.size(), static_cast<size_t>(sides));
            EXPECT_FALSE(cap.loops[0].hidden);
        }
        for (const ReadFace& face : r.faces) {
            if (!face.curved())
                continue;
            EXPECT_EQ(face.corners.size(), static_cast<size_t>(sides) * 6);
            for (const ReadLoop& loop : face.loops)
                EXPECT_TRUE(loop.points.empty());
            for (size_t i = 0; i < face.corners.size(); ++i) {
                const Vec3 out = normalized(Vec3{face.corners[i].x, face.corners[i].y, 0.0});
                EXPECT_GT(dot(face.normals[i], out), 0.9999);
            }
        }
    }
}

Vec3 onRim(int i) {
    const double a = 2.0 * std::numbers::pi * i / 24;
    return {std::cos(a), std::sin(a), 0.0};
}

TEST(HostSoup, FoldsAreEdgesOrCurves) {
    Soup strip; // of shallow folds whose normals say that each part is flat
    for (int i = 0; i < 8; ++i) {
        const auto z = [](int k) { return 0.01 * k * k; };
        strip.flatQuad({i * 1.0, 0, z(i)}, {i + 1.0, 0, z(i + 1)}, {i + 1.0, 1, z(i + 1)},
                       {i * 1.0, 1, z(i)});
    }
    Soup top; // two cones on one rim
    for (int i = 0; i < 24; ++i) {
        top.triangle(onRim(i), onRim(i + 1), {0, 0, 0.8});
        top.triangle(onRim(i + 1), onRim(i), {0, 0, -0.8});
    }
    Soup ridge;
    ridge.quad({0, 0, 0}, {10, 0, 0}, {10, 4, 0.7}, {0, 4, 0.7});
    ridge.quad({0, 4, 0.7}, {10, 4, 0.7}, {10, 8, 0}, {0, 8, 0});
    Soup unequal; // one quad beside three, beside one: their corners meet only at the ends
    unequal.quad({0, 0, 0}, {1, 0, 0}, {1, 0, 3}, {0, 0, 3});
    for (int i = 0; i < 3; ++i)
        unequal.quad({1, 0, i * 1.0}, {2, 0, i * 1.0}, {2, 0, i + 1.0}, {1, 0, i + 1.0});
    unequal.quad({2, 0, 0}, {4, 0, 0}, {4, 0, 3}, {2, 0, 3});
    Soup nearlyEqual;
    nearlyEqual.quad({0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0});
    nearlyEqual.quad({1.00003, 0, 0}, {2, 0, 0}, {2, 1, 0}, {0.99998, 1.00004, 0});
    const struct {
        const char* name;
        Soup soup;
        size_t flat, curved, lines;
        size_t points; ///< of each flat face's and each line's only loop
    } rows[] = {
        {"flat normals keep all folds", strip, 8, 0, 0, 4},
        {"an open shade has a back and two rims", cylinder(24, true, false), 0, 2, 2, 24},
        {"a crease between curves is one line", top, 0, 2, 1, 24},
        {"a shallow ridge stays an edge", ridge, 2, 0, 0, 4},
        {"sides that do not match are merged", unequal, 1, 0, 0, 4},
        {"nearly equal corners are welded", nearlyEqual, 1, 0, 0, 4},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const Result r = buildSoup(row.soup);
        EXPECT_EQ(r.flat().size(), row.flat);
        EXPECT_EQ(r.curved(), row.curved);
        EXPECT_EQ(r.lines(), row.lines);
        for (const ReadFace& face : r.faces) {
            if (face.curved())
                continue;
            ASSERT_EQ(face.loops.size(), 1u);
            EXPECT_TRUE(face.loops[0].closed);
            EXPECT_EQ(face.loops[0].points.size(), row.points);
        }
    }
}

TEST(HostSoup, BordersThatTouchKeepToTheirPartOfTheFace) {
    // A 4 x 4 board without two squares that touch in one corner.
    Soup soup;
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j)
            if (!(i == 1 && j == 1) && !(i == 2 && j == 2))
                soup.quad({i * 1.0, j * 1.0, 0}, {i + 1.0, j * 1.0, 0}, {i + 1.0, j + 1.0, 0},
                          {i * 1.0, j + 1.0, 0});
    const Result r = buildSoup(soup);
    ASSERT_EQ(r.faces.size(), 1u);
    // The boards beside the corner are narrow there: the border follows each of them, so that both
    // holes are one loop that touches itself.
    ASSERT_EQ(r.faces[0].loops.size(), 2u);
    const double areas[] = {16.0, -2.0};
    for (size_t i = 0; i < 2; ++i) {
        const ReadLoop& loop = r.faces[0].loops[i];
        EXPECT_TRUE(loop.closed);
        EXPECT_EQ(loop.points.size(), 4u * (i + 1));
        EXPECT_NEAR(dot(loopArea(loop), r.faces[0].normal) * 0.5, areas[i], 1e-5);
    }
}

TEST(HostSoup, RoundedEdgeHasNoLineWhereItIsTangent) {
    // A flat top that runs into a quarter round.
    Soup soup;
    soup.flatQuad({-2, 0, 1}, {0, 0, 1}, {0, 5, 1}, {-2, 5, 1});
    constexpr int kSteps = 6;
    for (int i = 0; i < kSteps; ++i) {
        const auto at = [](int k) {
            const double a = std::numbers::pi * 0.5 * (1.0 - k / double{kSteps});
            return Vec3{std::cos(a), 0.0, std::sin(a)};
        };
        const Vec3 a = at(i);
        const Vec3 b = at(i + 1);
        const Vec3 along{0, 5, 0};
        soup.smoothQuad({a, b, b + along, a + along}, {a, b, b, a});
    }
    // The open sheet is one curved surface, written as its bent and its flat part, each with a
    // back; its rim of four sides is one closed line.
    const Result r = buildSoup(soup);
    EXPECT_EQ(r.flat().size(), 0u);
    EXPECT_EQ(r.curved(), 4u);
    EXPECT_EQ(r.count([](const ReadFace& f) { return f.curved() && !f.loops[0].points.empty(); }),
              1u)
        << "the flat part's outline, for drawings of edges alone";
    ASSERT_EQ(r.lines(), 1u);
    const auto line = std::ranges::find_if(r.faces, &ReadFace::isLine);
    ASSERT_EQ(line->loops.size(), 1u);
    EXPECT_EQ(line->loops[0].points.size(), 2u * (kSteps + 2));
    for (const Vec3& p : line->loops[0].points)
        EXPECT_FALSE(p.x == 0.0 && p.y > 0.0 && p.y < 5.0);
}

// A drawing's edges end in corners of triangles, to the last bit.
TEST(HostSoup, OutlinesMeetTheirTriangles) {
    SceneBuilder builder;
    builder.addMaterial({});
    const ObjectId object = builder.addObject("tower");
    const Vec3 low{3.3, -1.7, 0.1};
    builder.addTriangleSoup(object, box(low, {5.123, 9.87, 31.7}).view());
    const SCENE& scene = *builder.build();
    ColorVertexArray edges;
    EdgeBuilder(scene, {.silhouettes = false, .edgesOnly = true}).append(object, edges, nullptr);
    std::vector<float> stored;
    for (const ReadFace& face : readObject(scene, object))
        stored.insert(stored.end(), face.floats.begin(), face.floats.end());
    ASSERT_EQ(edges.positions.size(), 48u);
    for (const auto& p : edges.positions) {
        bool found = false;
        for (size_t i = 0; i + 2 < stored.size(); i += 3)
            found = found || (stored[i] == p.x && stored[i + 1] == p.y && stored[i + 2] == p.z);
        EXPECT_TRUE(found) << p.x << " " << p.y << " " << p.z;
    }
}

TEST(HostSoup, SheetWithTwoSidesIsOutlinedOnce) {
    Soup soup;
    soup.quad({0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0});
    SoupOptions options;
    options.bothSides = true;
    const Result r = buildSoup(soup, options);
    ASSERT_EQ(r.faces.size(), 2u);
    EXPECT_LT(dot(r.faces[0].normal, r.faces[1].normal), -0.999);
    size_t drawn = 0;
    for (const ReadFace& face : r.faces)
        for (const ReadLoop& loop : face.loops)
            drawn += loop.points.empty() ? 0 : 1;
    EXPECT_EQ(drawn, 1u);
}

TEST(HostSoup, UnusableTrianglesAreDroppedAndCounted) {
    constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    struct Case {
        const char* name;
        Vec3 a, b, c;
        size_t SoupReport::*counter;
    };
    const Case cases[] = {
        {"not a number", {kNan, 0, 0}, {1, 0, 0}, {0, 1, 0}, &SoupReport::invalid},
        {"infinite", {0, 0, 0}, {1, kInfinity, 0}, {0, 1, 0}, &SoupReport::invalid},
        {"beyond the grid", {0, 0, 0}, {1e9, 0, 0}, {0, 1, 0}, &SoupReport::invalid},
        {"two equal corners", {5, 0, 0}, {5, 0, 0}, {5, 1, 0}, &SoupReport::degenerate},
        {"on a line", {5, 0, 0}, {6, 1, 0}, {7, 2, 0}, &SoupReport::degenerate},
        {"the same again, turned", {1, 0, 0}, {0, 1, 0}, {0, 0, 0}, &SoupReport::duplicate},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        Soup soup;
        soup.triangle({0, 0, 0}, {1, 0, 0}, {0, 1, 0});
        soup.triangle(c.a, c.b, c.c);
        const Result r = buildSoup(soup);
        EXPECT_EQ(r.report.*c.counter, 1u);
        EXPECT_EQ(r.report.triangles, 1u);
        EXPECT_EQ(r.faces.size(), 1u);
    }
    Soup soup;
    soup.triangle({0, 0, 0}, {1, 0, 0}, {0, 1, 0});
    soup.indices.insert(soup.indices.end(), {0, 1, 77});
    EXPECT_EQ(buildSoup(soup).report.invalid, 1u) << "index out of range";
    soup.indices.resize(3);
    soup.materials = {9};
    EXPECT_EQ(buildSoup(soup).report.invalid, 1u) << "unknown material";
    EXPECT_TRUE(buildSoup(Soup{}).faces.empty());
}

} // namespace
} // namespace ogl::test
