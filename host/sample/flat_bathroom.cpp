// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host/sample/flat_rooms.h"
#include "host/sample/furniture.h"

#include <numbers>

namespace ogl::host {

namespace {

/// A free-standing tub of 0.8 x 1.75 m; origin in its middle.
void addTub(const FlatSite& flat, const Frame& frame) {
    MeshBrush brush(frame);
    brush.setPaint(flat.paints.ceramic);
    const auto ring = [](double x, double y, double z) { return ellipse({0, 0, z}, x, y, 48); };
    brush.loft({ring(0.26, 0.68, 0.0), ring(0.3, 0.74, 0.06), ring(0.36, 0.83, 0.35),
                ring(0.4, 0.87, 0.57), ring(0.405, 0.875, 0.585), ring(0.4, 0.87, 0.6),
                ring(0.37, 0.84, 0.6), ring(0.36, 0.83, 0.585), ring(0.32, 0.78, 0.35),
                ring(0.26, 0.68, 0.16), ring(0.2, 0.6, 0.13)},
               50.0);
    brush.setPaint(flat.paints.steel);
    std::vector<Vec3> tap{{0.55, 0.3, 0.0}, {0.55, 0.3, 0.85}};
    for (int i = 1; i <= 8; ++i) {
        const double a = std::numbers::pi * 0.75 * i / 8;
        tap.push_back({0.55 - 0.1 + 0.1 * std::cos(a), 0.3, 0.85 + 0.1 * std::sin(a)});
    }
    brush.tube(tap, 0.014, 16);
    flat.place("bath tub", brush);
}

/// Origin at the wall in the middle, y off the wall.
void addToilet(const FlatSite& flat, const Frame& frame) {
    MeshBrush brush(frame);
    brush.setPaint(flat.paints.ceramic);
    brush.extrude(uprightRectangle(-0.19, 0.42, 0.19, 0.82, 0.04, 0.0), {0, 0.17, 0}, 40.0);
    const auto ring = [](double x, double y, double at, double z) {
        return ellipse({0, at, z}, x, y, 40);
    };
    brush.loft({ring(0.11, 0.2, 0.34, 0.0), ring(0.11, 0.2, 0.34, 0.1),
                ring(0.16, 0.25, 0.38, 0.28), ring(0.185, 0.265, 0.41, 0.4),
                ring(0.17, 0.25, 0.41, 0.405)},
               50.0);
    brush.setPaint(flat.paints.whiteLacquer);
    std::vector<Vec3> lid = ellipse({0, 0.41, 0.41}, 0.19, 0.268, 40);
    brush.extrude(lid, {0, 0, 0.022}, 40.0);
    brush.setPaint(flat.paints.steel);
    brush.cylinder({0, 0.085, 0.82}, 0.022, 0.006, 24);
    flat.place("toilet", brush);
}

void addVanity(const FlatSite& flat, const Frame& frame) {
    const FlatPaints& p = flat.paints;
    constexpr double kWidth = 1.3;
    MeshBrush brush(frame);
    brush.setPaint(p.oak);
    brush.box({0, 0, 0.35}, {kWidth, 0.46, 0.8});
    addDrawers(brush, p.oak, p.steel, frame.within({0, 0.46, 0}), kWidth * 0.5, 2, 0.355, 0.795);
    addDrawers(brush, p.oak, p.steel, frame.within({kWidth * 0.5, 0.46, 0}), kWidth * 0.5, 2, 0.355,
               0.795);
    brush.setFrame(frame);
    brush.setPaint(p.worktop);
    brush.box({-0.01, 0, 0.8}, {kWidth + 0.01, 0.49, 0.83});
    brush.setPaint(p.ceramic);
    const Vec3 bowl{kWidth * 0.5, 0.26, 0.83};
    const auto ring = [bowl](double x, double y, double z) {
        return ellipse(bowl + Vec3{0, 0, z}, x, y, 40);
    };
    brush.loft({ring(0.13, 0.1, 0.0), ring(0.2, 0.15, 0.06), ring(0.235, 0.18, 0.13),
                ring(0.226, 0.171, 0.13), ring(0.19, 0.14, 0.06), ring(0.1, 0.07, 0.025)},
               50.0);
    brush.setPaint(p.steel);
    std::vector<Vec3> tap{{kWidth * 0.5, 0.045, 0.83}, {kWidth * 0.5, 0.045, 1.03}};
    for (int i = 1; i <= 8; ++i) {
        const double a = std::numbers::pi * 0.7 * i / 8;
        tap.push_back({kWidth * 0.5, 0.045 + 0.07 - 0.07 * std::cos(a), 1.03 + 0.07 * std::sin(a)});
    }
    brush.tube(tap, 0.012, 14);
    brush.setPaint(p.mirror);
    brush.setFrame(frame.within({kWidth * 0.5, 0.0, 1.6}).tilted(-90.0));
    brush.lathe({}, {{0.0, 0.0}, {0.42, 0.0}, {0.42, 0.02}, {0.0, 0.02}}, 56);
    brush.setFrame(frame);
    brush.setPaint(p.linen);
    brush.roundedBox({0.08, 0.12, 0.83}, {0.34, 0.34, 0.89}, 0.02, 2);
    flat.place("washbasin", brush);
}

void addShower(const FlatSite& flat) {
    const FlatPaints& p = flat.paints;
    MeshBrush brush;
    constexpr double x0 = 11.3;
    constexpr double y1 = 6.32;
    brush.setPaint(p.ceramic);
    brush.box({x0, 5.32, 0.0}, {12.3, y1, 0.03});
    brush.setPaint(p.steel);
    brush.cylinder({11.8, 5.82, 0.03}, 0.05, 0.003, 28);
    brush.tube({{11.9, 5.33, 1.0}, {11.9, 5.38, 1.0}, {11.9, 5.38, 2.15}, {11.9, 5.6, 2.2}}, 0.01,
               12);
    brush.cylinder({11.9, 5.62, 2.17}, 0.11, 0.015, 32);
    brush.box({x0 - 0.005, 5.32, 2.0}, {x0 + 0.015, y1, 2.02});
    brush.box({x0 + 0.015, y1 - 0.015, 2.0}, {12.3, y1 + 0.005, 2.02});
    flat.place("shower", brush);
    brush.setPaint(p.glass);
    brush.box({x0, 5.325, 0.03}, {x0 + 0.01, y1 - 0.01, 2.0});
    brush.box({x0 + 0.01, y1 - 0.01, 0.03}, {11.75, y1, 2.0});
    flat.place("shower glass", brush);
}

void addTowelRadiator(const FlatSite& flat, const Frame& frame) {
    const FlatPaints& p = flat.paints;
    MeshBrush brush(frame);
    brush.setPaint(p.whiteLacquer);
    for (const double x : {-0.24, 0.24})
        brush.tube({{x, 0.06, 0.4}, {x, 0.06, 1.7}}, 0.016, 12);
    for (int i = 0; i < 12; ++i) {
        const double z = 0.46 + 0.1 * i + (i > 7 ? 0.06 : 0.0);
        brush.tube({{-0.24, 0.06, z}, {0.24, 0.06, z}}, 0.01, 10);
    }
    brush.setPaint(p.linen);
    brush.roundedBox({-0.17, 0.04, 0.62}, {0.2, 0.085, 1.17}, 0.015, 2);
    flat.place("towel radiator", brush);
}

} // namespace

void addBathroom(const FlatSite& flat) {
    addTub(flat, Frame::at({11.75, 7.72, 0.0}));
    addToilet(flat, Frame::at({8.95, 8.69, 0.0}, 180.0));
    addTowelRadiator(flat, Frame::at({10.25, 8.7, 0.0}, 180.0));
    addVanity(flat, Frame::at({9.35, 5.33, 0.0}));
    addShower(flat);
    MeshBrush brush;
    brush.setPaint(flat.paints.linen);
    brush.extrude(roundedRectangle(10.55, 7.2, 11.15, 8.2, 0.06, 0.001), {0, 0, 0.014}, 40.0);
    flat.place("bath mat", brush);
}

} // namespace ogl::host
