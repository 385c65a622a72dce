// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "render/renderer.h"

#include <functional>

namespace ogl {

/// Draws one frame and reads it into a bitmap of the view's size. A bitmap of another size stays
/// untouched and the log says so; so does anything that is no DIB section of 24 or 32 bits, without
/// an entry. `drawFrame` draws into the back buffer of the current context.
void drawFrameToBitmap(const Renderer& renderer, HBITMAP bitmap,
                       const std::function<void()>& drawFrame);

} // namespace ogl
