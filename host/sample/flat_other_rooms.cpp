// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host/sample/flat_rooms.h"
#include "host/sample/furniture.h"

#include <numbers>

namespace ogl::host {

namespace {

/// An office chair; origin below its column, facing y.
void addOfficeChair(const FlatSite& flat, const Frame& frame) {
    const FlatPaints& p = flat.paints;
    MeshBrush brush(frame);
    brush.setPaint(p.black);
    for (int i = 0; i < 5; ++i) {
        const double a = 2.0 * std::numbers::pi * i / 5.0 + 0.2;
        const Vec3 out{std::cos(a), std::sin(a), 0.0};
        brush.tube({Vec3{0, 0, 0.12}, out * 0.29 + Vec3{0, 0, 0.075}}, 0.018, 10);
        brush.sphere(out * 0.29 + Vec3{0, 0, 0.032}, 0.032, 14);
    }
    brush.setPaint(p.steel);
    brush.cylinder({0, 0, 0.1}, 0.025, 0.32, 20);
    brush.setPaint(p.fabric);
    brush.roundedBox({-0.25, -0.24, 0.42}, {0.25, 0.25, 0.5}, 0.038);
    brush.setFrame(frame.within({0.0, -0.24, 0.56}).tilted(10.0));
    brush.roundedBox({-0.22, -0.04, 0.0}, {0.22, 0.04, 0.5}, 0.038);
    brush.setFrame(frame);
    brush.setPaint(p.black);
    brush.tube({{0, -0.1, 0.43}, {0, -0.27, 0.43}, {0, -0.31, 0.75}}, 0.016, 12);
    for (const double x : {-0.29, 0.29})
        brush.tube({{x * 0.6, 0.0, 0.43}, {x, 0.0, 0.47}, {x, 0.0, 0.66}, {x, 0.2, 0.67}}, 0.014,
                   10);
    flat.place("office chair", brush);
}

void addDesk(const FlatSite& flat, const Frame& frame) {
    const FlatPaints& p = flat.paints;
    MeshBrush brush(frame);
    constexpr double kWidth = 1.7;
    brush.setPaint(p.oak);
    brush.box({0, 0, 0.71}, {kWidth, 0.72, 0.74});
    brush.setPaint(p.whiteLacquer);
    brush.box({0.03, 0.08, 0.0}, {0.45, 0.66, 0.71});
    addDrawers(brush, p.whiteLacquer, p.steel, frame.within({0.03, 0.66, 0}), 0.42, 4, 0.02, 0.7);
    brush.setFrame(frame);
    brush.setPaint(p.black);
    for (const double y : {0.08, 0.64})
        brush.box({kWidth - 0.08, y - 0.02, 0.0}, {kWidth - 0.04, y + 0.02, 0.71});
    // A screen on a foot, a keyboard.
    brush.box({0.75, 0.2, 0.86}, {1.35, 0.22, 1.22});
    brush.box({1.03, 0.19, 0.75}, {1.07, 0.2, 0.95});
    brush.extrude(roundedRectangle(0.93, 0.12, 1.17, 0.3, 0.03, 0.74), {0, 0, 0.01}, 40.0);
    brush.setPaint(p.steel);
    brush.extrude(roundedRectangle(0.83, 0.42, 1.27, 0.55, 0.02, 0.74), {0, 0, 0.015}, 40.0);
    addTableLamp(brush, p, frame.within({0.3, 0.25, 0.74}), 0.26, 0.11);
    flat.place("desk", brush);
}

void addDaybed(const FlatSite& flat, const Frame& frame) {
    const FlatPaints& p = flat.paints;
    MeshBrush brush(frame);
    addLegs(brush, p.walnut, 0.1, 0.08, 1.9, 0.76, 0.18, 0.02);
    brush.setPaint(p.oak);
    brush.box({0, 0, 0.18}, {2.0, 0.84, 0.26});
    brush.setPaint(p.fabric);
    brush.roundedBox({0.02, 0.02, 0.262}, {1.98, 0.82, 0.44}, 0.045);
    for (int i = 0; i < 3; ++i) {
        brush.setPaint(i == 1 ? p.cushion : p.linen);
        brush.setFrame(frame.within({0.36 + 0.64 * i, 0.03, 0.44}).tilted(14.0));
        brush.roundedBox({-0.29, 0.01, 0.01}, {0.29, 0.14, 0.42}, 0.066);
    }
    flat.place("daybed", brush);
}

} // namespace

void addHall(const FlatSite& flat) {
    const FlatPaints& p = flat.paints;
    MeshBrush brush;
    // A cupboard beside the study, a bench under a mirror, coats on hooks.
    const Frame cupboard = Frame::at({4.21, 8.68, 0.0}, -90.0);
    brush.setFrame(cupboard);
    brush.setPaint(p.greyLacquer);
    brush.box({0, 0, 0}, {1.3, 0.55, 2.3});
    addFronts(brush, p.greyLacquer, p.steel, cupboard.within({0, 0.55, 0}), 1.3, 2, 0.05, 2.29);
    flat.place("hall cupboard", brush);

    const Frame bench = Frame::at({7.99, 7.4, 0.0}, 90.0);
    brush.setFrame(bench);
    brush.setPaint(p.oak);
    brush.box({0, 0.02, 0.42}, {1.1, 0.38, 0.46});
    for (const double x : {0.04, 1.02})
        brush.box({x, 0.04, 0.0}, {x + 0.04, 0.36, 0.42});
    brush.box({0.08, 0.05, 0.14}, {1.02, 0.35, 0.16});
    brush.setPaint(p.cushion);
    brush.roundedBox({0.02, 0.03, 0.462}, {1.08, 0.37, 0.52}, 0.025, 2);
    brush.setPaint(p.mirror);
    brush.setFrame(bench.within({0.55, 0.0, 1.5}).tilted(-90.0));
    brush.extrude(roundedRectangle(-0.35, -0.5, 0.35, 0.5, 0.12, 0.001), {0, 0, 0.02}, 40.0);
    brush.setFrame(bench);
    brush.setPaint(p.black);
    for (const double x : {0.3, 0.42})
        brush.roundedBox({x, 0.08, 0.16}, {x + 0.1, 0.34, 0.24}, 0.035, 2);
    flat.place("hall bench", brush);

    brush.setFrame({});
    brush.setPaint(p.rug);
    brush.extrude(roundedRectangle(5.45, 5.75, 6.55, 8.3, 0.04, 0.001), {0, 0, 0.01}, 40.0);
    flat.place("hall runner", brush);
    addPendant(brush, p, Frame::at({6.0, 7.0, 0.0}), 2.1, 0.2);
    flat.place("hall pendant", brush);
}

void addStudy(const FlatSite& flat) {
    const FlatPaints& p = flat.paints;
    addDesk(flat, Frame::at({0.32, 7.85, 0.0}, -90.0));
    addOfficeChair(flat, Frame::at({1.45, 6.9, 0.0}, 80.0));
    addDaybed(flat, Frame::at({0.5, 5.34, 0.0}));
    MeshBrush brush;
    addBookshelf(brush, p, Frame::at({4.06, 7.15, 0.0}, 90.0), 1.45, 2.1, 5);
    flat.place("study bookshelf", brush);
    addPlant(brush, p, Frame::at({3.25, 5.95, 0.0}), 1.2, 12);
    flat.place("study plant", brush);
    brush.setFrame({});
    brush.setPaint(p.rug);
    brush.extrude(ellipse({2.3, 7.2, 0.001}, 0.9, 0.9, 64), {0, 0, 0.012}, 40.0);
    flat.place("study rug", brush);
    addCurtains(brush, p, Frame::at({2.1, 8.7, 0.0}, 180.0), 1.8, 2.4);
    flat.place("study curtains", brush);
}

void addTerraceAndGarden(const FlatSite& flat) {
    const FlatPaints& p = flat.paints;
    MeshBrush brush;
    // Boards across the terrace, and the frame that they lie on.
    constexpr double kBoard = 0.14;
    constexpr double kGap = 0.006;
    constexpr int kBoards = 54;
    brush.setPaint(p.deck);
    for (int board = 0; board < kBoards; ++board) {
        const double x = 0.3 + board * (kBoard + kGap);
        brush.box({x, -2.7, -0.05}, {x + kBoard, -0.01, -0.02});
    }
    brush.setPaint(p.walnut);
    brush.box({0.34, -2.66, -0.34}, {8.22, -0.05, -0.055});
    flat.place("terrace", brush);

    brush.setPaint(p.black);
    for (int i = 0; i < 7; ++i)
        brush.box({0.36 + 1.29 * i, -2.68, -0.05}, {0.4 + 1.29 * i, -2.64, 0.95});
    brush.tube({{0.38, -2.66, 0.96}, {8.12, -2.66, 0.96}}, 0.022, 14);
    for (int i = 1; i < 5; ++i)
        brush.tube({{0.38, -2.66, 0.96 - 0.19 * i}, {8.12, -2.66, 0.96 - 0.19 * i}}, 0.007, 8);
    flat.place("railing", brush);

    const Vec3 table{2.3, -1.4, -0.02};
    brush.setFrame(Frame::at(table));
    brush.setPaint(p.steel);
    brush.lathe({0, 0, 0.7},
                {{0.0, 0.0}, {0.38, 0.0}, {0.4, 0.01}, {0.4, 0.02}, {0.395, 0.025}, {0.0, 0.025}},
                40);
    brush.cylinder({0, 0, 0.02}, 0.03, 0.68, 20);
    brush.lathe({}, {{0.0, 0.0}, {0.24, 0.0}, {0.24, 0.015}, {0.03, 0.03}, {0.0, 0.03}}, 32);
    flat.place("terrace table", brush);
    addChair(brush, p, Frame::at(table + Vec3{-0.62, 0.1, 0.0}, -80.0));
    flat.place("terrace chair 1", brush);
    addChair(brush, p, Frame::at(table + Vec3{0.62, 0.0, 0.0}, 95.0));
    flat.place("terrace chair 2", brush);
    addPlant(brush, p, Frame::at({7.4, -0.9, -0.02}), 1.25, 13);
    flat.place("terrace plant 1", brush);
    addPlant(brush, p, Frame::at({0.95, -0.75, -0.02}, 70.0), 1.0, 11);
    flat.place("terrace plant 2", brush);

    const ObjectId lawn = flat.builder.addObject("lawn");
    addLevel(flat.builder, lawn, {-6.0, -8.0, 18.6, 14.0}, -0.36, p.grass);
    brush.setFrame({});
    brush.setPaint(p.stone);
    for (int i = 0; i < 6; ++i)
        brush.box({5.4, 9.3 + 0.75 * i, -0.359}, {6.6, 9.95 + 0.75 * i, -0.3});
    brush.box({5.1, 9.01, -0.35}, {6.9, 9.9, -0.02});
    flat.place("entrance steps", brush);

    for (const auto& [x, y, size] :
         {Vec3{-3.2, -4.6, 1.0}, Vec3{15.6, 11.2, 1.15}, Vec3{-3.4, 10.6, 0.9}}) {
        brush.setFrame(Frame::at({x, y, -0.36}));
        brush.setPaint(p.walnut);
        brush.lathe({},
                    {{0.0, 0.0},
                     {0.16 * size, 0.0},
                     {0.1 * size, 0.5},
                     {0.08 * size, 2.2 * size},
                     {0.0, 2.2 * size}},
                    20);
        brush.setPaint(p.grass);
        brush.sphere({0, 0, 2.9 * size}, 1.05 * size, 36);
        brush.sphere({0.6 * size, 0.3 * size, 2.4 * size}, 0.7 * size, 30);
        brush.sphere({-0.5 * size, -0.35 * size, 2.45 * size}, 0.75 * size, 30);
        flat.place("tree", brush);
    }
}

} // namespace ogl::host
