// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/overlays/scene_overlays.h"

#include "fixed/overlays/axis_gizmo.h"
#include "fixed/overlays/orientation_symbols.h"
#include "fixed/overlays/selection_highlight.h"
#include "fixed/overlays/view_box.h"
#include "scene/record_color.h"

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

} // namespace ogl
