// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "host/face_store.h"
#include "host/soup/half_edges.h"

#include <span>
#include <vector>

namespace ogl::host {

/// A piece of the border of a patch; the patch lies to its left.
struct OutlineEdge {
    uint32_t from;
    uint32_t to;
    bool visible;
};

/// Points in a row. `visible[i]` is that of the edge from point i to the next one; a closed chain
/// has as many edges as points, an open one has one less.
struct Chain {
    std::vector<uint32_t> points;
    std::vector<uint8_t> visible;
    bool closed = false;
};

/// Chains the border edges of a flat patch. Where several chains touch in a point each keeps to
/// its own part of the patch.
std::vector<Chain> traceOutline(const std::vector<Vec3>& points, std::vector<OutlineEdge> edges,
                                Vec3 normal);

/// Chains edges of any direction; a chain ends where other than two edges meet.
std::vector<Chain> chainLines(std::span<const OutlineEdge> edges);

/// Drops points that lie within `tolerance` on the straight line between their neighbours.
void straighten(Chain& chain, const std::vector<Vec3>& points, double tolerance);

/// The loops of a flat face: the outer outline first. An outline with invisible edges is written
/// as open polylines of its visible ones; as the first loop of a face is always read as closed, the
/// outer outline then also comes first as a hidden loop.
std::vector<NewLoop> faceLoops(const std::vector<Chain>& chains, const SoupMesh& mesh, Vec3 normal);

/// The loops of a face that carries one chain of lines for a curved surface.
std::vector<NewLoop> lineLoops(const Chain& chain, const SoupMesh& mesh);

} // namespace ogl::host
