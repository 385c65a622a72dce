// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host/sample/furniture.h"

#include <algorithm>
#include <numbers>

namespace ogl::host {

namespace {

/// A number from 0 to 1 for the n-th of many alike things.
double varied(int n, int what) {
    uint32_t h = static_cast<uint32_t>(n) * 2654435761u + static_cast<uint32_t>(what) * 40503u;
    h = (h ^ (h >> 15)) * 2246822519u;
    return static_cast<double>((h ^ (h >> 13)) & 0xffffu) / 65535.0;
}

/// A hollow shade: outside up, over the rim, inside down.
std::vector<Vec2> shadeProfile(double lowRadius, double highRadius, double height) {
    constexpr double kWall = 0.004;
    std::vector<Vec2> profile;
    constexpr int kSteps = 6;
    const auto radius = [&](int i) {
        const double t = i / double(kSteps);
        return lowRadius + (highRadius - lowRadius) * (0.6 * t + 0.4 * t * t);
    };
    for (int i = 0; i <= kSteps; ++i)
        profile.push_back({radius(i), height * i / kSteps});
    for (int i = kSteps; i >= 0; --i)
        profile.push_back({radius(i) - kWall, height * i / kSteps});
    profile.push_back(profile.front());
    return profile;
}

/// One leaf that rises from `root` in `direction` (radians about z) and bends over.
void addLeaf(MeshBrush& brush, Vec3 root, double direction, double size, double rise) {
    constexpr int kRows = 9;
    constexpr int kColumns = 5;
    const Vec3 out{std::cos(direction), std::sin(direction), 0.0};
    const Vec3 across{-out.y, out.x, 0.0};
    std::vector<Vec3> points;
    std::vector<Vec2> uv;
    for (int r = 0; r < kRows; ++r) {
        const double t = r / double(kRows - 1);
        const double width = size * 0.17 * std::sin(std::numbers::pi * std::pow(t, 0.75)) + 0.002;
        const Vec3 spine = root + out * (size * (0.25 * t + 0.55 * t * t)) +
                           Vec3{0.0, 0.0, size * (rise * t - 0.75 * t * t * t)};
        for (int c = 0; c < kColumns; ++c) {
            const double s = 2.0 * c / (kColumns - 1) - 1.0;
            points.push_back(spine - across * (width * s) + Vec3{0.0, 0.0, 0.25 * width * s * s});
            uv.push_back({0.5 + 0.5 * s, t});
        }
    }
    brush.sheet(points, kRows, kColumns, uv);
}

} // namespace

void addLegs(MeshBrush& brush, const Paint& paint, double x0, double y0, double x1, double y1,
             double height, double radius) {
    brush.setPaint(paint);
    for (const double x : {x0, x1})
        for (const double y : {y0, y1})
            brush.lathe({x, y, 0.0},
                        {{0.0, 0.0}, {radius * 0.6, 0.0}, {radius, height}, {0.0, height}}, 16);
}

void addChair(MeshBrush& brush, const FlatPaints& paints, const Frame& frame) {
    brush.setFrame(frame);
    constexpr double kSeat = 0.45;
    brush.setPaint(paints.oak);
    for (const double x : {-1.0, 1.0})
        for (const double y : {-1.0, 1.0})
            brush.tube({{x * 0.22, y * 0.22, 0.0}, {x * 0.17, y * 0.17, kSeat - 0.02}}, 0.013, 12);
    brush.extrude(roundedRectangle(-0.21, -0.21, 0.21, 0.21, 0.07, kSeat - 0.02), {0, 0, 0.025},
                  40.0);
    brush.setPaint(paints.fabric);
    brush.roundedBox({-0.2, -0.19, kSeat + 0.005}, {0.2, 0.2, kSeat + 0.04}, 0.016, 2);
    // The back is a bent board on two posts.
    brush.setPaint(paints.oak);
    for (const double x : {-1.0, 1.0})
        brush.tube({{x * 0.16, -0.18, kSeat}, {x * 0.165, -0.225, kSeat + 0.3}}, 0.011, 12);
    std::vector<Vec3> bent;
    constexpr int kSteps = 10;
    const auto arc = [&](double radius, int i) {
        const double angle = -std::numbers::pi * 0.5 + (i / double(kSteps) - 0.5) * 0.9;
        return Vec3{std::cos(angle) * radius, 0.24 + std::sin(angle) * radius, kSeat + 0.24};
    };
    for (int i = 0; i <= kSteps; ++i)
        bent.push_back(arc(0.48, i));
    for (int i = kSteps; i >= 0; --i)
        bent.push_back(arc(0.46, i));
    brush.extrude(bent, {0.0, 0.0, 0.15}, 30.0);
}

void addPlant(MeshBrush& brush, const FlatPaints& paints, const Frame& frame, double height,
              int leaves) {
    brush.setFrame(frame);
    brush.setPaint(paints.pot);
    constexpr double kPot = 0.34;
    brush.lathe({},
                {{0.0, 0.0},
                 {0.13, 0.0},
                 {0.18, kPot},
                 {0.165, kPot},
                 {0.155, kPot - 0.04},
                 {0.0, kPot - 0.04}},
                32);
    brush.setPaint(paints.soil);
    brush.lathe({0.0, 0.0, kPot - 0.04}, {{0.155, 0.0}, {0.1, 0.012}, {0.0, 0.02}}, 24);
    brush.setPaint(paints.leaf);
    for (int i = 0; i < leaves; ++i) {
        const double direction = 2.399963 * i; // the golden angle
        const double size = (height - kPot) * (0.62 + 0.38 * varied(i, 1));
        const double rise = 1.15 + 0.45 * varied(i, 2);
        addLeaf(brush, {0.03 * std::cos(direction), 0.03 * std::sin(direction), kPot - 0.03},
                direction, size, rise);
    }
}

void addBookshelf(MeshBrush& brush, const FlatPaints& paints, const Frame& frame, double width,
                  double height, int rows) {
    constexpr double kBoard = 0.025;
    constexpr double kDepth = 0.3;
    brush.setFrame(frame);
    brush.setPaint(paints.oak);
    brush.box({0, 0, 0}, {kBoard, kDepth, height});
    brush.box({width - kBoard, 0, 0}, {width, kDepth, height});
    brush.box({kBoard, 0, 0.05}, {width - kBoard, 0.01, height - kBoard});
    const double step = (height - kBoard - 0.05) / rows;
    for (int row = 0; row <= rows; ++row)
        brush.box({kBoard, 0.01, 0.05 + row * step},
                  {width - kBoard, kDepth - 0.005, 0.05 + row * step + kBoard});
    const Paint covers[] = {paints.redBook, paints.creamBook, paints.blueBook, paints.linen,
                            paints.walnut};
    int book = 0;
    for (int row = 0; row < rows; ++row) {
        const double floor = 0.05 + row * step + kBoard;
        double x = kBoard + 0.01;
        const double end = width - kBoard - 0.05 - 0.35 * width * varied(row, 9);
        while (x < end) {
            const double thick = 0.018 + 0.03 * varied(book, 3);
            const double tall = (step - kBoard) * (0.62 + 0.26 * varied(book, 4));
            brush.setPaint(covers[static_cast<size_t>(varied(book, 5) * 4.99)]);
            brush.box({x, 0.05, floor},
                      {x + thick, 0.05 + 0.15 + 0.06 * varied(book, 6), floor + tall});
            x += thick + 0.002;
            ++book;
        }
    }
}

void addTableLamp(MeshBrush& brush, const FlatPaints& paints, const Frame& frame, double height,
                  double shadeRadius) {
    brush.setFrame(frame);
    brush.setPaint(paints.brass);
    const double foot = shadeRadius * 0.65;
    brush.lathe({},
                {{0.0, 0.0},
                 {foot, 0.0},
                 {foot, 0.012},
                 {0.012, 0.03},
                 {0.008, 0.06},
                 {0.008, height + 0.1},
                 {0.0, height + 0.1}},
                24);
    brush.setPaint(paints.bulb);
    brush.sphere({0.0, 0.0, height + 0.12}, 0.032, 16);
    brush.setPaint(paints.shade);
    brush.lathe({0.0, 0.0, height},
                shadeProfile(shadeRadius, shadeRadius * 0.62, shadeRadius * 1.15), 40);
}

void addPendant(MeshBrush& brush, const FlatPaints& paints, const Frame& frame, double height,
                double shadeRadius) {
    constexpr double kCeiling = 2.6;
    brush.setFrame(frame);
    brush.setPaint(paints.black);
    const double tall = shadeRadius * 0.85;
    brush.tube({{0, 0, height + tall}, {0, 0, kCeiling - 0.03}}, 0.005, 8);
    brush.cylinder({0, 0, kCeiling - 0.03}, 0.05, 0.03, 20);
    brush.setPaint(paints.bulb);
    brush.sphere({0, 0, height + tall * 0.45}, 0.045, 16);
    brush.setPaint(paints.brass);
    // A bell: steep at the rim, round at the neck.
    std::vector<Vec2> profile;
    constexpr int kSteps = 10;
    for (int i = 0; i <= kSteps; ++i) {
        const double a = std::numbers::pi * 0.5 * i / kSteps;
        profile.push_back({0.02 + (shadeRadius - 0.02) * std::cos(a), tall * std::sin(a)});
    }
    for (int i = kSteps; i >= 0; --i)
        profile.push_back(
            {profile[static_cast<size_t>(i)].x - 0.004, profile[static_cast<size_t>(i)].y - 0.003});
    profile.push_back(profile.front());
    brush.lathe({0, 0, height}, profile, 40);
}

void addCurtains(MeshBrush& brush, const FlatPaints& paints, const Frame& frame, double width,
                 double top) {
    brush.setFrame(frame);
    constexpr double kPanel = 0.42;
    constexpr int kColumns = 121;
    brush.setPaint(paints.curtain);
    for (const double start : {-width * 0.5 - kPanel * 0.8, width * 0.5 - kPanel * 0.2}) {
        std::vector<Vec3> points;
        for (const double z : {0.03, top})
            for (int c = 0; c < kColumns; ++c) {
                const double t = c / double(kColumns - 1);
                const double wave =
                    0.035 * std::cos(t * std::numbers::pi * 12.0) * (z < 1.0 ? 1.0 : 0.75);
                points.push_back({start + kPanel * (1.0 - t), 0.1 + wave, z});
            }
        brush.sheet(points, 2, kColumns);
    }
    brush.setPaint(paints.black);
    brush.tube({{-width * 0.5 - 0.45, 0.1, top + 0.03}, {width * 0.5 + 0.45, 0.1, top + 0.03}},
               0.012, 12);
    for (const double x : {-width * 0.5 - 0.45, width * 0.5 + 0.45})
        brush.sphere({x, 0.1, top + 0.03}, 0.026, 16);
}

void addPicture(MeshBrush& brush, const FlatPaints& paints, const Frame& frame, double width,
                double height) {
    constexpr double kBar = 0.03;
    brush.setFrame(frame);
    brush.setPaint(paints.walnut);
    const double w = width * 0.5;
    const double h = height * 0.5;
    brush.box({-w, 0.0, -h}, {w, 0.03, -h + kBar});
    brush.box({-w, 0.0, h - kBar}, {w, 0.03, h});
    brush.box({-w, 0.0, -h + kBar}, {-w + kBar, 0.03, h - kBar});
    brush.box({w - kBar, 0.0, -h + kBar}, {w, 0.03, h - kBar});
    // The texture's size is one picture of 1.2 x 0.9 m with its corner at the origin.
    brush.setFrame(frame.within({-w + kBar, 0.0, 0.0}));
    brush.setPaint(paints.painting);
    brush.box({0.0, 0.0, -h + kBar}, {width - 2.0 * kBar, 0.015, h - kBar});
}

void addFronts(MeshBrush& brush, const Paint& front, const Paint& handle, const Frame& frame,
               double width, int columns, double low, double high) {
    brush.setFrame(frame);
    constexpr double kGap = 0.004;
    const double each = width / columns;
    for (int i = 0; i < columns; ++i) {
        const double x0 = i * each + kGap * 0.5;
        const double x1 = (i + 1) * each - kGap * 0.5;
        brush.setPaint(front);
        brush.box({x0, 0.0, low}, {x1, 0.02, high});
        brush.setPaint(handle);
        const double x = i % 2 == 0 ? x1 - 0.04 : x0 + 0.04;
        const double middle = low < 0.5 ? high - 0.14 : low + 0.14;
        brush.tube({{x, 0.02, middle - 0.07},
                    {x, 0.045, middle - 0.07},
                    {x, 0.045, middle + 0.07},
                    {x, 0.02, middle + 0.07}},
                   0.005, 8);
    }
}

void addDrawers(MeshBrush& brush, const Paint& front, const Paint& handle, const Frame& frame,
                double width, int rows, double low, double high) {
    brush.setFrame(frame);
    constexpr double kGap = 0.004;
    const double each = (high - low) / rows;
    for (int i = 0; i < rows; ++i) {
        const double z0 = low + i * each + kGap * 0.5;
        const double z1 = low + (i + 1) * each - kGap * 0.5;
        brush.setPaint(front);
        brush.box({kGap * 0.5, 0.0, z0}, {width - kGap * 0.5, 0.02, z1});
        brush.setPaint(handle);
        const double z = z1 - 0.05;
        const double half = std::min(0.1, width * 0.3);
        brush.tube({{width * 0.5 - half, 0.02, z},
                    {width * 0.5 - half, 0.045, z},
                    {width * 0.5 + half, 0.045, z},
                    {width * 0.5 + half, 0.02, z}},
                   0.005, 8);
    }
}

} // namespace ogl::host
