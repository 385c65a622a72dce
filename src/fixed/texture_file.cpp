// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/texture_file.h"

#include "fixed/texture_image.h"
#include "fixed/tga_memory.h"
#include "platform/win32.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace ogl {

namespace {

struct Combination {
    int fileType;
    int usage;
    int bitsPerPixel;
    TextureRole role;
    unsigned pixelFormat;
};

constexpr Combination kCombinations[] = {
    {kTextureFileTga, 0, 24, TextureRole::Color, GL_RGB},
    {kTextureFileTga, 0, 32, TextureRole::Color, GL_RGBA},
    {kTextureFileTga, 5, 24, TextureRole::Color, GL_RGB},
    {kTextureFileTga, 5, 32, TextureRole::Color, GL_RGBA},
    {kTextureFileTga, 2, 8, TextureRole::Specular, GL_LUMINANCE},
    {kTextureFileTga, 2, 24, TextureRole::Specular, GL_RGB},
    {kTextureFileTga, 3, 8, TextureRole::Specular, GL_LUMINANCE},
    {kTextureFileTga, 3, 24, TextureRole::Specular, GL_RGB},
    {kTextureFileTga, 4, 24, TextureRole::Bump, GL_RGB},
    {kTextureFileTga, 6, 24, TextureRole::NormalMap, GL_RGB},
    {kTextureFileDib, 0, 24, TextureRole::Color, GL_BGR},
    {kTextureFileDib, 0, 32, TextureRole::Color, GL_BGRA},
    {kTextureFileDib, 5, 24, TextureRole::Color, GL_BGR},
    {kTextureFileDib, 5, 32, TextureRole::Color, GL_BGRA},
    {kTextureFileDib, 1, 8, TextureRole::Opacity, GL_LUMINANCE},
    {kTextureFileDib, 1, 24, TextureRole::Opacity, GL_RGB},
    {kTextureFileDib, 1, 32, TextureRole::Opacity, GL_RGBA},
    {kTextureFileDib, 3, 8, TextureRole::Specular, GL_LUMINANCE},
    {kTextureFileDib, 3, 24, TextureRole::Specular, GL_RGB},
    {kTextureFileDib, 3, 32, TextureRole::Specular, GL_RGBA},
    {kTextureFileDib, 4, 24, TextureRole::Bump, GL_RGB},
    {kTextureFileDib, 4, 32, TextureRole::Bump, GL_RGBA},
    {kTextureFileDib, 6, 24, TextureRole::NormalMap, GL_RGB},
};

const Combination* combinationOf(const TextureFile& file) {
    const auto* const found = std::ranges::find_if(kCombinations, [&file](const Combination& row) {
        return row.fileType == file.type && row.usage == file.usage &&
               row.bitsPerPixel == file.bitsPerPixel;
    });
    return found != std::end(kCombinations) ? found : nullptr;
}

bool readTga(const TextureFile& file, std::vector<uint8_t>& pixels) {
    DecodedTga tga;
    if (!decodeTgaMemory(file.bytes, file.width, file.height, tga) ||
        8 * tga.components != file.bitsPerPixel)
        return false;
    pixels = std::move(tga.pixels);
    return true;
}

/// The rows of a DIB as they lie in memory, the bottom row first.
struct DibRows {
    const uint8_t* first = nullptr;
    size_t stride = 0;
};

bool findRows(const TextureFile& file, size_t rowBytes, DibRows& rows) {
    BITMAPINFOHEADER header;
    if (file.bytes.size() < sizeof header)
        return false;
    std::memcpy(&header, file.bytes.data(), sizeof header);
    if (header.biSize != sizeof header || header.biWidth != file.width ||
        header.biHeight != file.height || header.biBitCount != file.bitsPerPixel ||
        header.biCompression != BI_RGB)
        return false;
    const auto height = static_cast<size_t>(file.height);
    const size_t available = file.bytes.size() - sizeof header;
    rows.first = file.bytes.data() + sizeof header;
    // Uncompressed bitmaps may leave their size out: rows are then padded to 4 bytes.
    rows.stride =
        header.biSizeImage != 0 ? header.biSizeImage / height : (rowBytes + 3) & ~size_t{3};
    return rows.stride >= rowBytes && available / rows.stride >= height;
}

bool readDib(const TextureFile& file, unsigned pixelFormat, std::vector<uint8_t>& pixels) {
    const size_t rowBytes =
        static_cast<size_t>(file.width) * (static_cast<size_t>(file.bitsPerPixel) / 8);
    DibRows rows;
    if (!findRows(file, rowBytes, rows))
        return false;
    const auto height = static_cast<size_t>(file.height);
    const size_t targetStride = textureRowBytes(pixelFormat, file.width);
    pixels.resize(targetStride * height);
    for (size_t y = 0; y < height; ++y)
        std::copy_n(rows.first + y * rows.stride, rowBytes,
                    pixels.data() + (height - 1 - y) * targetStride);
    return true;
}

} // namespace

TextureImage* makeTextureImage(const TextureFile& file) {
    const Combination* combination = combinationOf(file);
    if (combination == nullptr || file.width <= 0 || file.height <= 0)
        return nullptr;
    std::vector<uint8_t> pixels;
    const bool read = file.type == kTextureFileTga
                          ? readTga(file, pixels)
                          : readDib(file, combination->pixelFormat, pixels);
    TextureImage* image = read ? makeTextureImage() : nullptr;
    if (image == nullptr)
        return nullptr;
    image->width = file.width;
    image->height = file.height;
    image->role = combination->role;
    image->pixelFormat = combination->pixelFormat;
    image->setBytes(std::move(pixels));
    return image;
}

} // namespace ogl
