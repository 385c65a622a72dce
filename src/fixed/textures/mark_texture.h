// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "gpu/gl_objects.h"

#include <array>
#include <cstdint>

namespace ogl {

/// Size of the mark drawn on the end points of edges, texels.
inline constexpr int kMarkSize = 32;

/// The mark: grey RGBA texels whose alpha is a cross that fades away from the centre.
std::array<uint8_t, kMarkSize * kMarkSize * 4> markTexels();

/// The mark as a mipmapped texture, bound to the active unit.
GLTexture createMarkTexture();

} // namespace ogl
