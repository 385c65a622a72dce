// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host/sample/flat_rooms.h"
#include "host/sample/furniture.h"

#include <algorithm>
#include <numbers>

namespace ogl::host {

namespace {

constexpr double kModule = 0.6;
constexpr double kTop = 0.9;
constexpr double kRun = 5 * kModule; ///< length of the worktop
const PlanBox kSink{1.3, 0.12, 1.75, 0.5};

/// The worktop with a hole for the sink.
void addWorktop(const FlatSite& flat, const Frame& frame) {
    const ObjectId object = flat.builder.addObject("worktop");
    constexpr double kThick = 0.04;
    constexpr double kDepth = 0.62;
    const auto place = [&](std::vector<Vec3> loop) {
        for (Vec3& p : loop)
            p = frame.point(p);
        return loop;
    };
    Polygon polygon;
    polygon.material = flat.paints.worktop.material;
    polygon.outline =
        place({{0, 0, kTop}, {kRun, 0, kTop}, {kRun, kDepth, kTop}, {0, kDepth, kTop}});
    polygon.holes = {place(roundedRectangle(kSink.x0, kSink.y0, kSink.x1, kSink.y1, 0.05, kTop))};
    flat.builder.addPolygon(object, polygon);
    polygon.holes.clear();
    const double low = kTop - kThick;
    polygon.outline =
        place({{0, kDepth, low}, {0, kDepth, kTop}, {kRun, kDepth, kTop}, {kRun, kDepth, low}});
    flat.builder.addPolygon(object, polygon);
    polygon.outline = place({{0, 0, low}, {0, 0, kTop}, {0, kDepth, kTop}, {0, kDepth, low}});
    flat.builder.addPolygon(object, polygon);
    polygon.outline =
        place({{kRun, kDepth, low}, {kRun, kDepth, kTop}, {kRun, 0, kTop}, {kRun, 0, low}});
    flat.builder.addPolygon(object, polygon);
    polygon.outline = place({{0, 0, low}, {0, kDepth, low}, {kRun, kDepth, low}, {kRun, 0, low}});
    flat.builder.addPolygon(object, polygon);
}

void addSinkAndTap(const FlatSite& flat, const Frame& frame) {
    MeshBrush brush(frame);
    brush.setPaint(flat.paints.steel);
    const auto ring = [](double inset, double z) {
        return roundedRectangle(kSink.x0 + inset, kSink.y0 + inset, kSink.x1 - inset,
                                kSink.y1 - inset, 0.05, z);
    };
    brush.loft({ring(0.0, kTop - 0.19), ring(0.0, kTop + 0.002), ring(0.012, kTop + 0.002),
                ring(0.016, kTop - 0.15), ring(0.035, kTop - 0.17)});
    brush.cylinder({(kSink.x0 + kSink.x1) * 0.5, (kSink.y0 + kSink.y1) * 0.5, kTop - 0.17}, 0.035,
                   0.003, 24);
    std::vector<Vec3> spout{{0, 0, kTop}, {0, 0, kTop + 0.24}};
    for (int i = 1; i <= 12; ++i) {
        const double a = std::numbers::pi * i / 12;
        spout.push_back({0.0, 0.09 - 0.09 * std::cos(a), kTop + 0.24 + 0.09 * std::sin(a)});
    }
    brush.setFrame(frame.within({(kSink.x0 + kSink.x1) * 0.5, 0.07, 0.0}));
    brush.tube(spout, 0.013, 16);
    brush.tube({{0.012, 0, kTop + 0.08}, {0.07, 0, kTop + 0.1}}, 0.007, 10);
    flat.place("sink", brush);
}

void addBaseCabinets(const FlatSite& flat, const Frame& frame) {
    const FlatPaints& p = flat.paints;
    MeshBrush brush(frame);
    brush.setPaint(p.greyLacquer);
    brush.box({0, 0, 0}, {kRun, 0.54, 0.1});
    brush.setPaint(p.whiteLacquer);
    // The carcass leaves the sink free.
    brush.box({0, 0, 0.1}, {kRun, 0.57, 0.66});
    brush.box({0, 0.52, 0.66}, {kRun, 0.57, kTop - 0.04});
    const auto module = [&](int i) { return frame.within({i * kModule, 0.57, 0.0}); };
    addDrawers(brush, p.whiteLacquer, p.steel, module(0), kModule, 3, 0.105, 0.855);
    addDrawers(brush, p.whiteLacquer, p.steel, module(1), kModule, 2, 0.105, 0.855);
    addFronts(brush, p.whiteLacquer, p.steel, module(2), kModule, 1, 0.105, 0.855);
    addDrawers(brush, p.whiteLacquer, p.steel, module(4), kModule, 3, 0.105, 0.855);
    // The oven.
    brush.setFrame(module(3));
    brush.setPaint(p.black);
    brush.box({0.002, 0, 0.26}, {kModule - 0.002, 0.02, 0.72});
    brush.box({0.07, 0.02, 0.32}, {kModule - 0.07, 0.024, 0.6});
    brush.setPaint(p.steel);
    brush.box({0.002, 0, 0.724}, {kModule - 0.002, 0.02, 0.855});
    brush.box({0.002, 0, 0.105}, {kModule - 0.002, 0.02, 0.256});
    brush.tube({{0.06, 0.02, 0.67},
                {0.06, 0.06, 0.67},
                {kModule - 0.06, 0.06, 0.67},
                {kModule - 0.06, 0.02, 0.67}},
               0.009, 10);
    for (int i = 0; i < 4; ++i) {
        brush.setFrame(module(3).within({0.12 + 0.12 * i, 0.02, 0.79}).tilted(-90.0));
        brush.cylinder({}, 0.02, 0.02, 20);
    }
    flat.place("base cabinets", brush);
}

void addHobAndHood(const FlatSite& flat, const Frame& frame) {
    const FlatPaints& p = flat.paints;
    const double x = 3 * kModule;
    MeshBrush brush(frame);
    brush.setPaint(p.black);
    brush.box({x + 0.01, 0.06, kTop}, {x + 0.59, 0.57, kTop + 0.006});
    for (const auto& [dx, dy, r] : {Vec3{0.17, 0.19, 0.09}, Vec3{0.43, 0.19, 0.07},
                                    Vec3{0.17, 0.42, 0.07}, Vec3{0.43, 0.42, 0.1}})
        brush.cylinder({x + dx, dy + 0.01, kTop + 0.006}, r, 0.001, 32);
    brush.setPaint(p.steel);
    // A tapering hood under a chimney.
    const auto ring = [x](double inset, double front, double z) {
        return std::vector<Vec3>{{x + inset, 0.0, z},
                                 {x + kModule - inset, 0.0, z},
                                 {x + kModule - inset, front, z},
                                 {x + inset, front, z}};
    };
    brush.loft({ring(0.0, 0.5, 1.6), ring(0.0, 0.5, 1.65), ring(0.17, 0.26, 1.85),
                ring(0.17, 0.26, kCeilingHeight)},
               5.0);
    // A pot on the hob.
    brush.setPaint(p.steel);
    brush.lathe({x + 0.43, 0.43, kTop + 0.007},
                {{0.0, 0.0},
                 {0.1, 0.0},
                 {0.105, 0.01},
                 {0.105, 0.12},
                 {0.1, 0.13},
                 {0.02, 0.15},
                 {0.012, 0.155},
                 {0.012, 0.175},
                 {0.0, 0.18}},
                32);
    flat.place("hob and hood", brush);
}

void addUpperCabinets(const FlatSite& flat, const Frame& frame) {
    const FlatPaints& p = flat.paints;
    MeshBrush brush;
    for (const auto& [start, columns] : {std::pair{0.0, 3}, std::pair{4 * kModule, 1}}) {
        const Frame part = frame.within({start, 0.0, 0.0});
        brush.setFrame(part);
        brush.setPaint(p.whiteLacquer);
        brush.box({0, 0, 1.45}, {columns * kModule, 0.33, 2.15});
        addFronts(brush, p.whiteLacquer, p.steel, part.within({0, 0.33, 0}), columns * kModule,
                  columns, 1.45, 2.15);
    }
    brush.setFrame(frame);
    brush.setPaint(p.wallTiles);
    brush.box({0, 0, kTop}, {kRun, 0.008, 1.45});
    flat.place("upper cabinets", brush);
}

void addFridge(const FlatSite& flat, const Frame& frame) {
    const FlatPaints& p = flat.paints;
    MeshBrush brush(frame);
    brush.setPaint(p.steel);
    constexpr double kWidth = 0.66;
    brush.box({0, 0, 0.04}, {kWidth, 0.6, 2.0});
    brush.box({0.003, 0.605, 0.05}, {kWidth - 0.003, 0.64, 0.72});
    brush.box({0.003, 0.605, 0.73}, {kWidth - 0.003, 0.64, 1.995});
    for (const auto& [low, high] : {std::pair{0.42, 0.68}, std::pair{0.78, 1.3}})
        brush.tube({{0.06, 0.64, low}, {0.06, 0.68, low}, {0.06, 0.68, high}, {0.06, 0.64, high}},
                   0.009, 10);
    flat.place("fridge", brush);
}

void addWorktopThings(const FlatSite& flat, const Frame& frame) {
    const FlatPaints& p = flat.paints;
    MeshBrush brush(frame);
    brush.setPaint(p.oak);
    brush.setFrame(frame.within({0.55, 0.3, kTop}, 12.0));
    brush.extrude(roundedRectangle(-0.2, -0.13, 0.2, 0.13, 0.03, 0.0), {0, 0, 0.02}, 40.0);
    brush.setPaint(p.ceramic);
    for (int i = 0; i < 3; ++i)
        brush.lathe(Vec3{-0.36 + 0.13 * i, -0.14, 0.0},
                    {{0.0, 0.0},
                     {0.05, 0.0},
                     {0.055, 0.02},
                     {0.055, 0.12},
                     {0.045, 0.14},
                     {0.015, 0.15},
                     {0.015, 0.165},
                     {0.0, 0.17}},
                    28);
    flat.place("jars and board", brush);
}

} // namespace

void addKitchen(const FlatSite& flat) {
    // Along the wall to the study; x runs to the west, y into the room.
    const Frame frame = Frame::at({kLiving.x0 + 0.67 + kRun, kLiving.y1, 0.0}, 180.0);
    addBaseCabinets(flat, frame);
    addWorktop(flat, frame);
    addSinkAndTap(flat, frame);
    addHobAndHood(flat, frame);
    addUpperCabinets(flat, frame);
    addWorktopThings(flat, frame);
    addFridge(flat, frame.within({kRun + 0.005, 0.0, 0.0}));
}

void addDining(const FlatSite& flat) {
    const FlatPaints& p = flat.paints;
    const Vec3 middle{2.2, 2.2, 0.0};
    MeshBrush brush(Frame::at(middle));
    brush.setPaint(p.oak);
    brush.extrude(roundedRectangle(-0.95, -0.46, 0.95, 0.46, 0.08, 0.715), {0, 0, 0.035}, 40.0);
    for (const double x : {-1.0, 1.0})
        for (const double y : {-1.0, 1.0})
            brush.tube({{x * 0.82, y * 0.35, 0.0}, {x * 0.7, y * 0.28, 0.715}}, 0.026, 16);
    flat.place("dining table", brush);

    for (int i = 0; i < 3; ++i) {
        addChair(brush, p,
                 Frame::at(middle + Vec3{-0.6 + 0.6 * i, -0.58, 0.0}, i == 1 ? 6.0 : 0.0));
        flat.place("chair " + std::to_string(2 * i + 1), brush);
        addChair(brush, p,
                 Frame::at(middle + Vec3{-0.6 + 0.6 * i, 0.58, 0.0}, 180.0 + (i == 2 ? 9.0 : 0.0)));
        flat.place("chair " + std::to_string(2 * i + 2), brush);
    }
    for (const double x : {-0.5, 0.5}) {
        addPendant(brush, p, Frame::at(middle + Vec3{x, 0, 0}), 1.55, 0.2);
        flat.place("pendant", brush);
    }
    brush.setFrame(Frame::at(middle + Vec3{0.0, 0.0, 0.75}));
    brush.setPaint(p.ceramic);
    brush.lathe({},
                {{0.0, 0.0},
                 {0.06, 0.0},
                 {0.07, 0.012},
                 {0.13, 0.05},
                 {0.165, 0.09},
                 {0.157, 0.09},
                 {0.12, 0.055},
                 {0.06, 0.022},
                 {0.0, 0.02}},
                40);
    brush.setPaint(p.fruit);
    for (int i = 0; i < 5; ++i) {
        const double a = 2.0 * std::numbers::pi * i / 5.0;
        brush.sphere({0.062 * std::cos(a), 0.062 * std::sin(a), 0.078}, 0.038, 16);
    }
    flat.place("fruit bowl", brush);
    addCurtains(brush, p, Frame::at({2.2, 0.3, 0.0}), 2.0, 2.4);
    flat.place("dining curtains", brush);
}

} // namespace ogl::host
