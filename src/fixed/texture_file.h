// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "gpu/texture_image.h"

#include <span>

namespace ogl {

/// Values of TextureFile::type.
inline constexpr int kTextureFileTga = 7;
inline constexpr int kTextureFileDib = 8; ///< BITMAPINFOHEADER, then rows, bottom row first

/// An image file in memory as a host hands it over.
struct TextureFile {
    std::span<const uint8_t> bytes;
    int type = 0;
    int usage = 0; ///< number of the pointer in a texture slot
    int width = 0; ///< pixels
    int height = 0;
    int bitsPerPixel = 0;
};

/// Makes a texture image, which has no GL texture yet. Null when there is none for the type, usage
/// and bits together, when the bytes are damaged, too few, or of another size or depth than the
/// numbers say, and when there is no memory below 4 GiB.
TextureImage* makeTextureImage(const TextureFile& file);

} // namespace ogl
