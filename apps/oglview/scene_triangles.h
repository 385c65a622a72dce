// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "host/scene_builder.h"

#include <vector>

namespace oglview {

/// The corners of all triangles of a scene, three in a row per triangle.
using TriangleCorners = std::vector<ogl::host::Vec3>;

/// The triangles of the scene's visible objects, read from its record.
TriangleCorners visibleTriangles(const ogl::SCENE& scene);

} // namespace oglview
