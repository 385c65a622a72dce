// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host/polygon_face.h"

#include "host/polygon_tessellator.h"

#include <algorithm>

namespace ogl::host {

namespace {

constexpr double kPlanarTolerance = 0.001;

/// `points` on the grid without repetitions; empty when fewer than three are left or one is off
/// the grid.
std::vector<GridPoint> cleanLoop(const std::vector<Vec3>& points, const LoopGrid& grid) {
    std::vector<GridPoint> loop;
    for (const Vec3& p : points) {
        if (!grid.holds(p))
            return {};
        const GridPoint g = grid.round(p);
        if (loop.empty() || !(loop.back() == g))
            loop.push_back(g);
    }
    while (loop.size() > 1 && loop.front() == loop.back())
        loop.pop_back();
    if (loop.size() < 3)
        loop.clear();
    return loop;
}

std::vector<Vec3> positionsOf(const std::vector<GridPoint>& loop, const LoopGrid& grid) {
    std::vector<Vec3> positions;
    positions.reserve(loop.size());
    for (const GridPoint& p : loop)
        positions.push_back(grid.position(p));
    return positions;
}

bool isPlanar(const std::vector<Vec3>& loop, Vec3 normal) {
    return std::ranges::all_of(
        loop, [&](Vec3 p) { return std::fabs(dot(p - loop[0], normal)) <= kPlanarTolerance; });
}

std::vector<Vec2> mapTexture(const std::vector<Vec3>& points, const TextureMap& map) {
    std::vector<Vec2> texCoords;
    texCoords.reserve(points.size());
    for (const Vec3& p : points)
        texCoords.push_back({dot(p - map.origin, map.uAxis), dot(p - map.origin, map.vAxis)});
    return texCoords;
}

} // namespace

std::optional<NewFace> makePolygonFace(const Polygon& polygon, const LoopGrid& grid) {
    std::vector<GridPoint> outline = cleanLoop(polygon.outline, grid);
    if (outline.empty())
        return std::nullopt;
    std::vector<std::vector<Vec3>> loops{positionsOf(outline, grid)};
    const Vec3 area = areaVector(loops[0]);
    const Vec3 normal = normalized(area);
    // An area thinner than the grid is a line.
    if (length(area) <= grid.step() * grid.step() || !isPlanar(loops[0], normal))
        return std::nullopt;

    NewFace face;
    face.material = polygon.material;
    face.flags = polygon.faceFlags;
    face.outward = normal;
    const bool hidden = polygon.edges == EdgeLook::Hidden;
    face.loops.push_back({std::move(outline), true, hidden});
    for (const auto& points : polygon.holes) {
        std::vector<GridPoint> hole = cleanLoop(points, grid);
        if (hole.empty())
            continue;
        if (dot(areaVector(positionsOf(hole, grid)), normal) > 0.0)
            std::ranges::reverse(hole);
        loops.push_back(positionsOf(hole, grid));
        face.loops.push_back({std::move(hole), true, hidden});
    }

    const std::vector<Vec3> triangles = tessellate(loops, normal);
    if (triangles.empty())
        return std::nullopt;
    face.corners.reserve(triangles.size());
    for (const Vec3& p : triangles)
        face.corners.push_back(grid.round(p));
    if (polygon.textureMap)
        face.texCoords = mapTexture(triangles, *polygon.textureMap);
    return face;
}

} // namespace ogl::host
