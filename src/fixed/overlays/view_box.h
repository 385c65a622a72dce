// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "math/vector3.h"
#include "ogl/host_records.h"

namespace ogl {

/// Where a box of the view's size is drawn, and how.
struct BoxStyle {
    VEC3I position;        ///< integer units
    double angle = 0.0;    ///< about z through the view's pivot, radians
    Vec3 color{};          ///< its outline on the ground is 0.3 brighter
    bool mirrored = false; ///< in y
};

/// Draws the twelve edges of a box of the view's size and the two diagonals of the side y = size,
/// through whatever lies before them. Uses the current camera.
void drawBox(const SCENE& scene, const VIEW& view, const BoxStyle& style);

/// Draws the view's own box: at its own position and angle, black.
void drawViewBox(const SCENE& scene, const VIEW& view);

} // namespace ogl
