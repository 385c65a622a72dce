// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "host/vector3.h"

#include <vector>

namespace ogl::host {

/// Triangles of a planar polygon: three points each, counter-clockwise about `normal`. Loops that
/// run counter-clockwise about `normal` add area, those that run clockwise take it away. Crossing
/// outlines are allowed: a point is inside when more loops add it than take it away. Empty when
/// there is no area.
std::vector<Vec3> tessellate(const std::vector<std::vector<Vec3>>& loops, Vec3 normal);

/// Twice the area vector of a closed loop: along the normal about which it runs counter-clockwise.
Vec3 areaVector(const std::vector<Vec3>& loop);

} // namespace ogl::host
