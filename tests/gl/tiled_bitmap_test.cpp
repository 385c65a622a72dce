// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/drawing/edge_renderer.h"
#include "fixed/drawing/fixed_renderer.h"
#include "fixed/forward/shadow_renderer.h"
#include "gl/shadow_fixture.h"
#include "platform/own_window.h"
#include "render/bitmap_frame.h"

#include <cstdlib>

namespace ogl::test {
namespace {

constexpr int kWidth = 700;
constexpr int kHeight = 500;

/// Two pictures of one size.
struct Pair {
    const Bitmap& actual;
    const Bitmap& expected;
    int width, height;

    bool isBeside(const Bitmap& bitmap, int x, int y, Pixel color, int tolerance) const {
        for (int v = std::max(y - 1, 0); v <= std::min(y + 1, height - 1); ++v)
            for (int u = std::max(x - 1, 0); u <= std::min(x + 1, width - 1); ++u)
                if (isNear(bitmap.at(u, v), color, tolerance))
                    return true;
        return false;
    }
    /// Pixels of either picture whose colour the other has neither there nor beside.
    int strangers(int tolerance) const {
        int count = 0;
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x) {
                const Pixel a = actual.at(x, y);
                const Pixel b = expected.at(x, y);
                if (!isNear(a, b, tolerance) && (!isBeside(expected, x, y, a, tolerance) ||
                                                 !isBeside(actual, x, y, b, tolerance)))
                    ++count;
            }
        return count;
    }
};

/// Boxes in rows, seen from the side, with a roof that covers the whole picture's width.
class TiledBitmapTest : public GLTest {
  protected:
    void SetUp() override {
        GLTest::SetUp();
        resizeOwnWindow(kWidth, kHeight);
        scene_->addMaterial(plainMaterial());
        MATERIAL glass = plainMaterial();
        glass.opacity = 0.4f;
        scene_->addMaterial(glass);
        for (int k = 0; k < 60; ++k) {
            scene_->addObject();
            const float x = static_cast<float>(k % 10) * 2.0f - 10.0f;
            const float y = static_cast<float>(k / 10) * 3.0f - 6.0f;
            addBox(*scene_, {x, y, 0.0f},
                   {x + 1.3f, y + 1.7f, 1.0f + 0.3f * static_cast<float>(k % 7)},
                   static_cast<int16_t>(k % 3 == 0));
        }
        scene_->addObject();
        addBox(*scene_, {-40.0f, 8.0f, 5.0f}, {40.0f, 14.0f, 5.5f}, 0);
        scene_->commit();
        scene_->look({3, -16, 9}, {0, 1, 0.5f}, 0.8);
        scene_->geometry().edgeOpacity = 100;
        scene_->scene().siteWidth = 20000.0;
        scene_->scene().siteDepth = 20000.0;
        scene_->scene().siteHeight = 6000.0;
        scene_->scene().drawingOptions = kOptionBackgroundColor;
        scene_->scene().drawingBackgroundColor = 0xc08040;
    }
    /// A renderer of mode 10 or 11 as drawing calls set it up.
    void prepare(bool edgesOnly) {
        if (edgesOnly) {
            select<EdgeRenderer>();
        } else {
            select<FixedRenderer>();
            renderer_->choices.textureMode = TextureMode::SharedOnly;
            renderer_->choices.colorMode = ColorMode::White;
            renderer_->choices.singleColorEdges = true;
            renderer_->choices.drawFaces = true;
        }
        renderer_->choices.drawFlags = kDrawFullQuality;
    }
    void zoom(int width) {
        SCENE& scene = scene_->scene();
        scene.viewWindowWidth = width;
        scene.viewWindowHeight = width;
        scene.viewWindowCenterX = 3000;
        scene.viewWindowCenterY = -2000;
    }
    void drawFromView(int width, int height, const Bitmap& bitmap) {
        renderer_->setSize(width, height);
        renderer_->setupCamera(scene_->scene());
        glReadBuffer(GL_BACK);
        glDrawBuffer(GL_BACK);
        EXPECT_EQ(renderer_->drawToBitmap(bitmap.handle()), 1);
    }
};

// With 512 pixels a tile's corner falls on multiples of 64, where Mesa's llvmpipe (22.3) drops
// samples of lines in whole frames too. Other sizes drop them elsewhere.
constexpr int kDroppedSamples = kWidth * kHeight / 1000;

TEST_F(TiledBitmapTest, EqualsOneLargeFrame) {
    constexpr int kFewSamples = 6; ///< vertices that round another way
    const struct {
        const char* name;
        bool edgesOnly;
        EdgeMode edgeMode;
        bool roundEnds;
        int bits;
        int viewWidth, viewHeight;
        int zoomWidth; ///< of the zoom window; 0 = none
        int strangers; ///< allowed
    } rows[] = {
        {"drawing", false, EdgeMode::Visible, false, 24, 640, 512, 0, kFewSamples},
        {"drawing_zoomed", false, EdgeMode::Visible, false, 24, 512, 512, 12000, kFewSamples},
        {"hidden_edges", false, EdgeMode::HiddenToo, false, 32, 512, 900, 0, kFewSamples},
        {"hidden_edges_zoomed", false, EdgeMode::HiddenToo, false, 24, 512, 512, 12000,
         kFewSamples},
        {"marks", false, EdgeMode::Visible, true, 24, 512, 512, 0, kFewSamples},
        {"edges", true, EdgeMode::Visible, false, 24, 512, 512, 0, kFewSamples},
        {"edges_zoomed", true, EdgeMode::Visible, false, 32, 512, 513, 9000, kFewSamples},
        {"surfaces_odd_view", false, EdgeMode::None, false, 24, 333, 201, 0, kFewSamples},
        {"surfaces_tiny_view", false, EdgeMode::None, false, 24, 50, 31, 0, kFewSamples},
        {"drawing_odd_view", false, EdgeMode::Visible, false, 24, 333, 201, 0, kDroppedSamples},
        {"hidden_edges_odd_view", false, EdgeMode::HiddenToo, false, 24, 256, 300, 0,
         kDroppedSamples},
        {"edges_odd_view", true, EdgeMode::Visible, false, 24, 222, 400, 0, kDroppedSamples},
        {"larger_view", false, EdgeMode::Visible, false, 24, 1024, 1024, 0, kDroppedSamples},
    };
    for (const auto& row : rows) {
        prepare(row.edgesOnly);
        renderer_->choices.edgeMode = row.edgeMode;
        renderer_->choices.roundEdgeEnds = row.roundEnds;
        zoom(row.zoomWidth);
        resizeOwnWindow(std::max(kWidth, row.viewWidth), std::max(kHeight, row.viewHeight));
        const Bitmap whole(kWidth, kHeight, row.bits);
        const Bitmap tiled(kWidth, kHeight, row.bits);
        drawFromView(kWidth, kHeight, whole);
        drawFromView(row.viewWidth, row.viewHeight, tiled);
        const Pair pair{tiled, whole, kWidth, kHeight};
        EXPECT_LE(pair.strangers(2), row.strangers) << row.name;
        EXPECT_EQ(glIsEnabled(GL_SCISSOR_TEST), GL_FALSE) << row.name;
        EXPECT_EQ(renderer_->camera.viewportWidth, row.viewWidth) << row.name;
        EXPECT_FALSE(renderer_->camera.tile.has_value()) << row.name;
    }
}

/// Marks on the ends of edges and wide lines go on from one tile to the next.
TEST_F(TiledBitmapTest, PlansEqualOneLargeFrame) {
    scene_->geometry().flags = kGeometryPlanView;
    scene_->geometry().lightAmbient = 0.1f;
    scene_->scene().lineWeight = 40;
    ShadowRenderer& renderer = select<ShadowRenderer>();
    renderer.choices.drawFlags = kDrawFullQuality;
    renderer.choices.singleColorEdges = renderer.choices.drawFaces =
        renderer.choices.roundEdgeEnds = true;
    const Bitmap whole(kWidth, kHeight, 24);
    drawFromView(kWidth, kHeight, whole);
    for (const auto& [width, height] : {std::pair{256, 320}, {333, 201}, {3, 400}}) {
        const Bitmap tiled(kWidth, kHeight, 24);
        drawFromView(width, height, tiled);
        const Pair pair{tiled, whole, kWidth, kHeight};
        EXPECT_LE(pair.strangers(2), kDroppedSamples) << width << " x " << height;
    }
}

/// Frames with screen-space passes draw the borders too, with a projection for each tile.
TEST_F(TiledBitmapTest, DrawsBordersForScreenSpacePasses) {
    constexpr int kTile = 250;
    constexpr int kKept = kTile - 2 * 93; // 37.5 % on each side, cut off
    scene_->view().flags = kViewNoOverlays | kViewNoHud;
    for (const int zoomWidth : {0, 12000}) {
        prepare(false);
        renderer_->choices.edgeMode = EdgeMode::None;
        zoom(zoomWidth);
        const Bitmap whole(kWidth, kHeight, 24);
        const Bitmap tiled(kWidth, kHeight, 24);
        drawFromView(kWidth, kHeight, whole);
        renderer_->setSize(kTile, kTile);
        int tiles = 0;
        int borders = 0;
        drawTiles(*renderer_, bitmapTarget(tiled.handle()),
                  [&] {
                      renderer_->drawToWindow(context_->primary);
                      const Picture tile = Picture::read(kTile, kTile);
                      ++tiles;
                      borders += isNear(tile.at(0, 0), {0, 0, 0}, 0) ? 0 : 1;
                  },
                  {.screenSpacePasses = true});
        const Pair pair{tiled, whole, kWidth, kHeight};
        EXPECT_EQ(tiles, (kWidth / kKept + 1) * (kHeight / kKept + 1));
        EXPECT_EQ(borders, tiles);
        EXPECT_LE(pair.strangers(2), 20) << zoomWidth;
    }
}

TEST_F(TiledBitmapTest, DrawsInATileOnlyWhatItMayShow) {
    prepare(false);
    const Bitmap tiled(kWidth, kHeight, 24);
    drawFromView(256, 256, tiled); // builds
    const uint64_t before = glWork().drawCalls;
    drawFromView(256, 256, tiled);
    const uint64_t calls = glWork().drawCalls - before;
    constexpr uint64_t kTiles = 11 * 8;
    constexpr uint64_t kBatches = 61 + 1;
    EXPECT_LT(calls, kTiles * kBatches / 8);
    EXPECT_GT(calls, kBatches);
}

/// Nothing about the plate is symmetric, so that mirrored or shifted pictures differ.
TEST_F(TiledBitmapTest, FillsAVeryLargeBitmapFromASmallView) {
    constexpr int kSide = 8192;
    constexpr double kPixelsPerUnit = kSide / 20.0;
    scene_ = std::make_unique<SceneFixture>();
    scene_->addMaterial(plainMaterial());
    scene_->addObject();
    scene_->addFace(plate(-8, -7, 5, 2));
    scene_->commit();
    scene_->look({0, 0, 10}, {0, 0, 0}, 3.14159265358979 / 2);
    scene_->scene().drawingOptions = kOptionBackgroundColor;
    scene_->scene().drawingBackgroundColor = 0xc08040;
    prepare(false);
    renderer_->choices.edgeMode = EdgeMode::None;
    renderer_->choices.drawFaces = false;
    resizeOwnWindow(1024, 1024);
    const Bitmap bitmap(kSide, kSide, 24);
    drawFromView(1024, 1024, bitmap);
    const auto pixel = [](double x) { return static_cast<int>((x + 10.0) * kPixelsPerUnit); };
    const int left = pixel(-8), right = pixel(5), bottom = pixel(-7), top = pixel(2);
    int wrong = 0;
    for (int y = 0; y < kSide; y += y % 256 >= 254 ? 1 : 2)
        for (const int x : {0, left - 3, left + 3, 2047, 2048, 4096, right - 3, right + 3, 8191}) {
            const bool inside = x > left && x < right && y > bottom && y < top;
            const bool onBorder = std::abs(y - bottom) < 3 || std::abs(y - top) < 3;
            const Pixel expected = inside ? Pixel{255, 255, 255} : Pixel{0x40, 0x80, 0xc0};
            wrong += onBorder || isNear(bitmap.at(x, y), expected, 1) ? 0 : 1;
        }
    EXPECT_EQ(wrong, 0);
}

} // namespace
} // namespace ogl::test
