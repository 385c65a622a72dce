// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32.h"

#include <cstdint>
#include <vector>

namespace ogl::test {

struct Pixel {
    int red = 0;
    int green = 0;
    int blue = 0;
    bool operator==(const Pixel&) const = default;
};

/// A bottom-up DIB section of 24 or 32 bits, filled with one byte value.
class Dib {
  public:
    Dib(int width, int height, int bitsPerPixel = 24, uint8_t fill = 0x5A);
    ~Dib();
    Dib(const Dib&) = delete;
    Dib& operator=(const Dib&) = delete;

    HBITMAP handle() const { return bitmap_; }
    int width() const { return width_; }
    int height() const { return height_; }

    /// The pixel in column `x` of row `y`, counted from the top.
    Pixel at(int x, int y) const;
    /// Number of bytes that differ from the fill value.
    size_t touchedBytes() const;
    /// All bytes, the bottom row first, rows padded to 4 bytes.
    std::vector<uint8_t> bytes() const { return {bits_, bits_ + size_}; }

  private:
    HBITMAP bitmap_ = nullptr;
    uint8_t* bits_ = nullptr;
    int width_;
    int height_;
    int pixelBytes_;
    size_t stride_;
    size_t size_;
    uint8_t fill_;
};

} // namespace ogl::test
