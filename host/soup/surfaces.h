// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "host/soup/half_edges.h"

#include <cstdint>
#include <span>
#include <vector>

namespace ogl::host {

/// The half-edges of each triangle.
class TriangleSides {
  public:
    TriangleSides(const std::vector<HalfEdge>& edges, size_t triangleCount);
    std::span<const uint32_t> of(uint32_t triangle) const {
        return {members_.data() + starts_[triangle], starts_[triangle + 1] - starts_[triangle]};
    }

  private:
    std::vector<uint32_t> starts_;
    std::vector<uint32_t> members_;
};

/// How the triangles of a mesh form surfaces.
struct Surfaces {
    std::vector<uint32_t> patch;     ///< per triangle: its flat patch of coplanar neighbours
    std::vector<Vec3> patchNormal;   ///< per patch, of its largest triangle
    std::vector<uint8_t> curved;     ///< per triangle: part of a curved surface
    std::vector<uint8_t> flatPart;   ///< per triangle: a flat part of a curved surface
    std::vector<uint8_t> soft;       ///< per half-edge: the surface goes on smoothly beyond it
    std::vector<Vec3> cornerNormals; ///< three per triangle; those of flat triangles are unused
};

/// Finds flat patches and curved surfaces. `soup.normals`, when given, say which triangles are
/// curved; otherwise chains of patches with small bends between them are.
Surfaces findSurfaces(const SoupMesh& mesh, const std::vector<HalfEdge>& edges,
                      const TriangleSoup& soup, const SoupOptions& options);

} // namespace ogl::host
