// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host/sample/flat_rooms.h"
#include "host/sample/furniture.h"

#include <numbers>

namespace ogl::host {

namespace {

/// A double bed; origin in the middle of its head end at the wall, y towards its foot.
void addBed(const FlatSite& flat, const Frame& frame) {
    const FlatPaints& p = flat.paints;
    MeshBrush brush(frame);
    addLegs(brush, p.walnut, -0.85, 0.15, 0.85, 2.0, 0.16, 0.025);
    brush.setPaint(p.oak);
    brush.extrude(roundedRectangle(-0.94, 0.06, 0.94, 2.12, 0.05, 0.16), {0, 0, 0.14}, 40.0);
    brush.setPaint(p.fabric);
    brush.extrude(uprightRectangle(-0.98, 0.16, 0.98, 1.05, 0.08, 0.0), {0, 0.09, 0}, 40.0);
    brush.setPaint(p.linen);
    brush.roundedBox({-0.9, 0.1, 0.3}, {0.9, 2.1, 0.5}, 0.05);
    // The blanket lies over the mattress and hangs down a little on both sides.
    brush.setPaint(p.creamBook);
    std::vector<Vec3> outside;
    std::vector<Vec3> inside;
    constexpr int kSteps = 8;
    for (const double side : {1.0, -1.0}) {
        const double edge = 0.935;
        const auto bend = [&](double radius, int i) {
            const double a = side > 0.0 ? std::numbers::pi * 0.5 * i / kSteps
                                        : std::numbers::pi * 0.5 * (1.0 + i / double(kSteps));
            return Vec3{side * (edge - 0.07) + radius * std::cos(a), 0.85,
                        0.465 + radius * std::sin(a)};
        };
        if (side > 0.0)
            outside.push_back({edge, 0.85, 0.33});
        for (int i = 0; i <= kSteps; ++i)
            outside.push_back(bend(0.07, i));
        if (side < 0.0)
            outside.push_back({-edge, 0.85, 0.33});
        if (side > 0.0)
            inside.push_back({edge - 0.03, 0.85, 0.33});
        for (int i = 0; i <= kSteps; ++i)
            inside.push_back(bend(0.04, i));
        if (side < 0.0)
            inside.push_back({-edge + 0.03, 0.85, 0.33});
    }
    outside.insert(outside.end(), inside.rbegin(), inside.rend());
    brush.extrude(outside, {0.0, 1.29, 0.0}, 40.0);
    brush.setPaint(p.ceramic);
    for (const double x : {-0.45, 0.45}) {
        brush.setFrame(frame.within({x, 0.31, 0.5}).tilted(24.0));
        brush.roundedBox({-0.36, 0.0, 0.02}, {0.36, 0.14, 0.44}, 0.068);
    }
    brush.setPaint(p.cushion);
    brush.setFrame(frame.within({0.0, 0.52, 0.5}).tilted(30.0));
    brush.roundedBox({-0.26, 0.0, 0.02}, {0.26, 0.12, 0.3}, 0.058);
    flat.place("bed", brush);
}

void addNightstand(const FlatSite& flat, const Frame& frame, int number) {
    const FlatPaints& p = flat.paints;
    MeshBrush brush(frame);
    addLegs(brush, p.walnut, -0.18, 0.05, 0.18, 0.34, 0.18, 0.014);
    brush.setPaint(p.oak);
    brush.box({-0.22, 0, 0.18}, {0.22, 0.38, 0.52});
    addDrawers(brush, p.oak, p.black, frame.within({-0.22, 0.38, 0}), 0.44, 2, 0.19, 0.51);
    addTableLamp(brush, p, frame.within({0.04, 0.19, 0.52}), 0.22, 0.12);
    flat.place("nightstand " + std::to_string(number), brush);
}

void addWardrobe(const FlatSite& flat, const Frame& frame) {
    const FlatPaints& p = flat.paints;
    constexpr double kWidth = 3.0;
    MeshBrush brush(frame);
    brush.setPaint(p.whiteLacquer);
    brush.box({0, 0, 0}, {kWidth, 0.56, 0.06});
    brush.box({0, 0, 0.06}, {kWidth, 0.58, 2.3});
    brush.box({-0.02, 0, 2.3}, {kWidth + 0.02, 0.66, 2.34});
    for (int i = 0; i < 3; ++i) {
        brush.setPaint(i == 1 ? p.mirror : p.whiteLacquer);
        const double y = i == 1 ? 0.61 : 0.585;
        brush.box({i * 1.0 + 0.005, y, 0.065}, {i * 1.0 + 0.995, y + 0.022, 2.295});
    }
    brush.setPaint(p.steel);
    for (const double x : {0.93, 2.07})
        brush.tube({{x, 0.607, 0.95}, {x, 0.64, 0.95}, {x, 0.64, 1.35}, {x, 0.607, 1.35}}, 0.007,
                   10);
    flat.place("wardrobe", brush);
}

void addDresser(const FlatSite& flat, const Frame& frame) {
    const FlatPaints& p = flat.paints;
    MeshBrush brush(frame);
    addLegs(brush, p.walnut, 0.06, 0.05, 1.14, 0.38, 0.15, 0.016);
    brush.setPaint(p.oak);
    brush.box({0, 0, 0.15}, {1.2, 0.43, 0.82});
    addDrawers(brush, p.oak, p.black, frame.within({0, 0.43, 0}), 0.6, 3, 0.16, 0.81);
    addDrawers(brush, p.oak, p.black, frame.within({0.6, 0.43, 0}), 0.6, 3, 0.16, 0.81);
    brush.setFrame(frame.within({0.85, 0.2, 0.82}));
    brush.setPaint(p.pot);
    brush.lathe({},
                {{0.0, 0.0},
                 {0.07, 0.0},
                 {0.11, 0.1},
                 {0.08, 0.22},
                 {0.045, 0.26},
                 {0.06, 0.3},
                 {0.052, 0.3},
                 {0.037, 0.26},
                 {0.0, 0.25}},
                32);
    flat.place("dresser", brush);
}

} // namespace

void addBedroom(const FlatSite& flat) {
    const FlatPaints& p = flat.paints;
    MeshBrush brush;
    brush.setPaint(p.rug);
    brush.extrude(roundedRectangle(9.1, 2.3, 11.9, 4.3, 0.05, 0.001), {0, 0, 0.012}, 40.0);
    flat.place("bedroom rug", brush);
    addBed(flat, Frame::at({10.5, 5.2, 0.0}, 180.0));
    addNightstand(flat, Frame::at({9.22, 5.18, 0.0}, 180.0), 1);
    addNightstand(flat, Frame::at({11.78, 5.18, 0.0}, 180.0), 2);
    addWardrobe(flat, Frame::at({8.13, 3.55, 0.0}, -90.0));
    addDresser(flat, Frame::at({12.28, 0.5, 0.0}, 90.0));
    addPicture(brush, p, Frame::at({10.5, 5.199, 1.65}, 180.0), 1.2, 0.7);
    flat.place("bedroom painting", brush);
    addCurtains(brush, p, Frame::at({10.2, 0.3, 0.0}), 2.0, 2.4);
    flat.place("bedroom curtains", brush);
    addPlant(brush, p, Frame::at({9.2, 0.92, 0.0}, 40.0), 1.1, 11);
    flat.place("bedroom plant", brush);
    addPendant(brush, p, Frame::at({10.3, 2.75, 0.0}), 2.05, 0.24);
    flat.place("bedroom pendant", brush);
}

} // namespace ogl::host
