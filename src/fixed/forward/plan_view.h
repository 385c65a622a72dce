// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "render/renderer.h"

#include <functional>

namespace ogl {

/// Draws what is in the renderer's bounds and its scene's site from above and reads it into a
/// bitmap, in tiles when the bitmap has another size than the view. Anything that is no DIB section
/// of 24 or 32 bits stays untouched. `drawMeshes` draws with the matrices that are set.
void drawPlanToBitmap(Renderer& renderer, HBITMAP bitmap, const std::function<void()>& drawMeshes);

} // namespace ogl
