// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host/sample/wall_kit.h"

#include <algorithm>

namespace ogl::host {

namespace {

/// An opening as a wall's face sees it: distances from the face's start.
struct FaceHole {
    double start;
    double end;
    double sill;
    double head;
};

std::vector<FaceHole> holesIn(const WallFace& face, const std::vector<WallOpening>& openings) {
    constexpr double kClose = 1e-6;
    const bool alongX = std::fabs(face.from.y - face.to.y) < kClose;
    const double across = alongX ? face.from.y : face.from.x;
    const double begin = alongX ? face.from.x : face.from.y;
    const double end = alongX ? face.to.x : face.to.y;
    std::vector<FaceHole> holes;
    for (const WallOpening& o : openings) {
        const bool inPlane = o.alongX == alongX && (std::fabs(o.nearFace - across) < kClose ||
                                                    std::fabs(o.farFace - across) < kClose);
        if (!inPlane || o.low < std::min(begin, end) || o.high > std::max(begin, end))
            continue;
        const double a = std::fabs(o.low - begin);
        const double b = std::fabs(o.high - begin);
        holes.push_back({std::min(a, b), std::max(a, b), o.sill, o.head});
    }
    std::ranges::sort(holes, {}, &FaceHole::start);
    return holes;
}

struct FaceAxes {
    Vec3 start;
    Vec3 along;
    double size;
    Vec3 at(double distance, double z) const { return start + along * distance + Vec3{0, 0, z}; }
};

FaceAxes axesOf(const WallFace& face) {
    const Vec3 from{face.from.x, face.from.y, 0.0};
    const Vec3 to{face.to.x, face.to.y, 0.0};
    return {from, normalized(to - from), length(to - from)};
}

} // namespace

Vec3 WallOpening::middle(double z) const {
    return point((low + high) * 0.5, (nearFace + farFace) * 0.5, z);
}

// Seen from the left of from -> to, the start is on the right:
//
//     end, top --------------- start, top
//        |      +-------+        |
//        |      | hole  |   +--+ |
//     end ------+-------+---|  |-start
void addWallFace(SceneBuilder& builder, ObjectId object, const WallFace& face,
                 const std::vector<WallOpening>& openings) {
    const FaceAxes axes = axesOf(face);
    Polygon polygon;
    polygon.material = face.paint.material;
    // Along the floor from the end to the start, up and around every door.
    auto holes = holesIn(face, openings);
    polygon.outline.push_back(axes.at(axes.size, face.base));
    for (auto hole = holes.rbegin(); hole != holes.rend(); ++hole) {
        if (hole->sill > face.base) {
            polygon.holes.push_back({axes.at(hole->start, hole->sill),
                                     axes.at(hole->end, hole->sill), axes.at(hole->end, hole->head),
                                     axes.at(hole->start, hole->head)});
            continue;
        }
        for (const auto& [d, z] :
             {std::pair{hole->end, face.base}, std::pair{hole->end, hole->head},
              std::pair{hole->start, hole->head}, std::pair{hole->start, face.base}})
            polygon.outline.push_back(axes.at(d, z));
    }
    polygon.outline.push_back(axes.at(0.0, face.base));
    polygon.outline.push_back(axes.at(0.0, face.top));
    polygon.outline.push_back(axes.at(axes.size, face.top));
    const Vec3 normal = cross({0.0, 0.0, 1.0}, axes.along);
    if (face.paint.textureWidth > 0.0)
        polygon.textureMap = boxMap(face.paint, normal);
    builder.addPolygon(object, polygon);
}

void addReveals(SceneBuilder& builder, ObjectId object, const WallOpening& o, const Paint& paint) {
    const double n = std::min(o.nearFace, o.farFace);
    const double f = std::max(o.nearFace, o.farFace);
    const auto quad = [&](Vec3 a, Vec3 b, Vec3 c, Vec3 d, Vec3 seenFrom) {
        Polygon polygon;
        polygon.material = paint.material;
        polygon.outline = {a, b, c, d};
        if (dot(cross(b - a, c - a), seenFrom - a) < 0.0)
            std::ranges::reverse(polygon.outline);
        builder.addPolygon(object, polygon);
    };
    const Vec3 inside = o.middle((o.sill + o.head) * 0.5);
    quad(o.point(o.low, n, o.sill), o.point(o.low, f, o.sill), o.point(o.low, f, o.head),
         o.point(o.low, n, o.head), inside);
    quad(o.point(o.high, n, o.sill), o.point(o.high, f, o.sill), o.point(o.high, f, o.head),
         o.point(o.high, n, o.head), inside);
    quad(o.point(o.low, n, o.head), o.point(o.high, n, o.head), o.point(o.high, f, o.head),
         o.point(o.low, f, o.head), inside);
    if (o.sill > 0.0)
        quad(o.point(o.low, n, o.sill), o.point(o.high, n, o.sill), o.point(o.high, f, o.sill),
             o.point(o.low, f, o.sill), inside);
}

void addLevel(SceneBuilder& builder, ObjectId object, const PlanBox& box, double z,
              const Paint& paint, bool fromBelow) {
    Polygon polygon;
    polygon.material = paint.material;
    polygon.outline = {
        {box.x0, box.y0, z}, {box.x1, box.y0, z}, {box.x1, box.y1, z}, {box.x0, box.y1, z}};
    if (fromBelow)
        std::ranges::reverse(polygon.outline);
    if (paint.textureWidth > 0.0)
        polygon.textureMap = boxMap(paint, {0.0, 0.0, 1.0});
    builder.addPolygon(object, polygon);
}

void addSkirting(MeshBrush& brush, const WallFace& face, const std::vector<WallOpening>& openings) {
    constexpr double kThickness = 0.014;
    constexpr double kHeight = 0.07;
    const FaceAxes axes = axesOf(face);
    const Vec3 out = cross({0.0, 0.0, 1.0}, axes.along);
    brush.setFrame({axes.start, axes.along, out, {0.0, 0.0, 1.0}});
    double from = kThickness;
    const auto board = [&](double to) {
        if (to > from + kThickness)
            brush.box({from, 0.0, 0.0}, {to, kThickness, kHeight});
    };
    for (const FaceHole& hole : holesIn(face, openings)) {
        if (hole.sill > 0.0)
            continue;
        constexpr double kLining = 0.06;
        board(hole.start - kLining);
        from = hole.end + kLining;
    }
    board(axes.size - kThickness);
}

} // namespace ogl::host
