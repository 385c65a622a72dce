// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host/import/assimp_images.h"

#include <assimp/scene.h>
#include <assimp/texture.h>

namespace ogl::host {
namespace {

constexpr unsigned kMostTexels = 1u << 28;

std::string plainTexels(const aiTexture& texture, DecodedImage& image) {
    if (texture.mWidth == 0 || texture.mWidth > kMostTexels / texture.mHeight)
        return "its size is unusable";
    image.width = static_cast<int>(texture.mWidth);
    image.height = static_cast<int>(texture.mHeight);
    const size_t count = size_t{texture.mWidth} * texture.mHeight;
    image.pixels.reserve(4 * count);
    for (size_t k = 0; k < count; ++k) {
        const aiTexel& texel = texture.pcData[k];
        image.pixels.insert(image.pixels.end(), {texel.r, texel.g, texel.b, texel.a});
    }
    return {};
}

std::string embeddedImage(const aiTexture& texture, DecodedImage& image) {
    if (texture.pcData == nullptr)
        return "it has no data";
    if (texture.mHeight != 0)
        return plainTexels(texture, image);
    // An image file as it is, mWidth bytes long.
    return decodeImage({reinterpret_cast<const uint8_t*>(texture.pcData), texture.mWidth}, image);
}

} // namespace

ImageSource imagesOf(const aiScene& scene, const std::string& path) {
    const ImageSource beside = imagesBeside(path);
    return [&scene, beside](const std::string& name, DecodedImage& image) {
        const aiTexture* texture = scene.GetEmbeddedTexture(name.c_str());
        return texture != nullptr ? embeddedImage(*texture, image) : beside(name, image);
    };
}

} // namespace ogl::host
