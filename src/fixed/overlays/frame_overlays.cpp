// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/overlays/frame_overlays.h"

#include "fixed/overlays/heads_up_display.h"
#include "fixed/overlays/overlay_state.h"
#include "fixed/overlays/overlays.h"
#include "gpu/gl_debug.h"
#include "scene/record_color.h"
#include "scene/record_views.h"

namespace ogl {

namespace {

/// The box that stands at the first symbol.
void drawSymbolBox(const SCENE& scene, const VIEW& view) {
    const SYMBOL& symbol = scene.symbol1;
    const VEC3I at = symbol.position;
    const VEC3I viewBox = view.boxPosition;
    drawBox(scene, view,
            {.position = {at.x, at.y, viewBox.z},
             .angle = symbol.angle,
             .color = colorOf(view.overlayColor),
             .mirrored = (symbol.flags & kSymbolMirrored) != 0});
}

} // namespace

void drawSceneOverlays(const SCENE& scene, const VIEW& view) {
    if ((view.flags & kViewNoSelection) == 0) {
        drawHighlights(scene, view);
        if ((view.flags & kViewGizmo) != 0)
            drawGizmo(view.gizmo);
    }
    if (view.mode == kViewModeBox)
        drawViewBox(scene, view);
    if ((scene.overlayFlags & kOverlaySymbols) != 0)
        drawSymbols(scene);
    if ((scene.overlayFlags & kOverlaySecondBox) != 0 && (view.flags & kViewSecondBox) != 0)
        drawSymbolBox(scene, view);
}

void drawViewOverlays(const Renderer& renderer, const VIEW& view, HWND window) {
    const DebugGroup group("view overlays");
    const PixelSpace pixels(renderer.width, renderer.height);
    glDisable(GL_DEPTH_TEST);
    glDepthMask(GL_FALSE);
    glEnable(GL_MULTISAMPLE);
    if ((renderer.scene->hudFlags & kHudPaths) != 0)
        drawPaths(*renderer.scene, view, colorOf(view.overlayColor));
    drawSelectionPolygon(view);
    if ((view.flags & kViewNoSelection) != 0 && (view.flags & kViewCrossHair) != 0)
        drawCrossHair(view, window);
    drawTooltip(view, *renderer.fontLists);
    setOverlayState();
}

void drawFrameOverlays(const Renderer& renderer, const GLSurface& surface) {
    const VIEW* view = renderer.scene != nullptr ? viewOf(*renderer.scene) : nullptr;
    if (view == nullptr || renderer.width < 1 || renderer.height < 1)
        return;
    setOverlayState();
    const bool isPrimary = surface.isSecondary == 0;
    if ((view->flags & kViewNoOverlays) == 0) {
        drawSceneOverlays(*renderer.scene, *view);
        if (isPrimary)
            drawViewOverlays(renderer, *view, surface.window);
    }
    if ((view->flags & kViewNoHud) == 0 && isPrimary)
        drawHud(renderer, *view);
    leaveOverlayState();
}

} // namespace ogl
