// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "gpu/frustum.h"
#include "ogl/host_records.h"
#include "render/renderer.h"
#include "scene/vector3.h"

#include <functional>

namespace ogl {

/// What a plan shows, in scene coordinates: `bounds`, grown to hold the origin and the site's
/// width along x and depth along y from there.
Box planBox(const SCENE& scene, Box bounds);

/// An orthographic view from above.
struct PlanView {
    Frustum bounds;
    double eyeHeight; ///< z of the eye
    double middle;    ///< z of the point below that it looks at
};

/// The view that shows the whole box.
PlanView planView(const Box& box);

/// Draws what is in the renderer's bounds and its scene's site from above and reads it into a
/// bitmap, in tiles when the bitmap has another size than the view. Anything that is no DIB section
/// of 24 or 32 bits stays untouched. `drawMeshes` draws with the matrices that are set.
void drawPlanToBitmap(Renderer& renderer, HBITMAP bitmap, const std::function<void()>& drawMeshes);

} // namespace ogl
