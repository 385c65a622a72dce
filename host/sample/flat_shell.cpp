// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host/sample/flat_rooms.h"

#include <algorithm>
#include <numbers>

namespace ogl::host {

namespace {

constexpr double kPlinth = -0.35;
constexpr double kThreshold = 0.0;

WallOpening southWindow(double low, double high, double sill) {
    return {true, 0.0, 0.3, low, high, sill, 2.25};
}
WallOpening northWindow(double low, double high, double sill, double head) {
    return {true, 8.7, 9.0, low, high, sill, head};
}
WallOpening westWindow(double low, double high, double sill) {
    return {false, 0.0, 0.3, low, high, sill, 2.25};
}
WallOpening eastWindow(double low, double high, double sill) {
    return {false, 12.3, 12.6, low, high, sill, 2.25};
}

struct Openings {
    std::vector<WallOpening> windows;
    std::vector<WallOpening> doors; ///< inside
    WallOpening entrance;

    std::vector<WallOpening> all() const {
        std::vector<WallOpening> result = windows;
        result.insert(result.end(), doors.begin(), doors.end());
        result.push_back(entrance);
        return result;
    }
};

Openings flatOpenings() {
    Openings o;
    o.windows = {southWindow(1.2, 3.2, 0.9),  southWindow(4.6, 7.4, kThreshold),
                 southWindow(9.2, 11.2, 0.5), westWindow(1.4, 3.4, 0.9),
                 westWindow(6.2, 7.8, 0.8),   eastWindow(1.8, 3.4, 0.8),
                 eastWindow(7.2, 8.3, 1.25),  northWindow(1.2, 3.0, 0.8, 2.25)};
    o.doors = {{true, 5.2, 5.32, 5.3, 6.6, 0.0, 2.15},
               {false, 8.0, 8.12, 3.9, 4.75, 0.0, 2.1},
               {false, 8.0, 8.12, 6.4, 7.2, 0.0, 2.1},
               {false, 4.08, 4.2, 6.2, 7.05, 0.0, 2.1}};
    o.entrance = northWindow(5.5, 6.5, 0.0, 2.15);
    return o;
}

/// The faces of a box's walls seen from inside, or from outside.
std::vector<WallFace> wallFaces(const PlanBox& b, const Paint& paint, bool fromInside) {
    const Vec2 corners[4] = {{b.x0, b.y0}, {b.x1, b.y0}, {b.x1, b.y1}, {b.x0, b.y1}};
    std::vector<WallFace> faces;
    for (size_t i = 0; i < 4; ++i) {
        const Vec2 from = corners[i];
        const Vec2 to = corners[(i + 1) % 4];
        faces.push_back(
            {fromInside ? from : to, fromInside ? to : from, 0.0, kCeilingHeight, paint});
    }
    return faces;
}

std::vector<Vec3> level(const PlanBox& b, double z) {
    return {{b.x0, b.y0, z}, {b.x1, b.y0, z}, {b.x1, b.y1, z}, {b.x0, b.y1, z}};
}

struct Room {
    const char* name;
    PlanBox box;
    Paint floor;
    Paint walls;
    bool skirting;
};

std::vector<Room> flatRooms(const FlatPaints& p) {
    return {{"living", kLiving, p.planks, p.plaster, true},
            {"bedroom", kBedroom, p.planks, p.plaster, true},
            {"hall", kHall, p.stone, p.plaster, true},
            {"bath", kBath, p.stone, p.wallTiles, false},
            {"study", kStudy, p.planks, p.plaster, true}};
}

void addWalls(const FlatSite& flat, const std::vector<Room>& rooms, const Openings& openings) {
    const auto all = openings.all();
    const ObjectId walls = flat.builder.addObject("walls");
    for (WallFace face : wallFaces(kOutside, flat.paints.render, false)) {
        face.base = kPlinth;
        addWallFace(flat.builder, walls, face, all);
    }
    for (const Room& room : rooms)
        for (const WallFace& face : wallFaces(room.box, room.walls, true))
            addWallFace(flat.builder, walls, face, all);
    for (const WallOpening& opening : all)
        addReveals(flat.builder, walls, opening, flat.paints.plaster);
    Polygon top;
    top.material = flat.paints.cut.material;
    top.outline = level(kOutside, kCeilingHeight);
    for (const Room& room : rooms)
        top.holes.push_back(level(room.box, kCeilingHeight));
    top.textureMap = boxMap(flat.paints.cut, {0, 0, 1});
    flat.builder.addPolygon(walls, top);

    MeshBrush boards;
    boards.setPaint(flat.paints.whiteLacquer);
    for (const Room& room : rooms)
        if (room.skirting)
            for (const WallFace& face : wallFaces(room.box, room.walls, true))
                addSkirting(boards, face, all);
    flat.place("skirting boards", boards);
}

void addFloors(const FlatSite& flat, const std::vector<Room>& rooms, const Openings& openings) {
    for (const Room& room : rooms) {
        const ObjectId floor = flat.builder.addObject(std::string(room.name) + " floor");
        addLevel(flat.builder, floor, room.box, 0.0, room.floor);
    }
    const ObjectId sills = flat.builder.addObject("thresholds");
    for (const WallOpening& o : openings.all()) {
        if (o.sill > 0.0)
            continue;
        const Vec3 a = o.point(o.low, o.nearFace, 0.0);
        const Vec3 b = o.point(o.high, o.farFace, 0.0);
        addLevel(flat.builder, sills,
                 {std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x), std::max(a.y, b.y)},
                 0.0, flat.paints.oak);
    }
}

/// A frame along the wall at the middle of an opening: x along the wall, y out of the building.
Frame openingFrame(const WallOpening& o, Vec3 outwards) {
    Frame frame;
    frame.origin = o.middle(0.0);
    frame.y = outwards;
    frame.x = cross(outwards, {0.0, 0.0, 1.0});
    return frame;
}

Vec3 outwardsOf(const WallOpening& o) {
    const Vec3 middle = o.middle(0.0);
    if (o.alongX)
        return {0.0, middle.y < 4.5 ? -1.0 : 1.0, 0.0};
    return {middle.x < 6.3 ? -1.0 : 1.0, 0.0, 0.0};
}

void addWindowFrame(MeshBrush& brush, const WallOpening& o, double halfWidth, int panes) {
    constexpr double kBar = 0.06;
    constexpr double kDepth = 0.035;
    brush.box({-halfWidth, -kDepth, o.sill}, {halfWidth, kDepth, o.sill + kBar});
    brush.box({-halfWidth, -kDepth, o.head - kBar}, {halfWidth, kDepth, o.head});
    for (int i = 0; i <= panes; ++i) {
        const double x = -halfWidth + 2.0 * halfWidth * i / panes;
        const double x0 = i == 0 ? x : (i == panes ? x - kBar : x - kBar * 0.5);
        brush.box({x0, -kDepth, o.sill + kBar}, {x0 + kBar, kDepth, o.head - kBar});
    }
}

/// The pane is two faces, the inner one first: the renderers take every second one of such faces
/// as the portal through which the sky lights the room.
void addPane(const FlatSite& flat, const std::string& name, const Frame& frame,
             const WallOpening& o, double halfWidth) {
    ObjectOptions options;
    options.kind = ObjectKind::Window;
    options.faceFlags = kFaceNotRayTraced | kFaceTwoSided;
    const ObjectId pane = flat.builder.addObject(name, options);
    constexpr double kHalfThickness = 0.006;
    for (const double y : {-kHalfThickness, kHalfThickness}) {
        Polygon polygon;
        polygon.material = flat.paints.glass.material;
        polygon.edges = EdgeLook::Hidden;
        for (const auto& [x, z] : {std::pair{-halfWidth, o.sill}, std::pair{halfWidth, o.sill},
                                   std::pair{halfWidth, o.head}, std::pair{-halfWidth, o.head}})
            polygon.outline.push_back(frame.point({x, y, z}));
        const Vec3 n =
            cross(polygon.outline[1] - polygon.outline[0], polygon.outline[2] - polygon.outline[0]);
        if ((dot(n, frame.y) > 0.0) != (y > 0.0))
            std::ranges::reverse(polygon.outline);
        flat.builder.addPolygon(pane, polygon);
    }
}

void addWindows(const FlatSite& flat, const Openings& openings) {
    int number = 0;
    for (const WallOpening& o : openings.windows) {
        const std::string name = "window " + std::to_string(++number);
        const Frame frame = openingFrame(o, outwardsOf(o));
        const double halfWidth = (o.high - o.low) * 0.5;
        const int panes = halfWidth > 1.2 ? 3 : (halfWidth > 0.6 ? 2 : 1);
        MeshBrush brush(frame);
        brush.setPaint(flat.paints.whiteLacquer);
        addWindowFrame(brush, o, halfWidth, panes);
        if (o.sill > 0.0) {
            brush.box({-halfWidth - 0.04, -0.22, o.sill - 0.005},
                      {halfWidth + 0.04, -0.035, o.sill + 0.02});
            brush.setPaint(flat.paints.steel);
            brush.box({-halfWidth, 0.035, o.sill - 0.001}, {halfWidth, 0.2, o.sill + 0.012});
        }
        brush.setPaint(flat.paints.steel);
        const double lever = o.sill + 0.95 < o.head - 0.2 ? o.sill + 0.95 : (o.sill + o.head) * 0.5;
        const double x = panes > 1 ? -halfWidth + 2.0 * halfWidth / panes : halfWidth - 0.03;
        brush.tube({{x, -0.035, lever}, {x, -0.06, lever}, {x, -0.06, lever - 0.11}}, 0.008, 10);
        flat.place(name, brush);
        addPane(flat, name + " glass", frame, o, halfWidth - 0.05);
    }
}

void addDoorLining(MeshBrush& brush, const WallOpening& o, double halfWidth, double halfWall) {
    constexpr double kLining = 0.03;
    constexpr double kCasing = 0.06;
    brush.box({-halfWidth, -halfWall, 0.0}, {-halfWidth + kLining, halfWall, o.head - kLining});
    brush.box({halfWidth - kLining, -halfWall, 0.0}, {halfWidth, halfWall, o.head - kLining});
    brush.box({-halfWidth, -halfWall, o.head - kLining}, {halfWidth, halfWall, o.head});
    for (const double side : {-1.0, 1.0}) {
        const double y0 = side < 0.0 ? -halfWall - 0.012 : halfWall;
        const double y1 = y0 + 0.012;
        brush.box({-halfWidth - kCasing, y0, 0.0}, {-halfWidth, y1, o.head + kCasing});
        brush.box({halfWidth, y0, 0.0}, {halfWidth + kCasing, y1, o.head + kCasing});
        brush.box({-halfWidth, y0, o.head}, {halfWidth, y1, o.head + kCasing});
    }
}

/// A leaf of `width` from its hinge at the origin along x, with levers on both sides.
void addLeafAndLevers(MeshBrush& brush, const FlatPaints& paints, const Paint& paint, double width,
                      double head) {
    brush.setPaint(paint);
    brush.box({0.0, -0.02, 0.008}, {width, 0.02, head});
    brush.setPaint(paints.steel);
    const double x = width - 0.06;
    for (const double side : {-1.0, 1.0}) {
        brush.tube(
            {{x, side * 0.02, 1.05}, {x, side * 0.065, 1.05}, {x - 0.12, side * 0.065, 1.05}},
            0.009, 12);
        const double y = side < 0.0 ? -0.024 : 0.02;
        brush.box({x - 0.02, y, 0.93}, {x + 0.02, y + 0.004, 1.1});
    }
}

void addDoors(const FlatSite& flat, const Openings& openings) {
    constexpr double kLining = 0.03;
    int number = 0;
    // The wide passage to the hall has no leaf.
    const double openDegrees[] = {-1.0, 78.0, -1.0, 64.0};
    for (const WallOpening& o : openings.doors) {
        const std::string name = "door " + std::to_string(number + 1);
        const double halfWidth = (o.high - o.low) * 0.5;
        const double halfWall = std::fabs(o.farFace - o.nearFace) * 0.5;
        const Frame frame = openingFrame(o, o.alongX ? Vec3{0.0, 1.0, 0.0} : Vec3{1.0, 0.0, 0.0});
        MeshBrush brush(frame);
        brush.setPaint(flat.paints.whiteLacquer);
        addDoorLining(brush, o, halfWidth, halfWall);
        const bool isBath = number == 2;
        if (const double degrees = openDegrees[number]; degrees > 0.0 || isBath) {
            const double angle = isBath ? 0.0 : degrees;
            brush.setFrame(frame.within({-halfWidth + kLining, halfWall - 0.02, 0.0}, angle));
            addLeafAndLevers(brush, flat.paints, flat.paints.whiteLacquer,
                             2.0 * (halfWidth - kLining) - 0.004, o.head - kLining - 0.004);
        }
        flat.place(name, brush);
        ++number;
    }
    const WallOpening& o = openings.entrance;
    MeshBrush brush;
    const Frame frame = openingFrame(o, {0.0, 1.0, 0.0});
    brush.setFrame(frame);
    brush.setPaint(flat.paints.greyLacquer);
    addDoorLining(brush, o, (o.high - o.low) * 0.5, 0.15);
    brush.setFrame(frame.within({-0.47, 0.02, 0.0}));
    addLeafAndLevers(brush, flat.paints, flat.paints.walnut, 0.935, 2.115);
    flat.place("entrance door", brush);
}

} // namespace

ObjectId addShell(const FlatSite& flat) {
    const Openings openings = flatOpenings();
    const auto rooms = flatRooms(flat.paints);
    addWalls(flat, rooms, openings);
    addFloors(flat, rooms, openings);
    addWindows(flat, openings);
    addDoors(flat, openings);
    const ObjectId roof = flat.builder.addObject("roof");
    MeshBrush brush;
    brush.setPaint(flat.paints.ceiling);
    constexpr double kOverhang = 0.35;
    brush.box({kOutside.x0 - kOverhang, kOutside.y0 - kOverhang, kCeilingHeight},
              {kOutside.x1 + kOverhang, kOutside.y1 + kOverhang, kCeilingHeight + 0.32});
    brush.addTo(flat.builder, roof);
    return roof;
}

} // namespace ogl::host
