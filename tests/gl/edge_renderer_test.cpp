// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/drawing/edge_renderer.h"

#include "fixed/batches/batches.h"
#include "gl/gl_fixture.h"
#include "render/process_state.h"

namespace ogl::test {
namespace {

constexpr Pixel kWhite{255, 255, 255};

class EdgeRendererTest : public GLTest {
  protected:
    void SetUp() override {
        GLTest::SetUp();
        scene_->scene().renderMode = kRenderModeEdges;
        scene_->geometry().backgroundColor = 0x0000ff;
        scene_->addMaterial(plainMaterial());
    }
    static FaceShape colored(FaceShape face, BGR8 color, bool pen = true) {
        face.loops[0].style.color = color;
        face.loops[0].style.pen = pen ? 1 : 0;
        face.loops[0].style.penNumber = kLoopNoPen;
        return face;
    }
};

TEST_F(EdgeRendererTest, DrawsEveryOutlineInItsColorOnWhite) {
    scene_->addObject();
    // A line of one pixel covers its pixels fully when it runs along their centres.
    scene_->addFace(colored(plate(-5.95f, -5.95f, 5.95f, 5.95f, 0), {200, 40, 20}));
    scene_->addFace(colored(plate(-3.05f, -3.05f, 3.05f, 3.05f, 0), {0, 0, 100}, false));
    scene_->addObject(0x2000);
    scene_->addFace(plate(-8, -8, 8, 8));
    scene_->commit();
    select<EdgeRenderer>();
    const Picture picture = drawFrame();
    EXPECT_TRUE(isFoundNear(picture, pixelX(-5.95f), pixelY(1), {20, 40, 200}, 2));
    EXPECT_TRUE(isFoundNear(picture, pixelX(1), pixelY(5.95f), {20, 40, 200}, 2));
    EXPECT_TRUE(isNear(pixelAt(picture, 0, 0), kWhite, 0)); // no surfaces, no background colour
    EXPECT_TRUE(isNear(pixelAt(picture, -9, 0), kWhite, 0));
    EXPECT_FALSE(isFoundNear(picture, pixelX(-8), pixelY(1), {0, 0, 0}, 100)); // hidden object
    // Without a pen: alpha 0.5 blended, and half of the samples covered.
    EXPECT_NEAR(picture.mean(pixelX(-3.05f), 90, pixelX(-3.05f) + 1, 110)[1], 191, 35);
}

TEST_F(EdgeRendererTest, DrawsTheSiteBox) {
    SCENE& scene = scene_->scene();
    scene.siteWidth = 12000;
    scene.siteDepth = 8000;
    scene.siteHeight = 2000;
    scene_->addObject();
    scene_->commit();
    select<EdgeRenderer>();
    const Picture picture = drawFrame();
    // Dashes are three pixels long; a line between two pixels covers half of each.
    const auto isGreen = [](Pixel p) { return p.green >= 240 && p.blue <= 190; };
    const auto isOnBox = [&](float x, float y) {
        const int px = pixelX(x), py = pixelY(y);
        return picture.count(px - 4, py - 4, px + 5, py + 5, isGreen) > 0;
    };
    EXPECT_TRUE(isOnBox(-6, 0)); // the bottom
    EXPECT_TRUE(isOnBox(0, -4));
    EXPECT_TRUE(isOnBox(7.5f, 0)); // the top is nearer: 10 / 8 of it
    EXPECT_TRUE(isOnBox(0, 5));
    EXPECT_FALSE(isOnBox(0, 0));
    EXPECT_FALSE(isOnBox(9, 0));
}

TEST_F(EdgeRendererTest, BuildsOnceAndWhenTheSceneSaysSo) {
    scene_->addObject();
    scene_->addFace(plate(-6, -6, 6, 6));
    scene_->addFace(plate(-3, -3, 3, 3));
    scene_->commit();
    select<EdgeRenderer>();
    const auto uploads = [this] {
        const uint64_t before = glWork().uploads;
        drawFrame();
        return glWork().uploads - before;
    };
    EXPECT_EQ(uploads(), 2u);
    EXPECT_EQ(scene_->entry(0).edgeCount, 2u);
    ASSERT_NE(liveMeshBatches(scene_->entry(0).meshBatches.get()), nullptr);
    EXPECT_TRUE(scene_->entry(0).meshBatches.get()->batches.empty());
    EXPECT_EQ(uploads(), 0u);
    scene_->geometry().lights.count = 9; // the model stamp doesn't count here
    EXPECT_EQ(uploads(), 0u);
    scene_->entry(0).changeFlags = 2;
    EXPECT_EQ(uploads(), 2u);
    processState().sceneChanged = 1;
    EXPECT_EQ(uploads(), 2u);
    EXPECT_EQ(processState().sceneChanged, 0);
}

} // namespace
} // namespace ogl::test
