// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Smooth lines from any driver: the picture is drawn larger and averaged. Software drivers offer
// few samples per pixel, and edges right behind a surface shine through less where pixels are
// small.
#pragma once

#include "oglview/image_file.h"
#include "oglview/parse_values.h"

namespace oglview {

/// The most times that a picture is drawn larger.
inline constexpr int kLargestFactor = 4;

/// Pixels of the largest picture that is drawn larger than it will be. In a 32-bit program there is
/// less room.
inline constexpr int64_t kLargestDrawnPixels =
    sizeof(void*) > 4 ? int64_t{16384} * 16384 : int64_t{10240} * 10240;

/// How many times larger to draw: `wanted` as far as kLargestDrawnPixels allows. At least 1.
int drawingFactor(int wanted, const Size& size);

/// The line weight that gives lines `factor` times as wide as `lineWeight` does.
int widenedLineWeight(int lineWeight, int factor);

/// A picture `factor` times smaller, each pixel the mean of those it stands for. `pixels` holds
/// what the result points to.
Picture shrunk(const Picture& picture, int factor, std::vector<uint8_t>& pixels);

} // namespace oglview
