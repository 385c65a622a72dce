// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/gl_surface.h"
#include "render/renderer.h"

namespace ogl {

/// Draws what lies over a finished frame in a window, as the renderer's scene asks for it: overlays
/// in the scene, overlays in window pixels and the heads-up display, the last two on the view's
/// first window only. The scene's camera must still be applied and no program be in use. Leaves the
/// overlay state with the alpha test on, both matrices as they were.
void drawFrameOverlays(const Renderer& renderer, const GLSurface& surface);

/// Draws what a host's tools show in the scene: highlights and the move preview, the gizmo, the
/// view's box, the symbols. Uses the current camera; starts from and leaves the overlay state.
void drawSceneOverlays(const SCENE& scene, const VIEW& view);

/// Draws what a host's tools show in window pixels: paths, the selection polygon, the cross-hair,
/// the tooltip. `window`: where the view's pixels lie on the screen. The view must have a size;
/// starts from and leaves the overlay state.
void drawViewOverlays(const Renderer& renderer, const VIEW& view, HWND window);

} // namespace ogl
