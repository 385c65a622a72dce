// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "gpu/gl_objects.h"

#include <array>

namespace ogl {

/// Size of the texture that shifts the samples of the shadow filter from pixel to pixel, texels.
inline constexpr int kJitterSize = 32;

/// The shifts: four pseudo-random numbers within 0.001 of 0 per texel, the same on every system.
std::array<float, kJitterSize * kJitterSize * 4> jitterTexels();

/// The shifts as a repeating texture without filtering. Leaves no texture bound.
GLTexture createJitterTexture();

} // namespace ogl
