// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "image/image.h"

#include <algorithm>
#include <array>

namespace ogl {

namespace {

constexpr std::array<uint8_t, 13> kPixelBytes = {0, 1, 2, 3, 4, 2, 4, 6, 8, 4, 8, 12, 16};

/// Larger shifts than this leave nothing of a width.
constexpr int kMostLevels = 31;

} // namespace

size_t bytesPerPixel(ImageFormat format) {
    const auto number = static_cast<size_t>(format);
    return number < kPixelBytes.size() ? kPixelBytes[number] : 0;
}

size_t levelBytes(const Image& image, int first, int count) {
    if (first < 0 || count <= 0 || image.width <= 0 || image.height <= 0)
        return 0;
    uint64_t pixels = 0;
    const int end = count < kMostLevels - first ? first + count : kMostLevels;
    for (int level = first; level < end; ++level) {
        const int width = image.width >> level;
        const int height = image.height >> level;
        if (width == 0 && height == 0)
            break;
        pixels += uint64_t{static_cast<unsigned>(std::max(width, 1))} *
                  static_cast<unsigned>(std::max(height, 1));
    }
    const uint64_t bytes = pixels * bytesPerPixel(image.format);
    return bytes <= SIZE_MAX ? static_cast<size_t>(bytes) : SIZE_MAX;
}

bool isComplete(const Image& image) {
    const size_t bytes = levelBytes(image, 0, image.levels);
    return bytes != 0 && image.pixels.size() >= bytes;
}

} // namespace ogl
