// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/drawing/edge_renderer.h"

#include "fixed/batches/edge_builder.h"
#include "fixed/drawing/site_box.h"
#include "fixed/overlays/frame_overlays.h"
#include "fixed/surfaces/scene_batches.h"
#include "gpu/gl_debug.h"
#include "render/bitmap_frame.h"
#include "render/process_state.h"
#include "scene/record_views.h"

namespace ogl {

EdgeRenderer::EdgeRenderer(RenderContext& creator) : Renderer(creator) {
    kind = kEdgeRenderer;
}

EdgeRenderer::~EdgeRenderer() = default;

int EdgeRenderer::createResources() {
    kept_.clear();
    return 0;
}

void EdgeRenderer::releaseResources() {
    kept_.clear();
}

int EdgeRenderer::drawToWindow(const GLSurface& surface) {
    if (scene == nullptr)
        return 1;
    deleteReleasedObjects();
    refreshBatches();
    drawScene();
    drawFrameOverlays(*this, surface);
    choices.drawFlags &= ~kDrawOnce;
    return 1;
}

int EdgeRenderer::drawToBitmap(HBITMAP bitmap) {
    if (scene == nullptr)
        return 1;
    deleteReleasedObjects();
    refreshBatches();
    drawFrameToBitmap(*this, bitmap, [this] { drawScene(); });
    return 1;
}

int EdgeRenderer::drawToFile(const char*) {
    return 1;
}

EdgeRenderer::EdgeScene& EdgeRenderer::built() {
    return kept_.of(*scene,
                    [this](const EdgeScene& kept) { return kept.parked.areIn(viewOf(*scene)); });
}

void EdgeRenderer::refreshBatches() {
    const VIEW* view = viewOf(*scene);
    EdgeScene& kept = built();
    const bool due = processState().sceneChanged != 0 || kept.edges == nullptr ||
                     (view != nullptr && anyObjectChanged(*view, kObjectChanged));
    if (due)
        rebuild(kept);
}

void EdgeRenderer::rebuild(EdgeScene& built) {
    processState().sceneChanged = 1; // until all is built: memory may run out on the way
    const VIEW* view = viewOf(*scene);
    const int count = view != nullptr ? cacheEntryCount(*view) : 0;
    const SceneLists lists(*scene);
    const EdgeBuilder builder(*scene, {.silhouettes = false, .edgesOnly = true});
    sceneBounds = Box{};
    built.parked = {};
    built.edges = std::make_unique<ColorVertexArray>();
    builder.reserve(count, *built.edges, nullptr);
    for (int k = 0; k < count; ++k) {
        CACHEENTRY& entry = *cacheEntry(*view, k);
        releaseBatchesOf(entry);
        entry.changeFlags &= ~kObjectChanged;
        if (!lists.isDrawn(k))
            continue;
        built.parked.park(entry);
        const int edges = builder.append(k, *built.edges, nullptr);
        entry.edgeCount = static_cast<uint32_t>(edges);
        if (edges != 0)
            entry.edgeRecord = makeBatchSet();
    }
    if (!built.edges->positions.empty())
        built.edges->upload(GL_LINES);
    objectCount = count;
    processState().sceneChanged = 0;
}

void EdgeRenderer::drawScene() {
    const DebugGroup group("edge drawing");
    clearTo(1.0f, 1.0f, 1.0f);
    camera.apply();
    drawEdges();
    drawSiteBox(*scene);
}

void EdgeRenderer::drawEdges() {
    glEnable(GL_MULTISAMPLE);
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glEnable(GL_SAMPLE_ALPHA_TO_COVERAGE);
    glDisable(GL_DEPTH_TEST);
    glDisable(GL_CULL_FACE);
    glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
    glDisable(GL_POINT_SPRITE);
    glDisable(GL_LINE_STIPPLE);
    glLineWidth(1.0f);
    unbindAllArrays();
    built().edges->drawWithin(tileVolume, kDrawPositions | kDrawColors, GL_LINES);
    unbindAllArrays();
    glDisable(GL_SAMPLE_ALPHA_TO_COVERAGE);
    glDisable(GL_BLEND);
}

} // namespace ogl
