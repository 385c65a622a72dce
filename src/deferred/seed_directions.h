// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "gpu/gl_objects.h"
#include "math/vector3.h"

#include <vector>

namespace ogl {

/// Directions of the occlusion samples: a row for each place of a 4 x 4 pattern of pixels.
inline constexpr int kSeedColumns = 64;
inline constexpr int kSeedRows = 16;

/// Digits of `number` in a base, mirrored about the point: a low-discrepancy sequence in 0 .. 1.
float radicalInverse(unsigned number, unsigned base);

/// Unit vectors over the plane z = 0, none of them close to it, row by row. Square to disk after
/// P. Shirley and K. Chiu, "A low distortion map between disk and square" (1997).
std::vector<Vec3> seedDirections();

/// The directions as a rectangle texture of floats. Leaves no texture bound.
GLTexture createSeedTexture();

} // namespace ogl
