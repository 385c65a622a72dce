// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace ogl {

/// A decoded image: rows top to bottom without padding, 8 bits per component.
struct DecodedTga {
    int components = 0; ///< 1 grey, 2 grey and alpha, 3 RGB, 4 RGBA: as the file has them
    std::vector<uint8_t> pixels;
};

/// Decodes a TGA file in memory, upright as its descriptor says. False when it is damaged, ends
/// too early, or is not of `width` x `height` pixels.
bool decodeTgaMemory(std::span<const uint8_t> file, int width, int height, DecodedTga& image);

} // namespace ogl
