// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "raytrace/ray_trace_renderer.h"

#include "fixed/overlays/frame_overlays.h"
#include "fixed/overlays/overlay_state.h"
#include "gpu/gl_debug.h"
#include "platform/gl_surface.h"
#include "raytrace/scene_packer.h"
#include "render/error_log.h"
#include "render/program_sources.h"
#include "render/render_context.h"
#include "scene/record_views.h"

#include <new>

namespace ogl {

namespace {

constexpr ProgramSource kTraceSource{"imgRayTrace", 131, 132};
constexpr ProgramSource kFinalSource{"imgRayFinal", 133, 134};
constexpr uint32_t kRepackMark = 0x1; // of the low three, the one that rays take
constexpr int kTraceAttachments = 3;
constexpr float kPreviewGrey = 0.5f;

/// Clears the mark in every entry of the host's cache; true when any had it.
bool takeRepackMarks(const VIEW& view) {
    bool any = false;
    for (int k = 0; k < cacheEntryCount(view); ++k) {
        CACHEENTRY& entry = *cacheEntry(view, k);
        any = any || (entry.changeFlags & kRepackMark) != 0;
        entry.changeFlags &= ~kRepackMark;
    }
    return any;
}

/// Overlays alone; this renderer shows no heads-up display.
void drawOverlays(const Renderer& renderer, const GLSurface& surface) {
    const VIEW* view = viewOf(*renderer.scene);
    if (view == nullptr || (view->flags & (kViewNoSelection | kViewNoOverlays)) != 0 ||
        renderer.width < 1 || renderer.height < 1)
        return;
    setOverlayState();
    drawSceneOverlays(*renderer.scene, *view);
    if (surface.isSecondary == 0)
        drawViewOverlays(renderer, *view, surface.window);
    leaveOverlayState();
}

} // namespace

RayTraceRenderer::RayTraceRenderer(RenderContext& creator) : Renderer(creator) {
    kind = kRayTraceRenderer;
}

RayTraceRenderer::~RayTraceRenderer() = default;

int RayTraceRenderer::createResources() {
    const VIEW* view = scene != nullptr ? viewOf(*scene) : nullptr;
    if (view != nullptr)
        takeRepackMarks(*view); // or the first frame would pack once more
    packScene();
    if (traceProgram_ == nullptr)
        traceProgram_ = buildProgram(kTraceSource, 0, *errorLog);
    if (finalProgram_ == nullptr)
        finalProgram_ = buildProgram(kFinalSource, 0, *errorLog);
    iteration = 0;
    return 0;
}

void RayTraceRenderer::releaseResources() {
    textures_.release();
    traceProgram_.reset();
    finalProgram_.reset();
    traceTargets_.clear();
    preview_.reset();
    packed_ = PackedScene{};
    packedScene_ = nullptr;
}

void RayTraceRenderer::packScene() {
    iteration = 0;
    preview_.reset();
    packedScene_ = scene;
    sceneBounds = Box{};
    packed_ = PackedScene{};
    if (scene == nullptr)
        return;
    try {
        const int side = textureSideLimit > 0 ? textureSideLimit : largestTextureSide();
        if (!ogl::packScene(*scene, side, packed_))
            refusePacking("The scene is too large to ray trace");
        uploadPacked();
    } catch (const std::bad_alloc&) {
        refusePacking("No memory to ray trace the scene");
        uploadPacked();
    }
    sceneBounds = packed_.bounds;
}

void RayTraceRenderer::refusePacking(const char* reason) {
    packed_ = PackedScene{};
    errorLog->writeOnce("Error", reason, "");
}

void RayTraceRenderer::uploadPacked() {
    if (!textures_.upload(packed_)) {
        refusePacking("No memory to ray trace the scene");
        textures_.upload(packed_);
    }
    preview_ = std::make_unique<VertexArray>();
    preview_->positions.swap(packed_.vertices);
    preview_->upload(GL_TRIANGLES);
    preview_->positions.swap(packed_.vertices);
}

int RayTraceRenderer::drawToWindow(const GLSurface& surface) {
    if (scene == nullptr)
        return 1;
    deleteReleasedObjects();
    setSizeFromWindow(surface);
    repackIfChanged();
    fitTarget();
    camera.apply();
    iteration = 0;
    rayCamera_ = ogl::rayCamera(*scene, width, height);
    drawPreview();
    drawOverlays(*this, surface);
    choices.drawFlags &= ~kDrawOnce;
    return 1;
}

int RayTraceRenderer::drawToBitmap(HBITMAP) {
    return 1;
}

int RayTraceRenderer::drawToFile(const char*) {
    return 1;
}

void RayTraceRenderer::repackIfChanged() {
    const VIEW* view = viewOf(*scene);
    const bool marked = view != nullptr && takeRepackMarks(*view);
    if (marked || packedScene_ != scene)
        packScene();
}

void RayTraceRenderer::fitTarget() {
    std::unique_ptr<RenderTarget>& target = traceTargets_.here();
    if (target != nullptr && (target->width() != width || target->height() != height))
        target.reset();
    if (target != nullptr || width < 1 || height < 1)
        return;
    target = std::make_unique<RenderTarget>(targetBlocks.data());
    target->create({.kind = TargetKind::Rectangle,
                    .width = width,
                    .height = height,
                    .colorCount = kTraceAttachments,
                    .depth = DepthMode::None,
                    .samples = 0,
                    .format = ColorFormat::Rgba32f});
}

void RayTraceRenderer::drawPreview() {
    const DebugGroup group("ray-trace preview");
    glReadBuffer(GL_BACK);
    glDrawBuffer(GL_BACK);
    clearTo(0.0f, 0.0f, 0.0f);
    glEnable(GL_MULTISAMPLE);
    glEnable(GL_CULL_FACE);
    glEnable(GL_DEPTH_TEST);
    glDisable(GL_BLEND);
    glDisable(GL_LIGHTING);
    glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
    glColor3f(kPreviewGrey, kPreviewGrey, kPreviewGrey);
    unbindAllArrays();
    if (preview_ != nullptr)
        preview_->draw(kDrawPositions);
    unbindAllArrays();
}

} // namespace ogl
