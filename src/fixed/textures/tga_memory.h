// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace ogl {

/// Decodes a TGA file in memory, upright as its descriptor says: rows top to bottom without
/// padding, as many components as the file has (1 grey, 2 grey and alpha, 3 RGB, 4 RGBA), a byte
/// each. False when it is damaged or ends too early.
bool decodeTgaMemory(std::span<const uint8_t> file, std::vector<uint8_t>& pixels);

} // namespace ogl
