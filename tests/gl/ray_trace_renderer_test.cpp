// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// The renderer's frame and what it keeps ready for tracing.
#include "raytrace/ray_trace_renderer.h"

#include "gl/gl_fixture.h"
#include "platform/own_window.h"

#include <algorithm>
#include <cstring>
#include <filesystem>

namespace ogl::test {
namespace {

constexpr Pixel kBlack{0, 0, 0};
constexpr Pixel kGrey{128, 128, 128};

class RayTraceRendererTest : public GLTest {
  protected:
    void SetUp() override {
        GLTest::SetUp();
        scene_->scene().renderMode = kRenderModePhoto;
        scene_->geometry().backgroundColor = 0x00ff00;
        scene_->addMaterial(plainMaterial());
    }
    RayTraceRenderer& selectRayTrace() { return select<RayTraceRenderer>(); }
    /// Moves the first corner of the record's first triangle, as a host does.
    void moveFirstCorner(float x) {
        const LIST bytes = scene_->geometry().faceTriangles.items;
        std::memcpy(bytes.data.get(), &x, sizeof x);
    }
    std::string log() const { return readFile(folder_.file("ogl.log")); }
};

bool isGrey(Pixel p) {
    return isNear(p, kGrey, 1);
}

TEST_F(RayTraceRendererTest, ShowsFrontFacesGreyOnBlack) {
    scene_->addObject();
    scene_->addFace(plate(-6, -6, 2, 2, 0));
    scene_->addObject(0x2000); // hidden
    scene_->addFace(plate(4, 4, 9, 9));
    scene_->addObject();
    FaceShape behind = plate(4, -9, 9, -4);
    std::swap(behind.triangles[1], behind.triangles[2]);
    std::swap(behind.triangles[4], behind.triangles[5]);
    scene_->addFace(behind);
    scene_->commit();
    RayTraceRenderer& renderer = selectRayTrace();
    renderer.choices.drawFlags = kDrawFullQuality | kDrawOnce;
    for (const char* frame : {"first", "second"}) {
        const Picture picture = drawFrame();
        EXPECT_TRUE(isGrey(pixelAt(picture, -5.8f, -5.8f))) << frame;
        EXPECT_TRUE(isGrey(pixelAt(picture, 1.8f, 1.8f))) << frame;
        EXPECT_TRUE(isNear(pixelAt(picture, 2.2f, 0), kBlack, 0)) << frame;
        EXPECT_TRUE(isNear(pixelAt(picture, -6.2f, 0), kBlack, 0)) << frame;
        EXPECT_TRUE(isNear(pixelAt(picture, 6, 6), kBlack, 0)) << frame;
        EXPECT_TRUE(isNear(pixelAt(picture, 6, -6), kBlack, 0)) << frame;
        EXPECT_EQ(picture.count(0, 0, kViewSize, kViewSize, isGrey), 80 * 80) << frame;
    }
    EXPECT_EQ(renderer.choices.drawFlags, kDrawFullQuality);
}

TEST_F(RayTraceRendererTest, LaysOverlaysOverThePreviewButNoHeadsUpDisplay) {
    scene_->addObject();
    scene_->addFace(plate(-4, -4, 4, 4));
    scene_->commit();
    scene_->view().tooltipText[0] = 'A';
    scene_->view().tooltip = {100, 30};
    scene_->scene().hudFlags = kHudStatistics;
    const LIST objects = scene_->objects();
    static_cast<OBJECT*>(objects.data.get())[0].highlight = kHighlightSelected;
    selectRayTrace();
    const auto isRed = [](Pixel p) { return p.red > 200 && p.green < 120 && p.blue < 120; };
    const auto isYellow = [](Pixel p) { return p.red > 240 && p.green > 240 && p.blue < 220; };
    const struct Row {
        uint32_t flags;
        bool overlays;
    } rows[] = {{0, true}, {kViewNoOverlays, false}, {kViewNoSelection, false}, {0, true}};
    for (const Row& row : rows) {
        scene_->view().flags = row.flags;
        const Picture picture = drawFrame();
        EXPECT_EQ(picture.count(0, 0, kViewSize, kViewSize, isRed) > 50, row.overlays) << row.flags;
        EXPECT_EQ(picture.count(0, 150, kViewSize, kViewSize, isYellow) > 50, row.overlays)
            << row.flags;
        EXPECT_TRUE(isGrey(pixelAt(picture, 0, 0))) << row.flags;
        // The statistics would stand in the upper left corner.
        EXPECT_EQ(picture.count(0, 150, 90, kViewSize, [](Pixel p) { return p.red > 0; }), 0);
    }
    renderer_->setSize(kViewSize, kViewSize);
    GLSurface second = context_->primary;
    second.isSecondary = 1;
    scene_->view().flags = 0;
    renderer_->setupCamera(scene_->scene());
    renderer_->drawToWindow(second);
    const Picture picture = Picture::read(kViewSize, kViewSize);
    EXPECT_GT(picture.count(0, 0, kViewSize, kViewSize, isRed), 50);
    EXPECT_EQ(picture.count(0, 150, kViewSize, kViewSize, isYellow), 0); // no pixel overlays
}

TEST_F(RayTraceRendererTest, PacksAgainWhenAnObjectIsMarked) {
    scene_->addObject();
    scene_->addFace(plate(-4, -4, 4, 4));
    scene_->addObject();
    scene_->addFace(plate(5, -4, 6, 4));
    scene_->commit();
    RayTraceRenderer& renderer = selectRayTrace();
    drawFrame();
    EXPECT_EQ(scene_->entry(0).changeFlags, 0u);
    EXPECT_EQ(renderer.sceneBounds.min.x, -4.0f);

    moveFirstCorner(-7);
    renderer.iteration = 5;
    scene_->entry(1).changeFlags = 0x6; // of other renderers
    drawFrame();
    EXPECT_EQ(renderer.sceneBounds.min.x, -4.0f);
    EXPECT_EQ(scene_->entry(1).changeFlags, 0x6u);
    EXPECT_EQ(renderer.iteration, 0);

    scene_->entry(1).changeFlags = 0x7;
    scene_->entry(0).changeFlags = 0x1;
    drawFrame();
    EXPECT_EQ(renderer.sceneBounds.min.x, -7.0f);
    EXPECT_EQ(scene_->entry(0).changeFlags, 0u);
    EXPECT_EQ(scene_->entry(1).changeFlags, 0x6u);

    // The bounds are those of this pack alone.
    moveFirstCorner(-3);
    scene_->entry(0).changeFlags = 0x1;
    const Picture picture = drawFrame();
    EXPECT_EQ(renderer.sceneBounds.min.x, -4.0f); // the second triangle's corner
    EXPECT_TRUE(isNear(pixelAt(picture, -3.9f, -2.0f), kBlack, 0));
    EXPECT_EQ(renderer.packed().triangleCount(), 4);
}

TEST_F(RayTraceRendererTest, PacksAnotherScene) {
    scene_->addObject();
    scene_->addFace(plate(-4, -4, 4, 4));
    scene_->commit();
    RayTraceRenderer& renderer = selectRayTrace();
    drawFrame();
    SceneFixture other;
    other.addMaterial(plainMaterial());
    other.addObject();
    other.addFace(plate(-1, -1, 1, 1));
    other.commit();
    other.entry(0).changeFlags = 0;
    renderer.scene = &other.scene();
    drawFrame();
    EXPECT_EQ(renderer.sceneBounds.min.x, -1.0f);
    renderer.scene = &scene_->scene();
}

TEST_F(RayTraceRendererTest, TheTargetFollowsTheWindowsSize) {
    scene_->addObject();
    scene_->commit();
    RayTraceRenderer& renderer = selectRayTrace();
    drawFrame();
    ASSERT_NE(renderer.traceTarget(), nullptr);
    const RenderTarget* first = renderer.traceTarget();
    drawFrame();
    EXPECT_EQ(renderer.traceTarget(), first);
    const int textures = liveObjects(GLKind::Texture);
    resizeOwnWindow(90, 60);
    renderer.drawToWindow(context_->primary);
    const TargetLayout layout = renderer.traceTarget()->layout();
    EXPECT_EQ(layout.width, 90);
    EXPECT_EQ(layout.height, 60);
    EXPECT_EQ(liveObjects(GLKind::Texture), textures);
    renderer.releaseResources();
    EXPECT_EQ(liveObjects(GLKind::Texture), textures - 6 - 3);
    EXPECT_EQ(liveObjects(GLKind::Program), 0);
    EXPECT_EQ(renderer.packed().triangleCount(), 0);
}

TEST_F(RayTraceRendererTest, RefusesASceneThatIsTooLargeOnce) {
    scene_->addObject();
    for (int i = 0; i < 60; ++i)
        scene_->addFace(plate(-4, -4, 4, 4, 0.01f * static_cast<float>(i)));
    scene_->commit();
    RayTraceRenderer& renderer = selectRayTrace();
    renderer.textureSideLimit = 16;
    for (int frame = 0; frame < 2; ++frame) {
        scene_->entry(0).changeFlags = 1;
        const Picture picture = drawFrame();
        EXPECT_TRUE(isNear(pixelAt(picture, 0, 0), kBlack, 0));
        EXPECT_EQ(renderer.packed().triangleCount(), 0);
    }
    EXPECT_EQ(renderer.sceneBounds.min.x, Box{}.min.x);
    const std::string text = log();
    const size_t entry = text.find("too large to ray trace");
    ASSERT_NE(entry, std::string::npos) << text;
    EXPECT_EQ(text.find("too large to ray trace", entry + 1), std::string::npos) << text;
    renderer.textureSideLimit = 0;
    scene_->entry(0).changeFlags = 1;
    EXPECT_TRUE(isGrey(pixelAt(drawFrame(), 0, 0)));
}

TEST_F(RayTraceRendererTest, DrawsIntoNoBitmapAndNoFile) {
    scene_->addObject();
    scene_->addFace(plate(-4, -4, 4, 4));
    scene_->commit();
    RayTraceRenderer& renderer = selectRayTrace();
    const Bitmap bitmap(kViewSize, kViewSize, 24);
    EXPECT_EQ(renderer.drawToBitmap(bitmap.handle()), 1);
    EXPECT_TRUE(bitmap.isUntouched());
    EXPECT_EQ(renderer.drawToFile(folder_.hostFile("none.bmp").c_str()), 1);
    EXPECT_FALSE(std::filesystem::exists(folder_.file("none.bmp")));
}

} // namespace
} // namespace ogl::test
