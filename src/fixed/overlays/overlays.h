// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// What a host's tools show, one function each. All start from and leave the overlay state unless
// they say otherwise.
#pragma once

#include "math/vector3.h"
#include "ogl/host_records.h"
#include "platform/win32.h"

namespace ogl {

// In the scene. The current camera is used.

/// Outlines the objects that have a highlight bit, through whatever lies before them, and
/// shows in the view's move mode where those that are selected would go.
void drawHighlights(const SCENE& scene, const VIEW& view);

/// Draws the gizmo's three axes in their colours and its point as a black square of 8 pixels, both
/// behind what lies before them.
void drawGizmo(const GIZMO& gizmo);

/// Where a box of the view's size is drawn, and how.
struct BoxStyle {
    VEC3I position;        ///< integer units
    double angle = 0.0;    ///< about z through the view's pivot, radians
    Vec3 color{};          ///< its outline on the ground is 0.3 brighter
    bool mirrored = false; ///< in y
};

/// Draws the twelve edges of a box of the view's size and the two diagonals of the side y = size,
/// through whatever lies before them.
void drawBox(const SCENE& scene, const VIEW& view, const BoxStyle& style);

/// Draws the view's own box: at its own position and angle, black.
void drawViewBox(const SCENE& scene, const VIEW& view);

/// Draws the scene's two symbols at their places, through whatever lies before them.
void drawSymbols(const SCENE& scene);

// In window pixels.

/// Draws the scene's paths in window pixels: the polyline that the host projected and a square
/// marker on every marked point, the first one larger, with a white middle unless the point is
/// solid.
void drawPaths(const SCENE& scene, const VIEW& view, Vec3 color);

/// Draws the view's selection polygon in window pixels: a translucent yellow area and dashed edges.
/// Leaves multisampling on.
void drawSelectionPolygon(const VIEW& view);

/// Draws the cross-hair at the host's cursor point, in window pixels of `window`, so blended that
/// it shows on dark and on bright ground.
void drawCrossHair(const VIEW& view, HWND window);

/// Draws the view's tooltip, if its text is not empty, in window pixels: a box as wide as the text
/// is long and the text. `fontLists`: as for drawText.
void drawTooltip(const VIEW& view, unsigned fontLists);

} // namespace ogl
