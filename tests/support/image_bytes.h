// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32.h"

#include <cstdint>
#include <cstring>
#include <vector>

namespace ogl::test {

using Bytes = std::vector<uint8_t>;

/// A TGA file put together from its parts.
struct TgaBytes {
    uint8_t imageType = 2;
    int width = 0;
    int height = 0;
    uint8_t bitsPerPixel = 24;
    uint8_t descriptor = 0; ///< 0x20: the first row of the data is the top one
    Bytes id = {};
    Bytes palette = {}; ///< blue, green, red
    uint8_t paletteStart = 0;
    Bytes data = {};

    Bytes file() const {
        const auto entries = static_cast<unsigned>(palette.size() / 3);
        Bytes bytes = {static_cast<uint8_t>(id.size()),
                       static_cast<uint8_t>(palette.empty() ? 0 : 1),
                       imageType,
                       paletteStart,
                       0,
                       static_cast<uint8_t>(entries),
                       static_cast<uint8_t>(entries >> 8),
                       static_cast<uint8_t>(palette.empty() ? 0 : 24),
                       0,
                       0,
                       0,
                       0,
                       static_cast<uint8_t>(width),
                       static_cast<uint8_t>(width >> 8),
                       static_cast<uint8_t>(height),
                       static_cast<uint8_t>(height >> 8),
                       bitsPerPixel,
                       descriptor};
        for (const Bytes* part : {&id, &palette, &data})
            bytes.insert(bytes.end(), part->begin(), part->end());
        return bytes;
    }
};

/// Describes a DIB with rows padded to 4 bytes.
inline BITMAPINFOHEADER dibInfo(int width, int height, int bits) {
    BITMAPINFOHEADER header{};
    header.biSize = sizeof header;
    header.biWidth = width;
    header.biHeight = height;
    header.biPlanes = 1;
    header.biBitCount = static_cast<WORD>(bits);
    header.biSizeImage = static_cast<DWORD>((width * bits + 31) / 32 * 4 * height);
    return header;
}

/// The header of a DIB alone.
inline Bytes dibHeader(int width, int height, int bits) {
    const BITMAPINFOHEADER header = dibInfo(width, height, bits);
    Bytes bytes(sizeof header);
    std::memcpy(bytes.data(), &header, sizeof header);
    return bytes;
}

/// A DIB of pixels that are given top row first and without padding.
inline Bytes dibBytes(int width, int height, int bits, const Bytes& pixels) {
    constexpr uint8_t kPadding = 0xee; // a colour that shows
    const BITMAPINFOHEADER header = dibInfo(width, height, bits);
    const int rowBytes = width * bits / 8;
    const int stride = (rowBytes + 3) / 4 * 4;
    Bytes bytes(sizeof header + header.biSizeImage, kPadding);
    std::memcpy(bytes.data(), &header, sizeof header);
    for (int y = 0; y < height; ++y)
        std::memcpy(&bytes[sizeof header + static_cast<size_t>(stride * y)],
                    &pixels[static_cast<size_t>(rowBytes * (height - 1 - y))],
                    static_cast<size_t>(rowBytes));
    return bytes;
}

} // namespace ogl::test
