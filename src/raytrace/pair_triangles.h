// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "gpu/vertex_array.h"
#include "math/vector3.h"
#include "raytrace/pair_list.h"
#include "scene/record_views.h"

#include <cstdint>

namespace ogl {

/// The triangles of one pair, before they are sorted into cells.
struct PairTriangles {
    Vec3Array positions; ///< three a triangle
    Vec3Array normals;   ///< unit length; (0, 0, 1) where the host stores none
    Vec3Array uvs;       ///< u, v upside down, number of the material record
    Box box;             ///< of the positions

    int count() const { return static_cast<int>(positions.size() / 3); }
    /// Reads the pair's faces anew. A triangle with a corner that is no finite number is left out;
    /// a texture coordinate past the host's list is 0. False, with what there is room for, when
    /// there are more than `mostTriangles`.
    bool read(const SceneLists& lists, const MaterialPair& pair, int64_t mostTriangles);

  private:
    void readFace(const SceneLists& lists, int number, float record);
};

} // namespace ogl
