// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

namespace ogl {

/// Noise at a place in space, -1 .. 1, smooth and without preferred directions: simplex noise
/// after S. Gustavson, "Simplex noise demystified" (2005), over K. Perlin's permutation.
float simplexNoise(float x, float y, float z);

} // namespace ogl
