// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32.h"

#include <cstdint>

namespace ogl {

/// The pixels of a DIB section: blue first, bottom row first, rows padded to 4 bytes.
struct BitmapTarget {
    int width = 0;
    int height = 0;
    int bitsPerPixel = 0; ///< 24 or 32
    int strideBytes = 0;
    uint8_t* pixels = nullptr; ///< null = the handle names no bitmap that can be filled

    bool isValid() const { return pixels != nullptr; }
};

/// Describes a DIB section of 24 or 32 bits. Any other handle gives an invalid target.
BitmapTarget bitmapTarget(HBITMAP bitmap);

/// Copies the lower left `viewWidth` x `viewHeight` pixels of the read buffer into the bitmap's
/// first rows, clipped to the bitmap's size. Leaves the pixel store at its defaults.
void readFrame(const BitmapTarget& target, int viewWidth, int viewHeight);

} // namespace ogl
