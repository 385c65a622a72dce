// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "host/face_store.h"

#include <optional>

namespace ogl::host {

/// The face of a polygon, or nothing when its outline has no area, is not planar within 1 mm or
/// leaves the grid. Holes that leave the grid or have no area are dropped.
std::optional<NewFace> makePolygonFace(const Polygon& polygon, const LoopGrid& grid);

} // namespace ogl::host
