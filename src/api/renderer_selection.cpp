// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "api/renderer_selection.h"

#include "deferred/deferred_renderer.h"
#include "fixed/drawing/edge_renderer.h"
#include "fixed/drawing/fixed_renderer.h"
#include "fixed/forward/shadow_renderer.h"
#include "platform/win32.h"
#include "raytrace/ray_trace_renderer.h"
#include "render/process_state.h"
#include "render/render_context.h"
#include "render/renderer.h"

#include <memory>
#include <new>

namespace ogl {

namespace {

/// Modes that select a renderer; 9 and everything outside 7 to 11 select none.
bool selectsRenderer(int mode) {
    return mode == kRenderModeShadow || mode == kRenderModePhoto || mode == kRenderModeDrawing ||
           mode == kRenderModeEdges;
}

bool drawsMode(const Renderer& renderer, int mode) {
    switch (mode) {
    case kRenderModeShadow:
        return renderer.kind == kShadowRenderer;
    case kRenderModePhoto:
        return renderer.kind == kDeferredRenderer || renderer.kind == kRayTraceRenderer;
    case kRenderModeDrawing:
        return renderer.kind == kFixedRenderer;
    default:
        return renderer.kind == kEdgeRenderer;
    }
}

/// A new renderer for the mode; null when there is no memory.
std::unique_ptr<Renderer> makeRenderer(RenderContext& context, int mode) {
    try {
        if (mode == kRenderModeShadow)
            return std::make_unique<ShadowRenderer>(context);
        if (mode == kRenderModePhoto && context.settings.enableGPUrt == 0)
            return std::make_unique<DeferredRenderer>(context);
        if (mode == kRenderModePhoto)
            return std::make_unique<RayTraceRenderer>(context);
        if (mode == kRenderModeDrawing)
            return std::make_unique<FixedRenderer>(context);
        return std::make_unique<EdgeRenderer>(context);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

/// Puts a renderer for the mode in the place of the process's one. The surface is current. Null,
/// with no renderer left, when none can be made.
Renderer* replaceRenderer(RenderContext& context, GLSurface& surface, SCENE& scene,
                          uint32_t drawFlags, int mode) {
    ProcessState& state = processState();
    if (state.currentRenderer != nullptr) {
        destroyCurrentRenderer();
        state.sceneChanged = 1;
    }
    std::unique_ptr<Renderer> made = makeRenderer(context, mode);
    if (made == nullptr)
        return nullptr;
    made->scene = &scene;
    made->choices.drawFlags = drawFlags;
    made->resetGLState();
    made->createResources();
    surface.stateReset = true;
    state.currentRenderer = made.release();
    return state.currentRenderer;
}

/// Makes the view ready to be drawn into. Null when it has no window. A renderer whose objects went
/// with the last window goes, too.
GLSurface* enterView(RenderContext& context) {
    GLSurface* const surface = context.makeCurrent();
    ProcessState& state = processState();
    if (state.currentRenderer != nullptr &&
        state.currentRenderer->generation != contextGeneration()) {
        destroyCurrentRenderer();
        state.sceneChanged = 1;
    }
    return surface;
}

} // namespace

void destroyCurrentRenderer() {
    delete processState().currentRenderer;
    processState().currentRenderer = nullptr;
}

Renderer* selectRenderer(RenderContext& context, SCENE& scene, uint32_t drawFlags) {
    GLSurface* const surface = enterView(context);
    if (surface == nullptr)
        return nullptr;
    const int mode = scene.renderMode;
    Renderer* const current = processState().currentRenderer;
    const bool keeps = !selectsRenderer(mode) || (current != nullptr && drawsMode(*current, mode));
    Renderer* const selected =
        keeps ? current : replaceRenderer(context, *surface, scene, drawFlags, mode);
    if (selected == nullptr)
        return nullptr;
    selected->scene = &scene;
    selected->choices = choicesFor(scene, drawFlags, selected->choices);
    return selected;
}

Renderer* selectFileRenderer(RenderContext& context, SCENE& scene, uint32_t drawFlags) {
    GLSurface* const surface = enterView(context);
    if (surface == nullptr)
        return nullptr;
    Renderer* current = processState().currentRenderer;
    const bool keeps = current != nullptr && current->kind == kShadowRenderer;
    Renderer* selected =
        keeps ? current : replaceRenderer(context, *surface, scene, drawFlags, kRenderModeShadow);
    if (selected == nullptr)
        return nullptr;
    selected->scene = &scene;
    selected->choices = choicesForFile(drawFlags, selected->choices);
    return selected;
}

} // namespace ogl
