// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "gpu/vertex_array.h"
#include "math/vector3.h"

#include <cstdint>
#include <vector>

namespace ogl {

/// How rays see a material: two texels.
struct MaterialRecord {
    float red, green, blue; ///< 0 .. 1
    float opacity;
    float reflection;
    float specular;
    float fresnel;
    float exponent; ///< of the specular highlight
};
static_assert(sizeof(MaterialRecord) == 32);

/// A box and the run of elements in it: two texels.
struct BoxRecord {
    Vec3 min;
    int32_t first; ///< number of the first element
    Vec3 max;
    int32_t count; ///< elements
};
static_assert(sizeof(BoxRecord) == 32);

/// A scene as rays search it: boxes of objects, in each a grid of cells, in each cell triangles. A
/// triangle is there once for every cell that it touches, so that the triangles of a cell follow
/// each other.
struct PackedScene {
    Vec3Array vertices; ///< three a triangle
    Vec3Array normals;  ///< unit length, one a vertex
    Vec3Array uvs;      ///< u, v and the number of the material record, one a vertex
    std::vector<MaterialRecord> materialRecords; ///< of each material with each object
    std::vector<BoxRecord> objectBounds;         ///< of pairs with triangles; elements: cells
    std::vector<BoxRecord> gridCells;            ///< those with triangles; elements: triangles
    Box bounds;                                  ///< of all vertices

    int triangleCount() const { return static_cast<int>(vertices.size() / 3); }
};

} // namespace ogl
