// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ogl/host_records.h"
#include "render/renderer.h"

namespace ogl {

/// Draws what a host's tools show in window pixels: paths, the selection polygon, the cross-hair,
/// the tooltip. `window`: where the view's pixels lie on the screen. The view must have a size;
/// starts from and leaves the overlay state.
void drawViewOverlays(const Renderer& renderer, const VIEW& view, HWND window);

} // namespace ogl
