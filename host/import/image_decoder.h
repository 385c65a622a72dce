// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace ogl::host {

/// A picture of 8 bits per channel: red, green, blue, alpha; top row first.
struct DecodedImage {
    int width = 0;
    int height = 0;
    std::vector<uint8_t> pixels;

    /// Whether any pixel lets something shine through.
    bool hasAlpha() const;
};

/// Decodes a JPEG, PNG, BMP, TGA, GIF or PSD file. Returns an empty string, or why not.
std::string decodeImage(std::span<const uint8_t> file, DecodedImage& image);

} // namespace ogl::host
