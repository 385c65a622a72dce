// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ogl/host_records.h"

namespace ogl {

/// Draws the view's selection polygon in window pixels: a translucent yellow area and dashed edges.
/// Leaves multisampling on.
void drawSelectionPolygon(const VIEW& view);

} // namespace ogl
