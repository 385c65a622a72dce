// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "oglview/scene_triangles.h"

#include <cstdint>
#include <vector>

namespace oglview {

/// Finds where rays meet triangles. The triangles are kept in a tree of boxes, split at the median
/// of the longest side.
class RayCaster {
  public:
    explicit RayCaster(const TriangleCorners& corners);

    /// Distance from `origin` along the unit vector `direction` to the first triangle, `farthest`
    /// when there is none before that.
    double firstHit(ogl::host::Vec3 origin, ogl::host::Vec3 direction, double farthest) const;

    /// Distances to all triangles along the ray, in rising order.
    std::vector<double> allHits(ogl::host::Vec3 origin, ogl::host::Vec3 direction,
                                double farthest) const;

  private:
    struct Node {
        ogl::host::Box box;
        uint32_t first = 0; ///< of its triangles in order_, or its second child
        uint32_t count = 0; ///< triangles of a leaf; 0 = an inner node, whose first child follows
    };
    uint32_t build(uint32_t first, uint32_t last);
    template <class Visit>
    void visitHits(ogl::host::Vec3 origin, ogl::host::Vec3 direction, Visit visit) const;

    const TriangleCorners& corners_;
    std::vector<uint32_t> order_; ///< triangle numbers
    std::vector<Node> nodes_;
};

} // namespace oglview
