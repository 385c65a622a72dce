// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/overlays/frame_overlays.h"

#include "fixed/overlays/heads_up_display.h"
#include "fixed/overlays/overlay_state.h"
#include "fixed/overlays/scene_overlays.h"
#include "fixed/overlays/view_overlays.h"
#include "scene/record_views.h"

namespace ogl {

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
