// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "host/soup/soup_mesh.h"

#include <cstdint>
#include <vector>

namespace ogl::host {

inline constexpr uint32_t kNoMate = UINT32_MAX;

/// A side of a triangle, or the part of it between two points that lie on it.
struct HalfEdge {
    uint32_t from; ///< welded point; the triangle is to the left of from -> to
    uint32_t to;
    uint32_t triangle;
    uint32_t mate = kNoMate; ///< the half-edge to -> from of the neighbour
};

/// The half-edges of a mesh, with their neighbours. A side on which corners of other triangles lie
/// is cut there first, so that neighbours are found where two triangulations do not match. Where
/// more than two triangles meet, those that bend least are neighbours.
std::vector<HalfEdge> makeHalfEdges(const SoupMesh& mesh, double weldDistance);

} // namespace ogl::host
