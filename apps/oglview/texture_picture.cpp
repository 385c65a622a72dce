// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/texture_picture.h"

#include <algorithm>
#include <cstring>

namespace oglview {
namespace {

using ogl::host::DecodedImage;
using ogl::host::Texture;
using ogl::host::TextureFile;
using ogl::host::TextureFileType;
using ogl::host::TextureUsage;

constexpr size_t kDibHeaderBytes = 40;

/// The rows of a DIB lie bottom row first, blue first, padded to 4 bytes.
std::optional<DecodedImage> decodeDib(const TextureFile& file) {
    const auto width = static_cast<size_t>(std::max(file.width, 0));
    const auto height = static_cast<size_t>(std::max(file.height, 0));
    const size_t channels = static_cast<size_t>(std::max(file.bitsPerPixel, 0)) / 8;
    const size_t stride = (width * channels + 3) & ~size_t{3};
    if (width == 0 || height == 0 || (channels != 1 && channels != 3 && channels != 4) ||
        file.bytes.size() < kDibHeaderBytes + stride * height)
        return std::nullopt;
    DecodedImage image{file.width, file.height, {}};
    image.pixels.reserve(width * height * 4);
    for (size_t y = height; y-- > 0;) {
        const uint8_t* pixel = file.bytes.data() + kDibHeaderBytes + y * stride;
        for (size_t x = 0; x < width; ++x, pixel += channels) {
            const bool grey = channels == 1;
            const uint8_t alpha = channels == 4 ? pixel[3] : uint8_t{255};
            image.pixels.insert(image.pixels.end(),
                                {pixel[grey ? 0 : 2], pixel[grey ? 0 : 1], pixel[0], alpha});
        }
    }
    return image;
}

std::optional<DecodedImage> decode(const TextureFile& file) {
    if (file.type == TextureFileType::Dib)
        return decodeDib(file);
    DecodedImage image;
    if (!decodeImage(file.bytes, image).empty())
        return std::nullopt;
    return image;
}

const TextureFile* fileOf(const Texture& texture, TextureUsage usage) {
    const auto found = std::ranges::find(texture.files, usage, &TextureFile::usage);
    return found != texture.files.end() ? &*found : nullptr;
}

/// Replaces the image's alpha by the mask's red.
void applyMask(DecodedImage& image, const DecodedImage& mask) {
    const auto at = [&mask](int x, int y) {
        return mask.pixels[(static_cast<size_t>(y) * static_cast<size_t>(mask.width) +
                            static_cast<size_t>(x)) *
                           4];
    };
    size_t alpha = 3;
    for (int y = 0; y < image.height; ++y)
        for (int x = 0; x < image.width; ++x, alpha += 4)
            image.pixels[alpha] = at(x * mask.width / image.width, y * mask.height / image.height);
}

} // namespace

std::optional<DecodedImage> texturePicture(const Texture& texture) {
    const TextureFile* color = fileOf(texture, TextureUsage::Color);
    if (color == nullptr)
        color = fileOf(texture, TextureUsage::AlternativeColor);
    auto image = color != nullptr ? decode(*color) : std::nullopt;
    const TextureFile* opacity = fileOf(texture, TextureUsage::Opacity);
    if (image && opacity != nullptr)
        if (const auto mask = decode(*opacity))
            applyMask(*image, *mask);
    return image;
}

} // namespace oglview
