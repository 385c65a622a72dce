// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "bench_frame.h"

#include "bare_frame.h"
#include "bench_scene.h"
#include "drawing_renderer.h"
#include "figures.h"
#include "fixed/surfaces/scene_batches.h"
#include "hidden_view.h"

#include <algorithm>
#include <memory>

namespace ogl::bench {

namespace {

constexpr int kWidth = 1024;
constexpr int kHeight = 768;
constexpr int kRounds = 5;
constexpr int kFrames = 60;

/// Building and uploading, without the drawing.
Cost rebuildCost(HiddenView& view, int materials) {
    const auto fixture = std::make_unique<test::SceneFixture>();
    makeScene(*fixture, millionTriangles(materials));
    const auto renderer = makeDrawingRenderer(view, kWidth, kHeight, fixture->scene());
    SceneBatches batches;
    return leastCost(kRounds, [&] {
        batches.rebuildAll(*renderer, {});
        glFinish();
    });
}

struct FrameTimes {
    Cost ours;
    Cost bare;
};

FrameTimes frameTimes(HiddenView& view, const SceneSize& size) {
    const auto fixture = std::make_unique<test::SceneFixture>();
    makeScene(*fixture, size);
    const auto renderer = makeDrawingRenderer(view, kWidth, kHeight, fixture->scene());
    const auto ours = [&] {
        renderer->drawToWindow(view.context().primary);
        glFinish();
    };
    ours(); // builds
    ColorVertexArray edges;
    buildDrawingEdges(fixture->scene(), size.objects, edges);
    const BareFrame bareFrame(fixture->view(), size.materials, edges);
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
    HiddenView view(kWidth, kHeight);
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
