// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "bench_frame.h"

#include "bare_frame.h"
#include "bench_scene.h"
#include "bench_view.h"
#include "figures.h"
#include "fixed/edge_builder.h"
#include "fixed/fixed_renderer.h"
#include "fixed/scene_batches.h"

#include <algorithm>
#include <memory>

namespace ogl::bench {

namespace {

constexpr int kWidth = 1024;
constexpr int kHeight = 768;
constexpr int kRounds = 5;
constexpr int kFrames = 60;

/// A renderer with the per-call fields of render mode 10.
std::unique_ptr<FixedRenderer> makeRenderer(BenchView& view, SCENE& scene) {
    auto renderer = std::make_unique<FixedRenderer>(view.context());
    renderer->resetGLState();
    renderer->createResources();
    renderer->scene = &scene;
    renderer->drawFlags = kDrawFullQuality;
    renderer->textureMode = kTexturesSharedOnly;
    renderer->colorMode = kColorsWhite;
    renderer->drawFaces = 1;
    renderer->singleColorEdges = 1;
    renderer->setSize(kWidth, kHeight);
    renderer->setupCamera(scene);
    return renderer;
}

/// Building and uploading, without the drawing.
Cost rebuildCost(BenchView& view, int materials) {
    const auto fixture = std::make_unique<test::SceneFixture>();
    makeScene(*fixture, millionTriangles(materials));
    const auto renderer = makeRenderer(view, fixture->scene());
    SceneBatches batches;
    const Cost cost = leastCost(kRounds, [&] {
        batches.rebuildAll(*renderer, Box{});
        glFinish();
    });
    batches.release();
    return cost;
}

/// The renderer keeps its edges to itself: the bare program gets the same ones again.
void buildEdges(const SCENE& scene, int objects, ColorVertexArray& edges) {
    const EdgeBuilder builder(scene, {.silhouettes = true, .edgesOnly = false});
    ColorVertexArray silhouettes;
    builder.reserve(objects, edges, &silhouettes);
    for (int k = 0; k < objects; ++k)
        builder.append(k, edges, &silhouettes);
    edges.upload(GL_LINES);
}

struct FrameTimes {
    Cost ours;
    Cost bare;
};

void keepLeast(Cost& least, const Cost& cost) {
    least.time = std::min(least.time, cost.time);
    least.processorTime = std::min(least.processorTime, cost.processorTime);
}

FrameTimes frameTimes(BenchView& view, const SceneSize& size) {
    const auto fixture = std::make_unique<test::SceneFixture>();
    makeScene(*fixture, size);
    const auto renderer = makeRenderer(view, fixture->scene());
    const auto ours = [&] {
        renderer->drawToWindow(view.context().primary);
        glFinish();
    };
    ours(); // builds
    ColorVertexArray edges;
    buildEdges(fixture->scene(), size.objects, edges);
    const BareFrame bareFrame(fixture->view(), size.materials, edges.positionBuffer.name(),
                              edges.vertexCount);
    const auto bare = [&] {
        renderer->camera.apply();
        bareFrame.draw();
        glFinish();
    };
    FrameTimes times;
    for (int i = 0; i < kFrames; ++i) { // taking turns, so that both see the same neighbours
        keepLeast(times.bare, leastCost(1, bare));
        keepLeast(times.ours, leastCost(1, ours));
    }
    return times;
}

void printFrame(const char* scene, FrameTimes times) {
    char name[64];
    std::snprintf(name, sizeof name, "frame_%s", scene);
    printFigure(name, times.ours.time, "ms");
    std::snprintf(name, sizeof name, "bare_frame_%s", scene);
    printFigure(name, times.bare.time, "ms");
    std::snprintf(name, sizeof name, "frame_to_bare_%s", scene);
    printRatio(name, times.ours, times.bare);
}

} // namespace

bool benchFrame() {
    BenchView view(kWidth, kHeight);
    if (!view.isReady())
        return false;
    const Cost few = rebuildCost(view, 20);
    const Cost many = rebuildCost(view, 500);
    printFigure("rebuild_and_upload_1m_triangles_20_materials", few.time, "ms");
    printFigure("rebuild_and_upload_1m_triangles_500_materials", many.time, "ms");
    printRatio("rebuild_and_upload_500_to_20_materials", many, few);
    printFrame("8000_batches", frameTimes(view, {4000, 8, 50, 2}));
    printFrame("few_batches", frameTimes(view, {200, 400, 20, 2}));
    return true;
}

} // namespace ogl::bench
