// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "api/renderer_selection.h"

#include "fixed/edge_renderer.h"
#include "fixed/fixed_renderer.h"
#include "platform/win32.h"
#include "render/process_state.h"
#include "render/render_context.h"
#include "render/renderer.h"

#include <memory>
#include <new>
#include <string>

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

/// A new renderer for the mode; null when the library has none for it, or no memory.
std::unique_ptr<Renderer> makeRenderer(RenderContext& context, int mode) {
    try {
        if (mode == kRenderModeDrawing)
            return std::make_unique<FixedRenderer>(context);
        if (mode == kRenderModeEdges)
            return std::make_unique<EdgeRenderer>(context);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
    context.errorLog.writeOnce("Error", "No renderer for mode " + std::to_string(mode), "");
    return nullptr;
}

void setDrawingFields(Renderer& renderer, const SCENE& scene) {
    const uint32_t options = scene.drawingOptions;
    renderer.textureMode = kTexturesSharedOnly;
    renderer.drawFaces = 1;
    renderer.edgeMode = (options & kOptionHiddenEdges) != 0 ? kEdgesHiddenToo : kEdgesVisible;
    renderer.singleColorEdges = 1;
    renderer.roundEdgeEnds = (options & kOptionRoundEdgeEnds) != 0;
    renderer.colorMode = kColorsWhite;
    renderer.useLighting = 0;
}

void setEdgeFields(Renderer& renderer) {
    renderer.textureMode = kTexturesNone;
    renderer.drawFaces = 0;
    renderer.roundEdgeEnds = 0;
}

} // namespace

void destroyCurrentRenderer() {
    delete processState().currentRenderer;
    processState().currentRenderer = nullptr;
}

Renderer* selectRenderer(RenderContext& context, SCENE& scene, uint32_t drawFlags) {
    wglMakeCurrent(context.primary.dc, context.primary.glContext);
    ProcessState& state = processState();
    const int mode = scene.renderMode;
    if (!selectsRenderer(mode))
        return state.currentRenderer;

    if (state.currentRenderer == nullptr || !drawsMode(*state.currentRenderer, mode)) {
        if (state.currentRenderer != nullptr) {
            destroyCurrentRenderer();
            state.sceneChanged = 1;
        }
        std::unique_ptr<Renderer> made = makeRenderer(context, mode);
        if (made == nullptr)
            return nullptr;
        made->resetGLState();
        made->createResources();
        context.primary.stateReset = true;
        state.currentRenderer = made.release();
    }

    Renderer& renderer = *state.currentRenderer;
    if (!context.primary.stateReset) { // another view's renderer meets this one's context
        renderer.resetGLState();
        context.primary.stateReset = true;
    }
    renderer.scene = &scene;
    renderer.drawFlags = drawFlags;
    if (mode == kRenderModeDrawing)
        setDrawingFields(renderer, scene);
    else
        setEdgeFields(renderer);
    return &renderer;
}

} // namespace ogl
