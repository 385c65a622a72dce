// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "gl/photo_fixture.h"
#include "gl/window_fixture.h"
#include "gpu/gl_objects.h"
#include "platform/gl_surface.h"
#include "platform/own_window.h"

#include <limits>

namespace ogl {
namespace {

using test::isNear;
using test::Picture;
using test::Pixel;
using test::plate;

constexpr Pixel kBrick{180, 90, 60};

/// When the photo renderer does what again, and what it makes of odd scenes.
class DeferredRulesTest : public test::PhotoTest {
  protected:
    DeferredRenderer& photo() { return static_cast<DeferredRenderer&>(*renderer_); }
    void addWall() {
        scene_->addObject();
        scene_->addFace(plate(-5, -5, 5, 5, 0, static_cast<int16_t>(addColored(kBrick))));
    }
    /// Shadow maps that a frame draws.
    int mapsOfFrame() {
        const int before = photo().shadowMapsDrawn();
        drawFrame();
        return photo().shadowMapsDrawn() - before;
    }
};

TEST_F(DeferredRulesTest, ShadowMapsAreDrawnOnlyWhenTheyChange) {
    addWall();
    setSun(30, -50);
    addLamps({test::spotLamp({1, 0, 3}, {1, 0, 0}, {1, 1, 1}, 40),
              test::pointLamp({-3, 0, 2}, {1, 1, 1}),
              test::spotLamp({2, 0, 3}, {2, 0, 0}, {1, 1, 1}, 40)});
    selectPhoto();
    SCENE& scene = scene_->scene();
    const auto mark = [&](uint32_t bits) { scene.geometry.flags = scene.geometry.flags | bits; };
    const test::Bitmap bitmap(kViewSize, kViewSize, 24);
    const struct {
        const char* name;
        std::function<void()> change;
        int maps; ///< the sun's and two of lamps
    } rows[] = {
        {"first frame", [] {}, 3},
        {"nothing", [] {}, 0},
        {"shadow mark", [&] { mark(kGeometryShadowsChanged); }, 3},
        {"the mark is taken", [] {}, 0},
        {"light mark", [&] { mark(kGeometryLightsChanged); }, 3},
        {"the mark is taken too", [] {}, 0},
        {"camera",
         [&] {
             scene_->look({1, 0, 9}, {0, 0, 0}, 1.5);
         },
         0},
        {"sun's colour", [&] { scene.sunIntensity = 50; }, 0},
        {"sun's direction", [&] { scene.sunAzimuthAngle = 31; }, 3},
        {"object", [&] { scene_->entry(0).changeFlags = 1; }, 3},
        {"shadows off", [&] { renderer_->choices.drawFlags = kDrawFullQuality; }, 0},
        {"change without shadows", [&] { scene.sunAzimuthAngle = 40; }, 0},
        {"shadows on again",
         [&] { renderer_->choices.drawFlags = kDrawFullQuality | kDrawShadows; }, 3},
        {"a bitmap in between", [&] { photo().drawToBitmap(bitmap.handle()); }, 0},
        {"no sun", [&] { scene.sunIntensity = 0; }, 0},
        {"sun again", [&] { scene.sunIntensity = 50; }, 3},
    };
    for (const auto& row : rows) {
        row.change();
        EXPECT_EQ(mapsOfFrame(), row.maps) << row.name;
    }
}

TEST_F(DeferredRulesTest, ScenesInTurnKeepTheirLights) {
    addWall();
    setSun(30, -50);
    selectPhoto();
    test::SceneFixture other;
    other.addMaterial(scene_->material(0));
    other.addObject();
    other.addFace(plate(-5, -5, 5, 5));
    for (int k = 0; k < 3; ++k)
        other.addLight(k < 2 ? LIGHT{} : test::spotLamp({0, 0, 3}, {0, 0, 0}, {0.5f, 0, 0}, 40));
    other.commit();
    other.look({0, 0, 10}, {0, 0, 0}, 1.5);
    SCENE& second = other.scene();
    second.exposure = scene_->scene().exposure;
    second.toneGamma = scene_->scene().toneGamma;
    second.saturation = scene_->scene().saturation;
    second.ambientLevel = scene_->scene().ambientLevel;
    const Pixel first = shown(kBrick, sunOn({0, 0, 1}));
    const Pixel lamp = shown(kBrick, {0.35f, 0, 0});
    for (int round = 0; round < 3; ++round)
        for (SCENE* scene : {&scene_->scene(), &second}) {
            renderer_->scene = scene;
            const int before = photo().shadowMapsDrawn();
            const Pixel middle = pixelAt(drawFrame(), 0, 0);
            EXPECT_EQ(photo().shadowMapsDrawn() - before, round == 0 ? 1 : 0) << round;
            EXPECT_TRUE(isNear(middle, scene == &second ? lamp : first, 2)) << middle.red;
        }
}

TEST_F(DeferredRulesTest, LampsChangeWithTheirMark) {
    addWall();
    addLamps({test::pointLamp({0, 0, 2}, {1, 1, 1})});
    selectPhoto();
    const Pixel lit = pixelAt(drawFrame(), 0, 0);
    scene_->light(2).color = {0, 0, 0};
    EXPECT_TRUE(isNear(pixelAt(drawFrame(), 0, 0), lit, 0)); // not told
    scene_->geometry().flags = kGeometryLightsChanged | kGeometryTwoSided;
    EXPECT_TRUE(isNear(pixelAt(drawFrame(), 0, 0), shown(kBrick), 2));
    EXPECT_EQ(scene_->geometry().flags, kGeometryTwoSided);
}

TEST_F(DeferredRulesTest, EmptyScenesLeaveTheFramebuffer) {
    selectPhoto();
    glClearColor(0.2f, 0.4f, 0.6f, 1.0f);
    glClear(GL_COLOR_BUFFER_BIT);
    const Picture picture = drawFrame();
    EXPECT_TRUE(isNear(picture.at(100, 100), {51, 102, 153}, 1));
}

TEST_F(DeferredRulesTest, PreviewsShowTheirRecord) {
    addWall();
    scene_->addObject(kObjectNotDrawn);
    selectPhoto();
    drawFrame();
    scene_->view().previewMode = 1;
    scene_->view().preview.changeFlags = 1;
    EXPECT_TRUE(isNear(pixelAt(drawFrame(), 0, 0), shown(kBrick), 2));
    EXPECT_TRUE(scene_->view().preview.meshBatches);
    // A preview without a record shows nothing of the scene.
    releaseBatchesOf(scene_->view().preview);
    EXPECT_TRUE(isNear(pixelAt(drawFrame(), 0, 0), kBackground, 1));
    // A bitmap builds everything anew and shows the scene, during a preview and after it.
    for (const uint32_t mode : {1u, 0u}) {
        test::Bitmap bitmap(kViewSize, kViewSize, 24);
        scene_->view().previewMode = mode;
        scene_->entry(0).changeFlags = 2;
        photo().drawToBitmap(bitmap.handle());
        EXPECT_TRUE(isNear(bitmap.at(pixelX(0), pixelY(0)), shown(kBrick), 2)) << mode;
        EXPECT_EQ(scene_->entry(0).changeFlags, 0u) << mode;
    }
    EXPECT_TRUE(isNear(pixelAt(drawFrame(), 0, 0), shown(kBrick), 2));
}

TEST_F(DeferredRulesTest, PreviewsThatAnotherRendererBuiltAreLit) {
    addWall();
    addLamps({test::pointLamp({0, 0, 2}, {1, 1, 1})});
    setSun(30, -50);
    selectPhoto();
    const Pixel lit = pixelAt(drawFrame(), 0, 0);
    scene_->view().previewMode = 1;
    scene_->view().preview.changeFlags = 1;
    EXPECT_TRUE(isNear(pixelAt(drawFrame(), 0, 0), lit, 1));
    const DrawChoices choices = renderer_->choices;
    select<DeferredRenderer>().choices = choices;
    EXPECT_TRUE(isNear(pixelAt(drawFrame(), 0, 0), lit, 1));
    EXPECT_FALSE(isNear(lit, shown(kBrick), 10));
}

TEST_F(DeferredRulesTest, HiddenObjectsAreNotDrawn) {
    addWall();
    selectPhoto();
    drawFrame();
    static_cast<OBJECT*>(scene_->objects().data.get())->flags = 0x2000;
    EXPECT_TRUE(isNear(pixelAt(drawFrame(), 0, 0), kBackground, 1));
}

TEST_F(DeferredRulesTest, TargetsFollowTheView) {
    addWall();
    selectPhoto();
    drawFrame();
    const int textures = liveObjects(GLKind::Texture);
    const int framebuffers = liveObjects(GLKind::Framebuffer);
    for (const int side : {50, 120, 200, 33}) {
        renderer_->setSize(side, side / 2);
        renderer_->setupCamera(scene_->scene());
        renderer_->drawToWindow(context_->primary);
        EXPECT_EQ(liveObjects(GLKind::Texture), textures) << side;
        EXPECT_EQ(liveObjects(GLKind::Framebuffer), framebuffers) << side;
        EXPECT_TRUE(isNear(Picture::read(side, side / 2).at(side / 2, side / 4), shown(kBrick), 2))
            << side;
    }
    renderer_->setSize(0, 0);
    renderer_->drawToWindow(context_->primary); // a closed window
    renderer_->releaseResources();
    EXPECT_EQ(liveObjects(GLKind::Framebuffer), 0);
    EXPECT_EQ(liveObjects(GLKind::Program), 0);
}

TEST_F(DeferredRulesTest, EachWindowHasItsTargets) {
    addWall();
    setSun(30, -50);
    selectPhoto();
    drawFrame();
    const int textures = liveObjects(GLKind::Texture);
    const Pixel wall = shown(kBrick, sunOn({0, 0, 1}));
    for (int round = 0; round < 2; ++round) { // the window opens again
        const test::TestWindow window(120, 90);
        GLSurface& second = context_->secondary;
        second.window = window.handle();
        ASSERT_EQ(createContext(second, 4, 1, GetDC(window.handle())), kContextCreated);
        renderer_->resetGLState();
        for (int frame = 0; frame < 2; ++frame) {
            ASSERT_TRUE(wglMakeCurrent(second.dc, second.glContext));
            renderer_->setSize(120, 90);
            renderer_->setupCamera(scene_->scene());
            glReadBuffer(GL_BACK);
            glDrawBuffer(GL_BACK);
            renderer_->drawToWindow(second);
            const Picture small = Picture::read(120, 90);
            EXPECT_TRUE(isNear(small.at(60, 45), wall, 2)) << round;
            EXPECT_TRUE(isNear(small.at(5, 5), kBackground, 1)) << round;
            makeCurrent();
            EXPECT_TRUE(isNear(pixelAt(drawFrame(), 0, 0), wall, 2)) << round;
        }
        EXPECT_GT(liveObjects(GLKind::Texture), textures);
        tearDown(second);
        makeCurrent();
        drawFrame();
        EXPECT_EQ(liveObjects(GLKind::Texture), textures) << "targets of a closed window";
    }
}

int multisampleImages = 0;
PFNGLTEXIMAGE2DMULTISAMPLEPROC driversImage = nullptr;

void GLAPIENTRY countImage(GLenum target, GLsizei samples, GLenum format, GLsizei width,
                           GLsizei height, GLboolean fixed) {
    ++multisampleImages;
    driversImage(target, samples, format, width, height, fixed);
}

TEST_F(DeferredRulesTest, ViewsInTurnKeepTheirTargets) {
    addWall();
    setSun(30, -50);
    selectPhoto();
    RenderContext other(ownWindow(), 0u, folder_.hostFile("space.ini").c_str());
    ASSERT_TRUE(other.initializeOpenGL());
    ASSERT_TRUE(wglMakeCurrent(other.primary.dc, other.primary.glContext));
    renderer_->resetGLState();
    const Pixel wall = shown(kBrick, sunOn({0, 0, 1}));
    multisampleImages = 0;
    driversImage = glTexImage2DMultisample;
    glTexImage2DMultisample = countImage;
    for (int frame = 0; frame < 6; ++frame) {
        const GLSurface& surface = (frame % 2 == 0 ? *context_ : other).primary;
        ASSERT_TRUE(wglMakeCurrent(surface.dc, surface.glContext));
        EXPECT_TRUE(isNear(pixelAt(drawFrame(), 0, 0), wall, 2)) << frame;
    }
    glTexImage2DMultisample = driversImage;
    EXPECT_EQ(multisampleImages, 2 * 4); // three colours and depth for each view
}

TEST_F(DeferredRulesTest, DamagedRecordsDrawLess) {
    constexpr float kNoNumber = std::numeric_limits<float>::quiet_NaN();
    addWall();
    scene_->addObject(0, 1);
    test::FaceShape portal = test::quad({0, 0, 0}, {0, 0, 1}, {1, 0, 1}, {1, 0, kNoNumber}, 0);
    portal.flags = kFacePortal;
    scene_->addFace(portal);
    scene_->addFace(portal);
    addLamps({test::pointLamp({kNoNumber, 0, 2}, {1, 1, 1}),
              test::spotLamp({0, 0, 2}, {0, 0, 2}, {1, 1, 1}, 40),
              test::spotLamp({0, 0, 2}, {0, 0, 0}, {1, kNoNumber, 1}, 40),
              test::spotLamp({0, 0, 2}, {0, 0, 0}, {1, 1, 1}, -1e30f)});
    SCENE& scene = scene_->scene();
    scene.lightFlags = kLightBackgroundColor | kLightSunAndPortals;
    scene.aoStrength = 32767;
    scene.geometry.unitScale = 0.0;
    selectPhoto();
    EXPECT_TRUE(isNear(pixelAt(drawFrame(), 8, 8), kBackground, 1));
    scene.aoStrength = -100;
    EXPECT_TRUE(isNear(pixelAt(drawFrame(), -2, -2), shown(kBrick), 2));
    const LIST lights = scene.geometry.lights;
    for (const int32_t count : {-1, 0, 1 << 20}) {
        scene.geometry.lights.count = count;
        scene.geometry.lights.data = nullptr;
        drawFrame();
    }
    scene.geometry.lights = lights;
    for (const float number : {kNoNumber, std::numeric_limits<float>::infinity(), -1.0f}) {
        scene.exposure = number;
        scene.toneGamma = number;
        drawFrame();
    }
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

} // namespace
} // namespace ogl
