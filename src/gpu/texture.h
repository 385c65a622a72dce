// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "gpu/gl_objects.h"

namespace ogl {

/// What a texture is used as.
enum class TextureKind : int {
    Repeating = 0,
    Multisample = 1,
    Rectangle = 2,
    RepeatingToo = 3, ///< the same as Repeating
    Clamped = 4,
    Cube = 5,
};

/// Makes a texture of `width` x `height` pixels of 8 bits per component (`pixelFormat`: GL_RGB,
/// GL_BGR, GL_RGBA, GL_BGRA or GL_LUMINANCE; GL_BGR rows are padded to 4 bytes, others not).
/// Repeating: 2D with mipmaps; leaves 2D texturing on and the texture bound. Cube: the image on
/// all six faces, without mipmaps. Other kinds give no texture, nor do sizes that do not fit.
GLTexture createTexture2D(TextureKind kind, unsigned pixelFormat, int width, int height,
                          const void* pixels);

/// Whether the driver has 2D textures of this size.
bool fitsTexture(int width, int height);

/// Parameters of the texture that is bound to `target`.
void setFilters(unsigned target, int minification, int magnification);
void setWrap(unsigned target, int wrap);

/// Turns texturing with `texture` on for unit `unit`, which is active afterwards. `filter`
/// (GL_LINEAR or GL_NEAREST) is ignored for multisample and cube textures; GL_LINEAR minifies
/// repeating textures trilinearly. `anisotropy`, 1 or more, is for repeating textures.
void bindTexture(int unit, TextureKind kind, unsigned texture, int filter, float anisotropy);

/// Makes unit `unit` active and turns texturing of every kind off on it.
void resetTextureUnit(int unit);

/// The driver's largest anisotropy, at most 4; 1 when it has no anisotropic filtering that works.
float materialAnisotropy();

} // namespace ogl
