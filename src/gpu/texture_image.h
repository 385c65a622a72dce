// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "gpu/gl_objects.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace ogl {

/// What an image is used for.
enum class TextureRole : int32_t {
    Color = 0,
    Opacity = 1,
    NormalMap = 2,
    Bump = 3,
    Specular = 4, ///< specular map, or an opacity map from a TGA file
};

/// An image that a host supplied, with the GL texture made from it on first use. Hosts hold its
/// address in texture slots, so it lives in memory32.
struct TextureImage {
    int32_t width = 0;
    int32_t height = 0;
    TextureRole role = TextureRole::Color;
    uint32_t pixelFormat = 0; ///< GL_RGB, GL_RGBA, GL_BGR, GL_BGRA or GL_LUMINANCE
    GLTexture texture;
    std::vector<uint8_t> pixels; ///< top row first, rows of textureRowBytes()
    float strength = 1.0f;       ///< bump images: of the normal map made last
};

/// Bytes of a pixel of 8 bits per component; 0 for formats that texture images don't have.
int textureComponents(uint32_t pixelFormat);

/// Bytes of a row as createTexture2D reads it: of GL_BGR padded to 4 bytes, as in the bitmaps
/// that these images come from, of other formats without padding.
size_t textureRowBytes(uint32_t pixelFormat, int width);

/// Whether the image has a size and pixels for all its rows.
bool hasAllPixels(const TextureImage& image);

/// The image at an address that a host's slot holds, or null when no live image is there.
TextureImage* liveImage(TextureImage* address);

} // namespace ogl
