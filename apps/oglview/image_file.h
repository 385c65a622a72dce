// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "host/import/image_decoder.h"

#include <cstdint>
#include <string>
#include <vector>

namespace oglview {

/// A picture as a device-independent bitmap of 24 bits keeps it: blue, green, red; bottom row
/// first; rows padded to 4 bytes.
struct Picture {
    int width = 0;
    int height = 0;
    const uint8_t* pixels = nullptr;

    size_t rowBytes() const { return (static_cast<size_t>(width) * 3 + 3) / 4 * 4; }
};

/// Throws UserError unless `path` ends in .png or .bmp and lies in a folder that exists.
void checkPictureName(const std::string& path);

/// Writes the picture as PNG or BMP, by the name's extension. The file appears complete or not at
/// all. Throws UserError when it cannot be written.
void writePicture(const std::string& path, const Picture& picture);

/// Writes the image as PNG, in the same way.
void writePng(const std::string& path, const ogl::host::DecodedImage& image);

/// Writes a file that appears complete or not at all. Throws UserError when it cannot be written.
void writeWholeFile(const std::string& path, const std::vector<uint8_t>& bytes);

} // namespace oglview
