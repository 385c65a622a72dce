// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "math/vector3.h"
#include "ogl/host_records.h"

namespace ogl {

/// Draws the scene's paths in window pixels: the polyline that the host projected and a square
/// marker on every marked point, the first one larger, with a white middle unless the point is
/// solid.
void drawPaths(const SCENE& scene, const VIEW& view, Vec3 color);

} // namespace ogl
