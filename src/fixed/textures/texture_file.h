// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "gpu/texture_image.h"

#include <span>

namespace ogl {

/// Values of TextureFile::type.
inline constexpr int kTextureFileTga = 7;
inline constexpr int kTextureFileDib = 8; ///< BITMAPINFOHEADER, then rows, bottom row first

/// An image file in memory as a host hands it over. Size and bits are those that it calls the file
/// by; its own may differ.
struct TextureFile {
    std::span<const uint8_t> bytes;
    int type = 0;
    int usage = 0; ///< number of the pointer in a texture slot
    int width = 0; ///< pixels
    int height = 0;
    int bitsPerPixel = 0;
};

/// Makes a texture image of the file's pixels and the caller's size, which has no GL texture yet
/// and gets none where the pixels are too few for that size. Null when there is none for the type,
/// usage and bits together, when the bytes are damaged or too few for what their own header says,
/// and when there is no memory below 4 GiB.
TextureImage* makeTextureImage(const TextureFile& file);

} // namespace ogl
