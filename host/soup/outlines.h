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
};

/// Points in a row.
struct Chain {
    std::vector<uint32_t> points;
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

/// The loops of a flat face: the outer outline first, then its holes.
std::vector<NewLoop> faceLoops(const std::vector<Chain>& chains, const SoupMesh& mesh, Vec3 normal);

/// The loops of a face that carries one chain of lines for a curved surface.
std::vector<NewLoop> lineLoops(const Chain& chain, const SoupMesh& mesh);

} // namespace ogl::host
