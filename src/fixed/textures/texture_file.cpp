// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/textures/texture_file.h"

#include "fixed/textures/texture_image.h"
#include "fixed/textures/tga_memory.h"
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

/// Bytes of a row of a DIB.
size_t rowLength(const BITMAPINFOHEADER& header) {
    if (header.biSizeImage != 0)
        return header.biSizeImage / static_cast<size_t>(header.biHeight);
    // Uncompressed bitmaps may leave their size out: rows are then padded to 4 bytes.
    const auto width = static_cast<uint64_t>(std::max<int64_t>(header.biWidth, 0));
    return static_cast<size_t>((width * header.biBitCount + 31) / 32 * 4);
}

/// Copies the rows of a DIB, the last one first. Where they are as long as the rows of the image,
/// they become those, with what padding the image has; shorter ones stay as they are.
bool readDib(const TextureFile& file, unsigned pixelFormat, std::vector<uint8_t>& pixels) {
    BITMAPINFOHEADER header;
    if (file.bytes.size() < sizeof header)
        return false;
    std::memcpy(&header, file.bytes.data(), sizeof header);
    if (header.biHeight <= 0)
        return false;
    const std::span<const uint8_t> rows = file.bytes.subspan(sizeof header);
    const auto rowCount = static_cast<size_t>(header.biHeight);
    const size_t stride = rowLength(header);
    if (stride == 0)
        return true;
    if (rows.size() / stride < rowCount)
        return false;
    const uint64_t pixelBytes = static_cast<uint64_t>(std::max(file.width, 0)) *
                                static_cast<uint64_t>(textureComponents(pixelFormat));
    const bool isLongEnough = stride >= pixelBytes;
    const auto copied = static_cast<size_t>(isLongEnough ? pixelBytes : stride);
    const auto targetStride =
        static_cast<size_t>(isLongEnough ? textureRowBytes(pixelFormat, file.width) : stride);
    pixels.resize(targetStride * rowCount);
    for (size_t y = 0; y < rowCount; ++y)
        std::copy_n(rows.begin() + static_cast<ptrdiff_t>(y * stride), copied,
                    pixels.begin() + static_cast<ptrdiff_t>((rowCount - 1 - y) * targetStride));
    return true;
}

} // namespace

TextureImage* makeTextureImage(const TextureFile& file) {
    const Combination* combination = combinationOf(file);
    if (combination == nullptr)
        return nullptr;
    std::vector<uint8_t> pixels;
    const bool read = file.type == kTextureFileTga
                          ? decodeTgaMemory(file.bytes, pixels)
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
