// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "image/image.h"

#include <span>
#include <vector>

namespace ogl {

/// Reads a Truevision TGA file: raw or run-length encoded, grey or palette (8 bits), 16, 24 or 32
/// bits. The last row of the file becomes the first of the image, whatever the file says about
/// its origin. Grey becomes Grey8, palettes and 24 bits Rgb8, 16 and 32 bits Rgba8. `path` may
/// have a host's backslashes. Returns false, and leaves `image` as it is, when the file cannot be
/// read or is damaged.
bool loadTga(const char* path, Image& image);

/// The same for a file in memory.
bool decodeTga(std::span<const uint8_t> file, Image& image);

/// Whether the bytes are a TGA file, of any number of bits, that lacks nothing of its data.
bool isWholeTga(std::span<const uint8_t> file);

/// Whether a whole TGA file has no palette, or one that its pixels use and that begins with pixel
/// value 0.
bool hasPlainPalette(std::span<const uint8_t> file);

/// A whole TGA file made so: a palette gets black entries before its own, one that serves for
/// nothing goes.
std::vector<uint8_t> withPlainPalette(std::span<const uint8_t> file);

} // namespace ogl
