// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "support/dib.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>

namespace ogl::test {

Dib::Dib(int width, int height, int bitsPerPixel, uint8_t fill)
    : width_(width), height_(height), pixelBytes_(bitsPerPixel / 8),
      stride_((static_cast<size_t>(width) * static_cast<size_t>(bitsPerPixel) + 31) / 32 * 4),
      size_(stride_ * static_cast<size_t>(height)), fill_(fill) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = static_cast<WORD>(bitsPerPixel);
    info.bmiHeader.biCompression = BI_RGB;
    void* bits = nullptr;
    bitmap_ = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    if (bitmap_ == nullptr)
        throw std::runtime_error("no bitmap");
    bits_ = static_cast<uint8_t*>(bits);
    std::memset(bits_, fill, size_);
}

Dib::~Dib() {
    DeleteObject(bitmap_);
}

Pixel Dib::at(int x, int y) const {
    const uint8_t* pixel = bits_ + stride_ * static_cast<size_t>(height_ - 1 - y) +
                           static_cast<size_t>(x) * static_cast<size_t>(pixelBytes_);
    return {pixel[2], pixel[1], pixel[0]};
}

size_t Dib::touchedBytes() const {
    return size_ - static_cast<size_t>(std::count(bits_, bits_ + size_, fill_));
}

} // namespace ogl::test
