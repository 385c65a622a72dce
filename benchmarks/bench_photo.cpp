// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "bench_photo.h"

#include "bare_frame.h"
#include "bench_scene.h"
#include "deferred/composite_pass.h"
#include "deferred/deferred_renderer.h"
#include "deferred/scene_look.h"
#include "figures.h"
#include "hidden_view.h"

#include <chrono>
#include <map>
#include <memory>
#include <string>

namespace ogl::bench {

namespace {

constexpr int kWidth = 1024;
constexpr int kHeight = 768;
constexpr int kFrames = 12;

LIGHT lamp(uint8_t kind, float x) {
    LIGHT record{};
    record.kind = kind;
    record.position = {x, 0.0f, 8.0f};
    record.target = {x, 4.0f, 0.0f};
    record.coneAngle = 45.0f;
    record.color = {3.0f, 3.0f, 2.5f};
    return record;
}

/// A sun, two spots and two points.
void addLights(test::SceneFixture& fixture) {
    for (const LIGHT& record :
         {LIGHT{}, LIGHT{}, lamp(2, -6.0f), lamp(2, 6.0f), lamp(1, -2.0f), lamp(1, 2.0f)})
        fixture.addLight(record);
    SCENE& scene = fixture.scene();
    scene.sunElevationAngle = -40;
    scene.sunColor = {255, 240, 220};
    scene.sunIntensity = 100;
}

void setLook(SCENE& scene, bool full) {
    scene.exposure = scene.toneGamma = scene.saturation = 1.0f;
    scene.ambientLevel = 50;
    scene.aoStrength = full ? 60 : 0;
    scene.lightFlags = full ? kLightSunAndPortals | kLightSunPresent | kLightSketchEdges : 0;
}

std::unique_ptr<DeferredRenderer> makeRenderer(HiddenView& view, SCENE& scene, int width,
                                               int height) {
    auto renderer = std::make_unique<DeferredRenderer>(view.context());
    renderer->choices.drawFlags = kDrawFullQuality | kDrawShadows | kDrawInlineTextures;
    renderer->scene = &scene;
    renderer->resetGLState();
    renderer->createResources();
    renderer->choices.textureMode = TextureMode::All;
    renderer->setSize(width, height);
    renderer->setupCamera(scene);
    return renderer;
}

double millisecondsSince(std::chrono::steady_clock::time_point start) {
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
        .count();
}

void measurePasses(HiddenView& view) {
    view.context().settings.useFXAA = 1;
    const auto fixture = std::make_unique<test::SceneFixture>();
    addLights(*fixture);
    makeScene(*fixture, {4000, 8, 50, 2});
    setLook(fixture->scene(), true);
    const auto renderer = makeRenderer(view, fixture->scene(), kWidth, kHeight);
    std::map<std::string, double> least;
    auto start = std::chrono::steady_clock::now();
    renderer->passDrawn = [&](const char* pass) {
        glFinish();
        const double time = millisecondsSince(start);
        const auto found = least.emplace(pass, time).first;
        found->second = std::min(found->second, time);
        start = std::chrono::steady_clock::now();
    };
    for (int i = 0; i < kFrames; ++i) {
        glFinish();
        start = std::chrono::steady_clock::now();
        renderer->drawToWindow(view.context().primary);
    }
    for (const auto& [pass, time] : least)
        printFigure(("photo_pass " + pass).c_str(), time, "ms");
}

/// The yardstick: one pass that fills a G-buffer, and one that makes the picture of it.
class BarePhoto {
  public:
    BarePhoto(DeferredRenderer& renderer, test::SceneFixture& fixture, int materials)
        : renderer_(renderer), meshes_(fixture.view(), materials, noEdges_) {
        targets_.ensure(kWidth, kHeight, nullptr, 1);
    }
    void draw() const {
        renderer_.camera.apply();
        RenderTarget& target = *targets_.gBuffer;
        target.bind();
        target.setAllDrawBuffers();
        meshes_.drawShaded(renderer_.programs().get(kObjGBuffer).programId());
        target.unbind();
        const FrameView frame{targets_, kWidth, kHeight, 1, renderer_.camera.position};
        const PictureStyle style = pictureStyle(*renderer_.scene);
        CompositePass{renderer_.programs().get(kImgFinal), frame, style, noEnvironment_, 0, false}
            .draw();
    }

  private:
    DeferredRenderer& renderer_;
    ColorVertexArray noEdges_;
    BareFrame meshes_;
    mutable FrameTargetSet targets_;
    GLTexture noEnvironment_;
};

void compareWithBare(HiddenView& view) {
    view.context().settings.useFXAA = 0;
    const SceneSize size{200, 400, 20, 2};
    const auto fixture = std::make_unique<test::SceneFixture>();
    makeScene(*fixture, size);
    setLook(fixture->scene(), false);
    const auto renderer = makeRenderer(view, fixture->scene(), kWidth, kHeight);
    const auto ours = [&] {
        renderer->drawToWindow(view.context().primary);
        glFinish();
    };
    ours();
    const BarePhoto barePhoto(*renderer, *fixture, size.materials);
    const auto bare = [&] {
        barePhoto.draw();
        glFinish();
    };
    Cost oursLeast;
    Cost bareLeast;
    for (int i = 0; i < 3 * kFrames; ++i) { // taking turns, so that both see the same neighbours
        keepLeast(bareLeast, leastCost(1, bare));
        keepLeast(oursLeast, leastCost(1, ours));
    }
    printFigure("photo_plain_frame", oursLeast.time, "ms");
    printFigure("photo_bare_frame", bareLeast.time, "ms");
    printRatio("photo_plain_frame_to_bare", oursLeast, bareLeast);
}

/// Frames of a hundred thousand objects in a small view: what remains is the processor's work.
Cost manyObjects(HiddenView& view, int materials) {
    const auto fixture = std::make_unique<test::SceneFixture>();
    makeScene(*fixture, {100000, 1, materials, 1});
    for (int m = 0; m < materials; m += 10)
        fixture->material(m).opacity = 0.5f;
    setLook(fixture->scene(), false);
    const auto renderer = makeRenderer(view, fixture->scene(), 16, 16);
    const auto frame = [&] {
        renderer->drawToWindow(view.context().primary);
        glFinish();
    };
    frame();
    return leastCost(5, frame);
}

} // namespace

bool benchPhoto() {
    HiddenView view(kWidth, kHeight);
    if (!view.isReady())
        return false;
    measurePasses(view);
    compareWithBare(view);
    const Cost few = manyObjects(view, 20);
    const Cost many = manyObjects(view, 500);
    printFigure("photo_100000_objects_20_materials", few.time, "ms");
    printFigure("photo_100000_objects_500_materials", many.time, "ms");
    printRatio("photo_500_to_20_materials", many, few);
    return true;
}

} // namespace ogl::bench
