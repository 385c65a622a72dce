// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ogl/host_records.h"

#include <cstddef>
#include <memory>

namespace ogl::bench {

/// Positions, normals, tangents and texture coordinates of a plain sort.
struct PlainArrays {
    struct Vector {
        float x, y, z;
    };
    std::unique_ptr<Vector[]> positions, normals, tangents, texCoords;
    size_t size = 0;
};

/// The yardstick of batch building: sorts all triangles of the scene by object and material into
/// four big arrays in two passes, one to count and one to write, trusting the record and keeping
/// no batches. Arrays of an earlier sort of the same scene are written again. Returns the number
/// of vertices.
size_t sortPlainly(const SCENE& scene, PlainArrays& arrays);

} // namespace ogl::bench
