// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "gpu/texture_image.h"

#include "platform/memory32.h"

#include <algorithm>
#include <utility>

namespace ogl {

void TextureImage::setBytes(std::vector<uint8_t> bytes) {
    bytes_ = std::move(bytes);
    pixels = bytes_.data();
}

void TextureImage::setTexture(GLTexture made) {
    ownTexture_.reset();
    ownTexture_ = std::move(made);
    texture = ownTexture_.name();
}

int textureComponents(uint32_t pixelFormat) {
    switch (pixelFormat) {
    case GL_LUMINANCE:
        return 1;
    case GL_RGB:
    case GL_BGR:
        return 3;
    case GL_RGBA:
    case GL_BGRA:
        return 4;
    default:
        return 0;
    }
}

uint64_t textureRowBytes(uint32_t pixelFormat, int width) {
    const uint64_t bytes = static_cast<uint64_t>(std::max(width, 0)) *
                           static_cast<uint64_t>(textureComponents(pixelFormat));
    return pixelFormat == GL_BGR ? (bytes + 3) & ~uint64_t{3} : bytes;
}

bool hasAllPixels(const TextureImage& image) {
    if (image.width <= 0 || image.height <= 0)
        return false;
    const uint64_t row = textureRowBytes(image.pixelFormat, image.width);
    return row != 0 && image.bytes().size() / row >= static_cast<uint64_t>(image.height);
}

TextureImage* liveImage(TextureImage* address) {
    return memory32::owns(address, memory32::Kind::TextureImage) ? address : nullptr;
}

} // namespace ogl
