// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Textures as device-independent bitmaps: a BITMAPINFOHEADER, then rows of 4-byte multiples.
#pragma once

#include "host/scene_parts.h"

namespace ogl::host {

/// A black bitmap of 8 (grey), 24 (blue, green, red) or 32 (and alpha) bits per pixel.
TextureFile blankDib(TextureUsage usage, int width, int height, int bitsPerPixel);

/// The first pixel of a row, counted from the bottom.
uint8_t* dibRow(TextureFile& dib, int y);

} // namespace ogl::host
