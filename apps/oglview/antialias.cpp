// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/antialias.h"

#include <algorithm>
#include <cmath>

namespace oglview {
namespace {

// The library's line width is kWidthPerWeight x weight + kBaseWidth pixels.
constexpr double kWidthPerWeight = 0.0625;
constexpr double kBaseWidth = 0.6;

} // namespace

int drawingFactor(int wanted, const Size& size) {
    const int64_t pixels = int64_t{size.width} * size.height;
    int factor = std::max(wanted, 1);
    while (factor > 1 && pixels * factor * factor > kLargestDrawnPixels)
        --factor;
    return factor;
}

int widenedLineWeight(int lineWeight, int factor) {
    const double width = kWidthPerWeight * lineWeight + kBaseWidth;
    return static_cast<int>(std::lround((width * factor - kBaseWidth) / kWidthPerWeight));
}

Picture shrunk(const Picture& picture, int factor, std::vector<uint8_t>& pixels) {
    Picture result{picture.width / factor, picture.height / factor, nullptr};
    pixels.assign(result.rowBytes() * static_cast<size_t>(result.height), 0);
    const size_t step = static_cast<size_t>(factor);
    const unsigned count = static_cast<unsigned>(factor * factor);
    std::vector<unsigned> sums;
    for (size_t y = 0; y < static_cast<size_t>(result.height); ++y) {
        sums.assign(static_cast<size_t>(result.width) * 3, count / 2);
        for (size_t row = y * step; row < (y + 1) * step; ++row) {
            const uint8_t* source = picture.pixels + picture.rowBytes() * row;
            for (size_t x = 0; x < sums.size(); x += 3)
                for (size_t k = 0; k < step; ++k)
                    for (size_t channel = 0; channel < 3; ++channel)
                        sums[x + channel] += *source++;
        }
        for (size_t k = 0; k < sums.size(); ++k)
            pixels[result.rowBytes() * y + k] = static_cast<uint8_t>(sums[k] / count);
    }
    result.pixels = pixels.data();
    return result;
}

} // namespace oglview
