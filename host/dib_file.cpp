// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host/dib_file.h"

namespace ogl::host {

namespace {

constexpr size_t kHeaderSize = 40; // of a BITMAPINFOHEADER

void put(std::vector<uint8_t>& bytes, size_t offset, size_t value, size_t size) {
    for (size_t i = 0; i < size; ++i)
        bytes[offset + i] = static_cast<uint8_t>(value >> (8 * i));
}

size_t rowBytes(int width, int bitsPerPixel) {
    const size_t bits = static_cast<size_t>(width) * static_cast<size_t>(bitsPerPixel);
    return (bits + 31) / 32 * 4;
}

} // namespace

TextureFile blankDib(TextureUsage usage, int width, int height, int bitsPerPixel) {
    TextureFile file{usage, TextureFileType::Dib, width, height, bitsPerPixel, {}};
    const size_t imageSize = rowBytes(width, bitsPerPixel) * static_cast<size_t>(height);
    file.bytes.resize(kHeaderSize + imageSize);
    put(file.bytes, 0, kHeaderSize, 4);
    put(file.bytes, 4, static_cast<size_t>(width), 4);
    put(file.bytes, 8, static_cast<size_t>(height), 4);
    put(file.bytes, 12, 1, 2);
    put(file.bytes, 14, static_cast<size_t>(bitsPerPixel), 2);
    put(file.bytes, 20, imageSize, 4);
    return file;
}

uint8_t* dibRow(TextureFile& dib, int y) {
    return dib.bytes.data() + kHeaderSize +
           static_cast<size_t>(y) * rowBytes(dib.width, dib.bitsPerPixel);
}

} // namespace ogl::host
