// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "gl/overlay_fixture.h"

namespace ogl::test {
namespace {

constexpr Pixel kWhite{255, 255, 255};
constexpr Pixel kPathColor{200, 30, 10};
constexpr Pixel kTooltip{255, 255, 191};

class ViewOverlays : public OverlayTest {
  protected:
    struct Path {
        std::vector<PIXEL> line;
        std::vector<PIXEL> markers;
        std::vector<uint8_t> flags; ///< of the points
    };
    /// Makes the records of paths.
    void setPaths(const std::vector<Path>& paths) {
        std::vector<INDEX> lineIndex;
        std::vector<INDEX> markerIndex;
        std::vector<INDEX> pointIndex;
        std::vector<PIXEL> lines;
        std::vector<PIXEL> markers;
        std::vector<POINT3D> points;
        const auto size = [](const auto& list) { return static_cast<int32_t>(list.size()); };
        for (const Path& path : paths) {
            lineIndex.push_back({size(lines), size(path.line)});
            markerIndex.push_back({size(markers), size(path.markers)});
            pointIndex.push_back({size(points), size(path.flags)});
            lines.insert(lines.end(), path.line.begin(), path.line.end());
            markers.insert(markers.end(), path.markers.begin(), path.markers.end());
            for (const uint8_t flags : path.flags)
                points.push_back({{0, 0, 0}, {}, flags});
        }
        const auto fill = [this](LIST& list, const auto& from) {
            host::fillList(memory_, list, std::span(from.data(), from.size()));
        };
        fill(view().pathPixels.index, lineIndex);
        fill(view().pathPixels.items, lines);
        fill(view().markerPixels.index, markerIndex);
        fill(view().markerPixels.items, markers);
        fill(scene().pathPoints.index, pointIndex);
        fill(scene().pathPoints.items, points);
        scene().paths.count = size(paths);
        view().overlayColor = {200, 30, 10};
        scene().hudFlags = 0x1;
    }
    /// The square around (x, y).
    static RECT square(int x, int y, int halfSize) {
        return {x - halfSize, y - halfSize, x + halfSize, y + halfSize};
    }
};

TEST_F(ViewOverlays, DrawPathsWithTheirMarkers) {
    setPaths({{{{10, 20}, {180, 20}, {180, 60}}, {{30, 100}, {60, 100}, {90, 100}}, {0, 0, 1}},
              {{{10, 180}, {180, 180}}, {{30, 140}, {60, 140}}, {1}}});
    const Picture picture = frame();
    for (const int x : {15, 100, 175})
        EXPECT_TRUE(isLineAt(picture, x, 20, kPathColor)) << x;
    EXPECT_TRUE(isLineAt(picture, 180, 50, kPathColor));
    EXPECT_FALSE(isLineAt(picture, 90, 40, kPathColor)); // not closed
    EXPECT_TRUE(isLineAt(picture, 100, 180, kPathColor));
    const struct {
        const char* what;
        int x, y, halfSize;
        int whiteHalf; ///< 0: solid
    } rows[] = {
        {"first", 30, 100, 6, 5},           {"other", 60, 100, 4, 3},
        {"solid other", 90, 100, 4, 0},     {"solid first", 30, 140, 6, 0},
        {"without a point", 60, 140, 4, 3},
    };
    for (const auto& row : rows) {
        const int outer = 4 * row.halfSize * row.halfSize;
        const int inner = 4 * row.whiteHalf * row.whiteHalf;
        const RECT wide = square(row.x, row.y, 12);
        EXPECT_EQ(countNear(picture, wide, kPathColor, 1), outer - inner) << row.what;
        EXPECT_EQ(countNear(picture, square(row.x, row.y, row.halfSize), kPathColor, 1),
                  outer - inner)
            << row.what;
        EXPECT_EQ(countNear(picture, square(row.x, row.y, row.whiteHalf), kWhite, 1), inner)
            << row.what;
    }
    scene().hudFlags = 0xfe & ~0x80;
    EXPECT_EQ(differingPixels(frame(), expectedFrame([] {})), 0);
}

TEST_F(ViewOverlays, DrawTheSelectionPolygon) {
    auto* points = static_cast<POLYGONPOINT*>(memory_.allocate(5 * sizeof(POLYGONPOINT)));
    points[0] = {{40, 50}, {140, 50}};
    points[1] = {{140, 50}, {140, 130}};
    points[2] = {{140, 130}, {40, 130}};
    points[3] = {{40, 130}, {40, 50}};
    points[4] = {{170, 10}, {170, 90}}; // no area, but an edge
    view().polygon = points;
    view().polygonCount = 5;
    const Picture picture = frame();
    const Pixel area{(230 * 7 + 255 * 3) / 10, (230 * 7 + 255 * 3) / 10, (230 * 7 + 89 * 3) / 10};
    EXPECT_EQ(countNear(picture, {43, 53, 137, 127}, area, 2), 94 * 74);
    EXPECT_TRUE(isNear(at(picture, 30, 90), kGround, 1));
    EXPECT_TRUE(isNear(at(picture, 160, 50), kGround, 1));
    // Dashes of four pixels over a full line; where the line lies exactly is the driver's choice.
    const auto dashes = [&](const RECT& strip, Pixel color) {
        return countNear(picture, strip, color, 2);
    };
    for (const RECT& edge : {RECT{50, 48, 130, 53}, RECT{50, 128, 130, 133}, RECT{38, 50, 43, 130},
                             RECT{138, 50, 143, 130}, RECT{168, 10, 173, 90}}) {
        EXPECT_NEAR(dashes(edge, {255, 255, 64}), 40, 5) << edge.left << ", " << edge.top;
        EXPECT_NEAR(dashes(edge, {89, 89, 89}), 40, 5) << edge.left << ", " << edge.top;
    }
    view().polygonCount = 0;
    EXPECT_EQ(differingPixels(frame(), expectedFrame([] {})), 0);
}

TEST_F(ViewOverlays, DrawTheCrossHairBlended) {
    POINT origin{};
    ASSERT_TRUE(ClientToScreen(context_->primary.window, &origin));
    view().cursorA = {static_cast<int32_t>(origin.x) + 60, static_cast<int32_t>(origin.y) + 50};
    view().cursorB = {static_cast<int32_t>(origin.x) + 150, static_cast<int32_t>(origin.y) + 120};
    // One minus the ground, plus seven tenths of it.
    const int value = 25 + 230 * 7 / 10;
    const Pixel color{value, value, value};
    const auto seenAt = [&](const Picture& picture, int x, int y) {
        int seen = 0;
        for (const int d : {-8, 8}) {
            seen += isLineAt(picture, x + d, y, color) ? 1 : 0;
            seen += isLineAt(picture, x, y + d, color) ? 1 : 0;
            seen += isNear(at(picture, x + 2 * d, y), kGround, 1) ? 1 : 0;
            seen += isNear(at(picture, x, y + 2 * d), kGround, 1) ? 1 : 0;
            seen += isNear(at(picture, x + d / 2, y + d / 2), kGround, 1) ? 1 : 0;
        }
        return seen == 10;
    };
    const struct {
        const char* what;
        uint32_t flags;
        bool atA, atB;
    } rows[] = {
        {"A", 0x1010, true, false},
        {"B", 0x2010, false, true},
        {"both bits", 0x3010, false, true},
        {"neither", 0x10, false, false},
        {"with selection", 0x1000, false, false},
    };
    for (const auto& row : rows) {
        view().flags = row.flags;
        const Picture picture = frame();
        EXPECT_EQ(seenAt(picture, 60, 50), row.atA) << row.what;
        EXPECT_EQ(seenAt(picture, 150, 120), row.atB) << row.what;
    }
    // On black it shines.
    scene().drawingBackgroundColor = 0;
    view().flags = 0x1010;
    EXPECT_GT(at(frame(), 66, 50).red, 100);
}

TEST_F(ViewOverlays, DrawTheTooltipAsWideAsItsText) {
    view().tooltip = {40, 90};
    for (const std::string& text : {std::string("Wall north"), std::string("Door")}) {
        std::fill_n(view().tooltipText, 80, uint8_t{0});
        std::copy(text.begin(), text.end(), view().tooltipText);
        const Picture picture = frame();
        const int right = 40 + 7 * static_cast<int>(text.size()) + 5;
        // The frame's lines lie on the box's border, half of them outside.
        const Picture expected = expectedFrame([&] {
            glColor3ub(255, 255, 191);
            glRecti(35, 75, right, 95);
            drawGlyphs(text, 40, 90, {0, 0, 0});
        });
        for (int y = 0; y < kViewSize; ++y)
            for (int x = 0; x < kViewSize; ++x) {
                const bool onFrame = x >= 34 && x <= right && y >= 74 && y <= 95 &&
                                     (x <= 35 || x >= right - 1 || y <= 75 || y >= 94);
                ASSERT_TRUE(onFrame || isNear(at(picture, x, y), at(expected, x, y), 2))
                    << x << ", " << y;
            }
        const int middle = (35 + right) / 2;
        EXPECT_LT(at(picture, middle, 95).red, 180) << text; // black below and on the right
        EXPECT_LT(at(picture, right, 85).red, 180) << text;
        EXPECT_NEAR(at(picture, middle, 74).red, 210, 25) << text; // grey above and on the left
        EXPECT_NEAR(at(picture, 34, 85).red, 210, 25) << text;
        EXPECT_GT(countNear(picture, {36, 76, right - 1, 94}, kTooltip, 1), 100) << text;
    }
    view().tooltipText[0] = 0;
    EXPECT_EQ(differingPixels(frame(), expectedFrame([] {})), 0);
}

} // namespace
} // namespace ogl::test
