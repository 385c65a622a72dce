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

} // namespace ogl
