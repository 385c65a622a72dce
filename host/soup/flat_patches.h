// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "host/soup/surfaces.h"

namespace ogl::host {

/// Fills `surfaces.patch` and `patchNormal`: coplanar neighbours of one material and side grow
/// into patches, beginning with the largest triangles. Triangles that are marked curved form
/// patches of their own, one each.
void growFlatPatches(const SoupMesh& mesh, const std::vector<HalfEdge>& edges, double weldDistance,
                     Surfaces& surfaces);

} // namespace ogl::host
