// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/overlays/view_overlays.h"

#include "fixed/overlays/cross_hair.h"
#include "fixed/overlays/overlay_state.h"
#include "fixed/overlays/path_overlay.h"
#include "fixed/overlays/selection_polygon.h"
#include "fixed/overlays/tooltip.h"
#include "gpu/gl_debug.h"
#include "scene/record_color.h"

namespace ogl {

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

} // namespace ogl
