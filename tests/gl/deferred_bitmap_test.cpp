// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "gl/photo_fixture.h"
#include "gl/shadow_fixture.h"

namespace ogl {
namespace {

using test::Bitmap;
using test::Picture;
using test::plate;

/// Boxes on a floor, seen from the side, with all kinds of light and glass.
class DeferredBitmapTest : public test::PhotoTest {
  protected:
    void SetUp() override {
        PhotoTest::SetUp();
        const auto floor = static_cast<int16_t>(addColored({150, 140, 120}));
        const auto box = static_cast<int16_t>(addColored({90, 120, 180}));
        MATERIAL glass = test::plainMaterial();
        glass.color = {200, 120, 40};
        glass.opacity = 0.5f;
        const auto pane = static_cast<int16_t>(scene_->addMaterial(glass));
        scene_->addObject();
        scene_->addFace(plate(-40, -40, 40, 40, 0, floor));
        for (int k = 0; k < 9; ++k) {
            scene_->addObject();
            const int column = k % 3;
            const int row = k / 3;
            const float x = static_cast<float>(column) * 4 - 5;
            const float y = static_cast<float>(row) * 4 - 5;
            addBox(*scene_, {x, y, 0}, {x + 2, y + 2, 1 + 0.5f * static_cast<float>(k % 4)},
                   k == 4 ? pane : box);
        }
        scene_->look({2, -13, 8}, {0, 0, 0.5f}, 0.8);
        setSun(60, -40);
        addLamps({test::pointLamp({1, -4, 2}, {1.5f, 1.2f, 0.8f})});
    }
    /// Draws as into a view of these sizes.
    void drawInto(const Bitmap& bitmap, int viewWidth, int viewHeight) {
        renderer_->setSize(viewWidth, viewHeight);
        renderer_->setupCamera(scene_->scene());
        glReadBuffer(GL_BACK);
        glDrawBuffer(GL_BACK);
        renderer_->drawToBitmap(bitmap.handle());
    }
};

TEST_F(DeferredBitmapTest, ABitmapOfTheViewsSizeIsTheWindowsFrame) {
    scene_->scene().aoStrength = 80;
    for (const bool fxaa : {false, true}) {
        context_->settings.useFXAA = fxaa ? 1 : 0;
        selectPhoto();
        scene_->view().flags = kViewNoOverlays | kViewNoHud;
        const Picture picture = drawFrame();
        for (const int bits : {24, 32}) {
            const Bitmap bitmap(kViewSize, kViewSize, bits);
            drawInto(bitmap, kViewSize, kViewSize);
            EXPECT_EQ(test::differences(bitmap, picture, kViewSize, kViewSize), 0)
                << bits << " bits, FXAA " << fxaa;
        }
    }
}

TEST_F(DeferredBitmapTest, TilesMakeThePictureOfOneFrame) {
    constexpr int kWidth = 190; // no whole number of tiles
    constexpr int kHeight = 130;
    const struct {
        const char* name;
        uint32_t lights;
        int occlusion;
        int tolerance, most; ///< pixels may differ more: borders of surfaces
    } rows[] = {
        {"lights", 0, 0, 2, 20},
        // The pattern of samples starts anew in each tile, and the blur is no match for it.
        {"occlusion", 0, 80, 12, 60},
        {"monochrome", kLightMonochrome, 0, 2, 20},
    };
    for (const auto& row : rows) {
        SCENE& scene = scene_->scene();
        scene.aoStrength = static_cast<int16_t>(row.occlusion);
        const uint32_t before = scene.lightFlags;
        scene.lightFlags = before | row.lights;
        selectPhoto();
        const Bitmap whole(kWidth, kHeight, 32);
        drawInto(whole, kWidth, kHeight);
        const Bitmap tiled(kWidth, kHeight, 24);
        drawInto(tiled, 200, 120); // tiles of 120 x 120 that keep 30 x 30
        EXPECT_LE(test::differences(whole, tiled, kWidth, kHeight, row.tolerance), row.most)
            << row.name;
        scene.lightFlags = before;
    }
}

/// The lines of a sketch go on from one tile to the next: their noise lies over the picture.
TEST_F(DeferredBitmapTest, SketchesHaveNoSeams) {
    constexpr int kSide = 180;
    SCENE& scene = scene_->scene();
    scene.lightFlags = scene.lightFlags | kLightSketchEdges;
    scene.edgeStrength = 80;
    scene.noiseStrength = 100;
    scene.edgeColor = {20, 20, 20};
    selectPhoto();
    const Bitmap whole(kSide, kSide, 32);
    drawInto(whole, kSide, kSide);
    const Bitmap tiled(kSide, kSide, 32);
    drawInto(tiled, 200, 160);
    // The noise is stretched a little, which moves lines by less than a pixel.
    EXPECT_LE(test::differences(whole, tiled, kSide, kSide, 40), kSide * kSide / 50);
}

TEST_F(DeferredBitmapTest, WithoutABitmapOrAViewNothingIsDrawn) {
    auto& renderer = selectPhoto();
    renderer.setSize(kViewSize, kViewSize);
    renderer.drawToBitmap(nullptr);
    const Bitmap bitmap(40, 30, 32);
    drawInto(bitmap, 0, 10);
    EXPECT_TRUE(bitmap.isUntouched());
    EXPECT_EQ(renderer.shadowMapsDrawn(), 0);
}

} // namespace
} // namespace ogl
