// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "oglview/scene_triangles.h"

#include <optional>

namespace oglview {

/// A view of a building's inside: the eye 1.6 m above a floor that has a ceiling, in the largest
/// space with walls around, at the place there from which most of it is seen. None when no such
/// place is found.
std::optional<ogl::host::Camera> interiorView(const TriangleCorners& corners, double aspect);

} // namespace oglview
