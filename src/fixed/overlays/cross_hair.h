// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ogl/host_records.h"
#include "platform/win32.h"

namespace ogl {

/// Draws the cross-hair at the host's cursor point, in window pixels of `window`, so blended that
/// it shows on dark and on bright ground.
void drawCrossHair(const VIEW& view, HWND window);

} // namespace ogl
