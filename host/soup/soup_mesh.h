// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "host/loop_grid.h"
#include "host/scene_parts.h"
#include "host/soup/welder.h"

#include <array>
#include <vector>

namespace ogl::host {

/// A triangle of welded corners, counter-clockwise seen from its visible side.
struct SoupTriangle {
    std::array<uint32_t, 3> corners;
    std::array<uint32_t, 3> source; ///< numbers in the soup's positions, normals, coordinates
    MaterialId material;
    bool back; ///< the other side of a triangle that has two
};

/// The usable triangles of a soup.
struct SoupMesh {
    std::vector<Vec3> points;          ///< on the loop grid
    std::vector<GridPoint> gridPoints; ///< parallel to points
    std::vector<SoupTriangle> triangles;
    std::vector<Vec3> normals; ///< unit, one per triangle
    std::vector<double> areas; ///< one per triangle
};

/// Welds the soup's corners and drops what can't be drawn, counting it in `report`.
SoupMesh makeSoupMesh(const LoopGrid& grid, const TriangleSoup& soup, const SoupOptions& options,
                      int materialCount, SoupReport& report);

} // namespace ogl::host
