// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "gpu/vertex_array.h"
#include "math/vector3.h"
#include "ogl/host_records.h"

namespace ogl {

/// Where a tool of the host would put lines: turned about the z axis through `pivot`, then moved.
struct Placement {
    Vec3 offset{};
    float angle = 0.0f; ///< radians
    Vec3 pivot{};
};

/// The placement with the view's pivot. `offset` is in the record's integer units.
Placement placementOf(const SCENE& scene, const VIEW& view, VEC3I offset, double angle);

/// Draws uploaded lines at their place: first flattened onto z = 0 in `groundColor`, then upright
/// in `color`.
void drawPlacedLines(const VertexArray& lines, const Placement& place, Vec3 groundColor,
                     Vec3 color);

} // namespace ogl
