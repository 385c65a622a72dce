// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "raytrace/packed_scene.h"

#include <cstdint>

namespace ogl {

/// Sides of the square textures that hold a packed scene, texels.
struct TextureSides {
    int vertTexRes;      ///< positions, normals and texture coordinates, one texel a vertex
    int materialsTexRes; ///< two texels a record
    int gridsTexRes;     ///< two texels a cell
    int boundsTexRes;    ///< two texels a box
};

TextureSides textureSides(const PackedScene& packed);

/// How much textures of a largest side can hold. Numbers of triangles and cells also travel as
/// floats, which must keep them exactly.
struct PackLimits {
    explicit PackLimits(int largestSide);

    int64_t triangles;
    int64_t materialRecords;
    int64_t cells; ///< and boxes
};

} // namespace ogl
