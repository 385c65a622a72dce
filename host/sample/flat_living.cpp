// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host/sample/flat_rooms.h"
#include "host/sample/furniture.h"

#include <numbers>

namespace ogl::host {

namespace {

/// Three seats; origin at the back left corner, the back at y = 0.
void addSofa(const FlatSite& flat, const Frame& frame) {
    constexpr double kWidth = 2.4;
    constexpr double kDepth = 0.94;
    constexpr double kArm = 0.2;
    MeshBrush brush(frame);
    addLegs(brush, flat.paints.walnut, 0.1, 0.1, kWidth - 0.1, kDepth - 0.1, 0.12, 0.022);
    brush.setPaint(flat.paints.fabric);
    // The body has piped edges, which drawings show; only the cushions are soft.
    brush.box({0, 0, 0.12}, {kWidth, kDepth - 0.02, 0.28});
    brush.extrude(uprightRectangle(kArm + 0.004, 0.284, kWidth - kArm - 0.004, 0.78, 0.08, 0.0),
                  {0, 0.2, 0}, 40.0);
    for (const double x : {0.0, kWidth - kArm})
        brush.extrude(uprightRectangle(x, 0.284, x + kArm, 0.6, 0.07, 0.0), {0, kDepth, 0}, 40.0);
    const double seat = (kWidth - 2.0 * kArm) / 2.0;
    for (int i = 0; i < 2; ++i) {
        const double x = kArm + i * seat;
        brush.setFrame(frame);
        brush.roundedBox({x + 0.006, 0.205, 0.285}, {x + seat - 0.006, kDepth + 0.01, 0.45}, 0.055);
        brush.setFrame(frame.within({x, 0.24, 0.455}).tilted(8.0));
        brush.roundedBox({0.015, 0.03, 0.0}, {seat - 0.015, 0.2, 0.42}, 0.07);
    }
    brush.setPaint(flat.paints.cushion);
    brush.setFrame(frame.within({0.38, 0.58, 0.46}, -24.0).tilted(18.0));
    brush.roundedBox({-0.22, 0.0, 0.0}, {0.22, 0.13, 0.42}, 0.062);
    brush.setPaint(flat.paints.linen);
    brush.setFrame(frame.within({2.04, 0.58, 0.46}, 20.0).tilted(18.0));
    brush.roundedBox({-0.21, 0.0, 0.0}, {0.21, 0.12, 0.4}, 0.058);
    flat.place("sofa", brush);
}

/// A tub chair: a bent shell around a round seat.
void addArmchair(const FlatSite& flat, const Frame& frame) {
    MeshBrush brush(frame);
    addLegs(brush, flat.paints.walnut, -0.26, -0.26, 0.26, 0.26, 0.16, 0.02);
    brush.setPaint(flat.paints.cushion);
    std::vector<Vec3> shell;
    constexpr int kSteps = 28;
    constexpr double kSweep = 235.0 * std::numbers::pi / 180.0;
    const auto arc = [&](double radius, int i) {
        const double angle = -std::numbers::pi * 0.5 + (i / double(kSteps) - 0.5) * kSweep;
        return Vec3{std::cos(angle) * radius, std::sin(angle) * radius, 0.16};
    };
    for (int i = 0; i <= kSteps; ++i)
        shell.push_back(arc(0.42, i));
    for (int i = kSteps; i >= 0; --i)
        shell.push_back(arc(0.34, i));
    brush.extrude(shell, {0.0, 0.0, 0.56}, 40.0);
    brush.setPaint(flat.paints.fabric);
    brush.lathe({0.0, 0.02, 0.165},
                {{0.0, 0.0},
                 {0.29, 0.0},
                 {0.32, 0.02},
                 {0.335, 0.07},
                 {0.335, 0.16},
                 {0.32, 0.21},
                 {0.28, 0.235},
                 {0.0, 0.25}},
                40, 50.0);
    flat.place("armchair", brush);
}

void addCoffeeTable(const FlatSite& flat, Vec3 at) {
    MeshBrush brush(Frame::at(at));
    brush.setPaint(flat.paints.oak);
    brush.lathe(
        {0, 0, 0.36},
        {{0.0, 0.0}, {0.43, 0.0}, {0.45, 0.012}, {0.45, 0.022}, {0.44, 0.032}, {0.0, 0.032}}, 48);
    for (int i = 0; i < 3; ++i) {
        const double a = 2.0 * std::numbers::pi * i / 3.0 + 0.4;
        const Vec3 out{std::cos(a), std::sin(a), 0.0};
        brush.tube({out * 0.36, out * 0.24 + Vec3{0, 0, 0.36}}, 0.016, 12);
    }
    brush.setPaint(flat.paints.ceramic);
    brush.lathe({0.14, 0.1, 0.392},
                {{0.0, 0.0},
                 {0.05, 0.0},
                 {0.075, 0.06},
                 {0.06, 0.14},
                 {0.03, 0.19},
                 {0.035, 0.22},
                 {0.028, 0.22},
                 {0.023, 0.19},
                 {0.0, 0.18}},
                32);
    brush.setFrame(Frame::at(at + Vec3{-0.2, -0.08, 0.392}, 25.0));
    brush.setPaint(flat.paints.blueBook);
    brush.box({0, 0, 0}, {0.22, 0.29, 0.022});
    brush.setFrame(Frame::at(at + Vec3{-0.18, -0.06, 0.4145}, 14.0));
    brush.setPaint(flat.paints.creamBook);
    brush.box({0, 0, 0}, {0.18, 0.25, 0.018});
    flat.place("coffee table", brush);
}

void addTelevision(const FlatSite& flat, const Frame& frame) {
    constexpr double kWidth = 2.2;
    MeshBrush brush(frame);
    addLegs(brush, flat.paints.walnut, 0.12, 0.08, kWidth - 0.12, 0.36, 0.14, 0.018);
    brush.setPaint(flat.paints.oak);
    brush.box({0, 0, 0.14}, {kWidth, 0.42, 0.5});
    addDrawers(brush, flat.paints.oak, flat.paints.black, frame.within({0, 0.42, 0}), kWidth / 3, 2,
               0.15, 0.49);
    addFronts(brush, flat.paints.oak, flat.paints.black, frame.within({kWidth / 3, 0.42, 0}),
              2.0 * kWidth / 3.0, 2, 0.15, 0.49);
    brush.setFrame(frame);
    brush.setPaint(flat.paints.black);
    brush.box({0.42, 0.02, 0.62}, {1.78, 0.05, 1.4});
    brush.box({0.44, 0.05, 0.65}, {1.76, 0.054, 1.385});
    brush.tube({{0.8, 0.1, 0.505}, {1.1, 0.1, 0.52}, {1.4, 0.1, 0.505}}, 0.012, 12);
    brush.box({1.06, 0.03, 0.5}, {1.14, 0.045, 0.62});
    brush.setPaint(flat.paints.ceramic);
    brush.lathe({0.18, 0.22, 0.5},
                {{0.0, 0.0},
                 {0.06, 0.0},
                 {0.1, 0.09},
                 {0.09, 0.2},
                 {0.04, 0.27},
                 {0.045, 0.3},
                 {0.037, 0.3},
                 {0.032, 0.27},
                 {0.0, 0.25}},
                32);
    flat.place("television board", brush);
}

/// A lamp that reaches over the sofa: a foot, a bow, a hanging shade.
void addArcLamp(const FlatSite& flat, const Frame& frame) {
    MeshBrush brush(frame);
    brush.setPaint(flat.paints.black);
    brush.lathe({}, {{0.0, 0.0}, {0.17, 0.0}, {0.17, 0.03}, {0.15, 0.04}, {0.0, 0.04}}, 40);
    brush.setPaint(flat.paints.brass);
    std::vector<Vec3> bow{{0, 0, 0.04}, {0, 0, 1.1}};
    constexpr int kSteps = 16;
    for (int i = 1; i <= kSteps; ++i) {
        const double a = std::numbers::pi * 0.94 * i / kSteps;
        bow.push_back({0.55 - 0.55 * std::cos(a), 0.0, 1.1 + 0.8 * std::sin(a)});
    }
    brush.tube(bow, 0.011, 12);
    const Vec3 end = bow.back();
    brush.setPaint(flat.paints.bulb);
    brush.sphere(end + Vec3{0, 0, -0.09}, 0.045, 16);
    brush.setPaint(flat.paints.shade);
    std::vector<Vec2> dome;
    for (int i = 0; i <= 10; ++i) {
        const double a = std::numbers::pi * 0.5 * i / 10;
        dome.push_back({0.19 * std::cos(a), 0.17 * std::sin(a)});
    }
    dome.back().x = 0.012;
    for (int i = 10; i >= 0; --i)
        dome.push_back(
            {dome[static_cast<size_t>(i)].x * 0.975, dome[static_cast<size_t>(i)].y * 0.975});
    dome.push_back(dome.front());
    brush.lathe(end + Vec3{0, 0, -0.16}, dome, 40);
    flat.place("arc lamp", brush);
}

void addSideboard(const FlatSite& flat, const Frame& frame) {
    MeshBrush brush(frame);
    constexpr double kWidth = 1.15;
    addLegs(brush, flat.paints.black, 0.08, 0.06, kWidth - 0.08, 0.34, 0.16, 0.016);
    brush.setPaint(flat.paints.walnut);
    brush.box({0, 0, 0.16}, {kWidth, 0.4, 0.78});
    addFronts(brush, flat.paints.walnut, flat.paints.brass, frame.within({0, 0.4, 0}), kWidth, 2,
              0.17, 0.77);
    addTableLamp(brush, flat.paints, frame.within({0.24, 0.2, 0.78}), 0.26, 0.13);
    flat.place("sideboard", brush);
}

} // namespace

void addLivingRoom(const FlatSite& flat) {
    MeshBrush brush;
    brush.setPaint(flat.paints.rug);
    brush.extrude(roundedRectangle(4.95, 0.9, 7.25, 3.5, 0.05, 0.001), {0, 0, 0.012}, 40.0);
    flat.place("living rug", brush);
    // The sofa looks at the television on the bedroom wall.
    addSofa(flat, Frame::at({4.55, 3.4, 0.0}, -90.0));
    addCoffeeTable(flat, {6.1, 2.2, 0.013});
    addArmchair(flat, Frame::at({6.3, 4.0, 0.0}, 165.0));
    addTelevision(flat, Frame::at({7.98, 1.45, 0.0}, 90.0));
    addArcLamp(flat, Frame::at({4.75, 3.75, 0.0}, -50.0));
    addSideboard(flat, Frame::at({5.15, 5.18, 0.0}, 180.0));
    addPicture(brush, flat.paints, Frame::at({4.58, 5.199, 1.55}, 180.0), 0.9, 0.7);
    flat.place("painting", brush);
    addBookshelf(brush, flat.paints, Frame::at({7.96, 5.18, 0.0}, 180.0), 1.15, 2.1, 5);
    flat.place("bookshelf", brush);
    addPlant(brush, flat.paints, Frame::at({7.4, 1.0, 0.0}), 1.4, 15);
    flat.place("plant", brush);
    addCurtains(brush, flat.paints, Frame::at({6.0, 0.3, 0.0}), 2.8, 2.4);
    flat.place("curtains", brush);
}

} // namespace ogl::host
