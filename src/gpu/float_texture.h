// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "gpu/gl_objects.h"
#include "math/vector3.h"

#include <span>

namespace ogl {

/// A table of numbers for shaders.
struct FloatTable {
    unsigned target;         ///< GL_TEXTURE_2D or GL_TEXTURE_RECTANGLE
    unsigned internalFormat; ///< what the texels are stored as
    unsigned format;         ///< GL_RGB or GL_RGBA: numbers in a texel
    int width;               ///< texels
    int height;
    int filter; ///< GL_NEAREST or GL_LINEAR
    int wrap;
};

/// The table as a texture without mipmaps; `numbers` row by row. Leaves unit 0 active and no
/// texture bound.
GLTexture createFloatTexture(const FloatTable& table, std::span<const float> numbers);

/// The numbers of vectors, three each.
inline std::span<const float> numbersOf(std::span<const Vec3> vectors) {
    static_assert(sizeof(Vec3) == 3 * sizeof(float));
    return {vectors.empty() ? nullptr : &vectors.front().x, vectors.size() * 3};
}

} // namespace ogl
