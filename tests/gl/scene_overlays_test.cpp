// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/drawing/edge_renderer.h"
#include "gl/overlay_fixture.h"

#include <cmath>
#include <span>

namespace ogl::test {
namespace {

constexpr Pixel kRed{255, 89, 89};
constexpr Pixel kBlue{77, 89, 255};
constexpr Pixel kYellow{255, 255, 64};
constexpr Pixel kMovedGround{140, 140, 140};
constexpr Pixel kMoved{64, 64, 64};
constexpr uint32_t kSelected = 0x10000000;
constexpr uint32_t kMarked = 0x20000000;

Vec3 turned(Vec3 p, float angle, Vec3 pivot = {}) {
    const Vec3 d = p - pivot;
    return pivot + Vec3{d.x * std::cos(angle) - d.y * std::sin(angle),
                        d.x * std::sin(angle) + d.y * std::cos(angle), d.z};
}

Vec3 between(Vec3 a, Vec3 b, float share) {
    return a + (b - a) * share;
}

class SceneOverlays : public OverlayTest {
  protected:
    void SetUp() override {
        OverlayTest::SetUp();
        scene_->addMaterial(plainMaterial());
        scene_->geometry().edgeOpacity = 0;
    }
};

class Highlights : public SceneOverlays {
  protected:
    /// The object's square, as seen here, is outlined in the colour.
    static bool isOutlined(const Picture& picture, float left, Pixel color) {
        return isLineSeen(picture, {left, 1, 0}, color) &&
               isLineSeen(picture, {left + 2, 1, 0}, color) &&
               isLineSeen(picture, {left + 1, 0, 0}, color) &&
               isLineSeen(picture, {left + 1, 2, 0}, color);
    }
};

TEST_F(Highlights, OutlineObjectsInTheColorsOfTheirBits) {
    const struct {
        const char* what;
        float left;
        uint32_t highlight;
        uint32_t objectFlags;
        uint32_t faceFlags;
        const Pixel* color; ///< null: no outline
    } rows[] = {
        {"selected", -9, kSelected, 0, 0, &kRed},
        {"marked", -6, kMarked, 0, 0, &kBlue},
        {"both", -3, kSelected | kMarked | 1, 0, 0, &kYellow},
        {"other bits", 0, ~(kSelected | kMarked), 0, 0, nullptr},
        {"hidden", 3, kSelected, 0x8, 0, &kRed},
        {"face left out", 6, kSelected, 0, 0x4, nullptr},
    };
    for (const auto& row : rows) {
        scene_->addObject(row.objectFlags);
        auto face = plate(row.left, 0, row.left + 2, 2);
        face.flags = row.faceFlags;
        scene_->addFace(face);
    }
    scene_->addObject(); // before all of them
    scene_->addFace(plate(-9.5f, 0.5f, 9.5f, 1.5f, 2));
    scene_->addFace(plate(-5, -4, 5, -2));
    scene_->commit();
    for (int k = 0; k < 6; ++k)
        scene_->object(k + 1).highlight = rows[k].highlight;
    const Picture picture = frame();
    for (const auto& row : rows)
        for (const Pixel* color : {&kRed, &kBlue, &kYellow})
            EXPECT_EQ(isOutlined(picture, row.left, *color), row.color == color) << row.what;
    // A grey rim: nothing else beside the line is darker in red than the ground.
    const int x = pixelX(-3), y = pixelY(0.2f);
    const auto isDarker = [](Pixel p) { return p.red < kGround.red - 5; };
    EXPECT_GT(picture.count(x - 3, y, x, y + 2, isDarker), 0);

    view().flags = kViewNoSelection;
    EXPECT_FALSE(isOutlined(frame(), -9, kRed));
    view().flags = kViewNoOverlays;
    EXPECT_FALSE(isOutlined(frame(), -9, kRed));
}

TEST_F(Highlights, ShowWhereSelectedObjectsWouldGo) {
    scene_->addObject();
    scene_->addFace(plate(-6, -2, -4, 0));
    scene_->commit();
    view().moveOffset = {5000, 3000, 3000};
    view().boxAngle = 0.5f;
    view().pivot = {-4000, 1000};
    const auto seen = [&](const Picture& picture, bool upright) {
        Vec3 p = turned({-6, -1, 0}, 0.5f, {-4, 1, 0}) + Vec3{5, 3, upright ? 3.0f : 0.0f};
        return isLineSeen(picture, p, upright ? kMoved : kMovedGround);
    };
    const struct {
        const char* what;
        int mode;
        uint32_t highlight;
        bool shown;
    } rows[] = {
        {"selected", 2, kSelected, true},      {"both", 2, kSelected | kMarked, true},
        {"marked alone", 2, kMarked, false},   {"nothing", 2, 0, false},
        {"another mode", 3, kSelected, false},
    };
    for (const auto& row : rows) {
        view().mode = row.mode;
        scene_->object(1).highlight = row.highlight;
        const Picture picture = frame();
        EXPECT_EQ(seen(picture, false), row.shown) << row.what;
        EXPECT_EQ(seen(picture, true), row.shown) << row.what;
    }
}

/// The box that `corner` maps its eight corners to; bits: 4 far in x, 2 in y, 1 in z.
class Boxes : public SceneOverlays {
  protected:
    static constexpr unsigned kDrawn[14][2] = {{0, 1}, {2, 3}, {4, 5}, {6, 7}, {0, 4},
                                               {2, 6}, {3, 7}, {1, 5}, {0, 2}, {4, 6},
                                               {5, 7}, {1, 3}, {2, 7}, {3, 6}};

    void SetUp() override {
        SceneOverlays::SetUp();
        scene_->geometry().unitScale = 2.0;  // two thousandths a unit
        view().boxSize = {1500, 2000, 1000}; // 3, 4, 2
        view().pivot = {500, 0};
    }
    void expectBox(const Picture& picture, Vec3 position, float angle, bool mirrored, Pixel ground,
                   Pixel color) const {
        const auto corner = [&](unsigned k) {
            const Vec3 p{(k & 4u) != 0 ? 3.0f : 0.0f, (k & 2u) != 0 ? 4.0f : 0.0f,
                         (k & 1u) != 0 ? 2.0f : 0.0f};
            return turned({p.x, mirrored ? -p.y : p.y, p.z}, angle, {1, 0, 0}) + position;
        };
        for (const auto& ends : kDrawn) {
            const Vec3 upright = between(corner(ends[0]), corner(ends[1]), 0.3f);
            EXPECT_TRUE(isLineSeen(picture, upright, color)) << ends[0] << " to " << ends[1];
            const Vec3 flat{upright.x, upright.y, 0};
            EXPECT_TRUE(isLineSeen(picture, flat, ground) || isLineSeen(picture, flat, color))
                << "flat " << ends[0] << " to " << ends[1];
        }
        const Vec3 noDiagonal = between(corner(1), corner(7), 0.35f);
        EXPECT_FALSE(isLineSeen(picture, noDiagonal, color));
        // Two sides lie over each other on the ground; this one shows there alone.
        const Vec3 low = between(corner(4), corner(6), 0.45f);
        EXPECT_TRUE(isLineSeen(picture, {low.x, low.y, 0}, ground));
    }
};

TEST_F(Boxes, TheViewsBoxStandsOnItsShadow) {
    view().boxPosition = {500, -1000, 1000};
    view().boxAngle = 0.3f;
    EXPECT_EQ(differingPixels(frame(), expectedFrame([] {})), 0);
    view().mode = 1;
    expectBox(frame(), {1, -2, 2}, 0.3f, false, {77, 77, 77}, {0, 0, 0});
}

TEST_F(Boxes, TheSymbolsBoxTakesItsPlaceFromTheSymbol) {
    SYMBOL& symbol = scene().symbol1;
    symbol.position = {-1500, 500, 9999};
    symbol.angle = -0.4;
    view().boxPosition = {9999, 9999, 1000};
    view().overlayColor = {200, 0, 20};
    for (const bool mirrored : {false, true}) {
        symbol.flags = mirrored ? 1 : 0;
        scene().overlayFlags = 0x4;
        view().flags = 0x8000;
        expectBox(frame(), {-3, 1, 2}, -0.4f, mirrored, {255, 77, 97}, {200, 0, 20});
    }
    const Picture empty = expectedFrame([] {});
    view().flags = 0;
    EXPECT_EQ(differingPixels(frame(), empty), 0);
    view().flags = 0x8000;
    scene().overlayFlags = 0;
    EXPECT_EQ(differingPixels(frame(), empty), 0);
}

class Symbols : public SceneOverlays {
  protected:
    /// Every segment's middle is seen in the colour; a symbol unit is a hundredth here.
    static int seenSegments(const Picture& picture, const SYMBOL& symbol,
                            std::span<const Vec3> line, bool mirrored, Pixel color) {
        const VEC3I at = symbol.position;
        const Vec3 position{static_cast<float>(at.x) * 0.001f, static_cast<float>(at.y) * 0.001f,
                            static_cast<float>(at.z) * 0.001f};
        int seen = 0;
        for (size_t k = 1; k < line.size(); ++k) {
            Vec3 p = between(line[k - 1], line[k], 0.6f) * 0.01f;
            p.y = mirrored ? -p.y : p.y;
            p = turned(p, static_cast<float>(symbol.angle)) + position;
            seen += isLineSeen(picture, p, color) ? 1 : 0;
        }
        return seen;
    }
};

TEST_F(Symbols, AreDrawnMirroredOrNot) {
    const Vec3 firstFlat[] = {{0, 0, 0},    {0, 150, 0}, {75, 150, 0}, {75, 75, 0},
                              {300, 75, 0}, {300, 0, 0}, {0, 0, 0}};
    const Vec3 firstUpright[] = {{0, 0, 0},    {0, 0, 150}, {75, 0, 150}, {75, 0, 75},
                                 {300, 0, 75}, {300, 0, 0}, {0, 0, 0}};
    const Vec3 secondUpright[] = {{0, 0, 0},       {-100, 0, 100}, {-300, 0, 100}, {-300, 0, -100},
                                  {-100, 0, -100}, {0, 0, 0},      {-300, 0, 0}};
    const Vec3 secondFlat[] = {{0, 0, 0},       {-100, 100, 0},  {-300, 100, 0},
                               {-300, -100, 0}, {-100, -100, 0}, {0, 0, 0}};
    SYMBOL& first = scene().symbol1;
    SYMBOL& second = scene().symbol2;
    first.position = {3000, 3000, 500};
    first.color = {200, 0, 0};
    first.angle = 0.3;
    second.position = {-2000, -3000, 0};
    second.color = {0, 0, 200};
    second.angle = -0.2;
    first.sizePercent = second.sizePercent = 1000;
    // Drawn through what lies before them.
    scene_->addObject();
    scene_->addFace(plate(9, 9, 9.5f, 9.5f, 3));
    scene_->commit();
    const Picture empty = frame();
    scene().overlayFlags = 0x8000;
    for (const bool mirrored : {false, true}) {
        first.flags = mirrored ? 1 : 0xfe;
        second.flags = mirrored ? 1 : 0;
        const Picture picture = frame();
        EXPECT_EQ(seenSegments(picture, first, firstFlat, mirrored, {200, 0, 0}), 6);
        EXPECT_EQ(seenSegments(picture, first, firstUpright, mirrored, {200, 0, 0}), 6);
        EXPECT_EQ(seenSegments(picture, second, secondUpright, mirrored, {0, 0, 200}), 6);
        EXPECT_EQ(seenSegments(picture, second, secondFlat, mirrored, {0, 0, 200}), 5);
        EXPECT_LT(seenSegments(picture, first, firstFlat, !mirrored, {200, 0, 0}), 3);
    }
    scene().overlayFlags = 0x7fff;
    EXPECT_EQ(differingPixels(frame(), empty), 0);
}

TEST_F(SceneOverlays, DrawTheGizmoAndItsPoint) {
    scene_->addObject();
    scene_->addFace(plate(-9, 5, -5, 9, 1)); // above a part of the gizmo's plane
    scene_->commit();
    GIZMO& gizmo = view().gizmo;
    gizmo.lengths = {3, 4, 2};
    gizmo.translation = {2, 1, 0};
    gizmo.angle = 0.4;
    gizmo.colors[0] = 0x0000c8;
    gizmo.colors[1] = 0x00c800;
    gizmo.colors[2] = 0xc80000;
    gizmo.pointPosition = {-5, -5, 0};
    const Picture empty = frame();
    view().flags = 0x100000;
    const Picture picture = frame();
    const auto axisEnd = [](Vec3 p) { return turned(p * 0.8f, 0.4f) + Vec3{2, 1, 0}; };
    EXPECT_TRUE(isLineSeen(picture, axisEnd({3, 0, 0}), {200, 0, 0}));
    EXPECT_TRUE(isLineSeen(picture, axisEnd({0, 4, 0}), {0, 200, 0}));
    EXPECT_TRUE(isLineSeen(picture, axisEnd({0, 0, 2}), {0, 0, 200}));
    EXPECT_FALSE(isLineSeen(picture, axisEnd({3.75f * 1.2f, 0, 0}), {200, 0, 0}));
    const POINT point = seenAt({-5, -5, 0});
    const RECT around{point.x - 10, point.y - 10, point.x + 10, point.y + 10};
    EXPECT_EQ(countNear(picture, around, {0, 0, 0}, 0), 64);
    const RECT inside{point.x - 4, point.y - 4, point.x + 4, point.y + 4};
    EXPECT_EQ(countNear(picture, inside, {0, 0, 0}, 0), 64);

    gizmo.pointPosition = {-7, 7, 0}; // under the plate
    EXPECT_EQ(countNear(frame(), {0, 0, kViewSize, kViewSize}, {0, 0, 0}, 0), 0);
    view().flags = 0x100010;
    EXPECT_EQ(differingPixels(frame(), empty), 0);
}

TEST_F(SceneOverlays, LeaveTheStateThatFramesStartFrom) {
    scene_->addObject();
    scene_->addFace(plate(-6, -6, 6, 6));
    scene_->geometry().edgeOpacity = 100;
    scene_->commit();
    for (const bool edges : {false, true}) {
        if (edges)
            select<EdgeRenderer>();
        else
            selectDrawing();
        renderer_->choices.edgeMode = EdgeMode::HiddenToo;
        renderer_->choices.roundEdgeEnds = true;
        view().flags = kViewNoOverlays | kViewNoHud;
        const Picture before = frame();
        scene_->object(1).highlight = kSelected | kMarked;
        view().tooltipText[0] = 'a';
        scene().overlayFlags = 0x8004;
        scene().hudFlags = 0x81;
        for (const int mode : {1, 2}) {
            view().mode = mode;
            for (const uint32_t flags : {0x108000u, 0x3030u}) {
                view().flags = flags;
                const Picture over = frame();
                EXPECT_GT(differingPixels(over, before), 20);
                EXPECT_EQ(differingPixels(frame(), over), 0) << edges << mode << flags;
                view().flags = kViewNoOverlays | kViewNoHud;
                EXPECT_EQ(differingPixels(frame(), before), 0) << edges << mode << flags;
            }
        }
    }
}

} // namespace
} // namespace ogl::test
