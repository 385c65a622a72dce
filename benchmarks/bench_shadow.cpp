// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "bench_shadow.h"

#include "bare_frame.h"
#include "bench_scene.h"
#include "drawing_renderer.h"
#include "figures.h"
#include "fixed/forward/shadow_renderer.h"
#include "gpu/texture.h"
#include "hidden_view.h"

#include <memory>
#include <string>

namespace ogl::bench {

namespace {

constexpr int kWidth = 1024;
constexpr int kHeight = 768;
constexpr int kFrames = 40;

/// Lets the bare program use the same GLSL program and shadow map.
class OpenShadowRenderer : public ShadowRenderer {
  public:
    using ShadowRenderer::ShadowRenderer;

    unsigned program() { return objectProgram()->programId(); }
    void bindMaps() {
        bindTexture(5, TextureKind::Repeating, jitterTexture_.name(), GL_NEAREST, 1.0f);
        kept().sun->bindShadowMap(4);
        glActiveTexture(GL_TEXTURE0);
    }
    bool isReady() { return objectProgram() != nullptr && kept().sun != nullptr; }
};

std::unique_ptr<OpenShadowRenderer> makeRenderer(HiddenView& view, SCENE& scene) {
    auto renderer = std::make_unique<OpenShadowRenderer>(view.context());
    renderer->choices.drawFlags = kDrawFullQuality | kDrawShadows | kDrawInlineTextures;
    renderer->scene = &scene;
    renderer->resetGLState();
    renderer->createResources();
    renderer->choices.textureMode = TextureMode::All;
    renderer->choices.drawFaces = true;
    renderer->choices.singleColorEdges = true;
    renderer->setSize(kWidth, kHeight);
    renderer->setupCamera(scene);
    return renderer;
}

bool measure(HiddenView& view, const char* name, const SceneSize& size) {
    const auto fixture = std::make_unique<test::SceneFixture>();
    LIGHT sun{};
    sun.target = {0.5f, 0.3f, -0.8f};
    sun.color = {0.2f, 0.2f, 0.2f};
    fixture->addLight(sun);
    makeScene(*fixture, size);
    const auto renderer = makeRenderer(view, fixture->scene());
    const auto ours = [&] {
        renderer->drawToWindow(view.context().primary);
        glFinish();
    };
    const Cost first = leastCost(1, ours); // builds and draws the shadow map
    if (!renderer->isReady())
        return false;
    ColorVertexArray edges;
    buildDrawingEdges(fixture->scene(), size.objects, edges);
    const BareFrame bareFrame(fixture->view(), size.materials, edges);
    const auto bare = [&] {
        renderer->camera.apply();
        renderer->bindMaps();
        bareFrame.drawShaded(renderer->program());
        glFinish();
    };
    Cost oursLeast;
    Cost bareLeast;
    Cost marked;
    for (int i = 0; i < kFrames; ++i) { // taking turns, so that both see the same neighbours
        keepLeast(bareLeast, leastCost(1, bare));
        keepLeast(oursLeast, leastCost(1, ours));
    }
    for (int i = 0; i < 3; ++i) {
        fixture->geometry().flags = kGeometryShadowsChanged;
        keepLeast(marked, leastCost(1, ours));
    }
    const std::string scene = name;
    printFigure(("shadow_first_frame_" + scene).c_str(), first.time, "ms");
    printFigure(("shadow_frame_" + scene).c_str(), oursLeast.time, "ms");
    printFigure(("shadow_frame_with_new_map_" + scene).c_str(), marked.time, "ms");
    printFigure(("shadow_bare_frame_" + scene).c_str(), bareLeast.time, "ms");
    printRatio(("shadow_frame_to_bare_" + scene).c_str(), oursLeast, bareLeast);
    return true;
}

} // namespace

bool benchShadow() {
    HiddenView view(kWidth, kHeight);
    return view.isReady() && measure(view, "8000_batches", {4000, 8, 50, 2}) &&
           measure(view, "few_batches", {200, 400, 20, 2});
}

} // namespace ogl::bench
