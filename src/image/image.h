// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace ogl {

/// Number kind and components of a pixel.
enum class ImageFormat : int {
    None = 0,
    Grey8 = 1,
    GreyAlpha8 = 2,
    Rgb8 = 3,
    Rgba8 = 4,
    Grey16 = 5,
    GreyAlpha16 = 6,
    Rgb16 = 7,
    Rgba16 = 8,
    Grey32F = 9,
    GreyAlpha32F = 10,
    Rgb32F = 11,
    Rgba32F = 12,
};

/// Bytes of one pixel; 0 for None and for numbers that are no format.
size_t bytesPerPixel(ImageFormat format);

/// An image in memory: rows top to bottom without padding, mipmap levels one after the other,
/// the largest first.
struct Image {
    std::vector<uint8_t> pixels = {};
    int width = 0;
    int height = 0;
    int levels = 1; ///< stored in `pixels`
    ImageFormat format = ImageFormat::None;
};

/// Bytes of `count` levels of the image from level `first` on; levels below 1 x 1 pixel have none.
size_t levelBytes(const Image& image, int first, int count);

/// Whether the image has a size, a format and pixels for all its levels.
bool isComplete(const Image& image);

} // namespace ogl
