// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/textures/texture_preparation.h"

#include "fixed/textures/texture_image.h"
#include "gpu/gl_debug.h"
#include "gpu/texture.h"
#include "image/normal_map.h"
#include "render/error_log.h"
#include "render/renderer.h"
#include "scene/record_views.h"

#include <algorithm>
#include <bit>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace ogl {

namespace {

constexpr float kThird = 0.333333f;

/// Gives the image a texture of these pixels instead of the one it has. An image that is too large
/// for the driver stays without.
void replaceTexture(TextureImage& image, unsigned pixelFormat, const uint8_t* pixels) {
    image.setTexture({}); // before there is another one: both may not fit into the memory
    image.setTexture(
        createTexture2D(TextureKind::Repeating, pixelFormat, image.width, image.height, pixels));
}

void createTexture(TextureImage& image) {
    if (!image.hasTexture() && hasAllPixels(image))
        replaceTexture(image, image.pixelFormat, image.bytes().data());
}

bool isTooLarge(const TextureImage& image) {
    return hasAllPixels(image) && !fitsTexture(image.width, image.height);
}

void noteTooLarge(const TextureImage& image, ErrorLog& log) {
    if (isTooLarge(image))
        log.writeOnce("Error", kImageTooLarge,
                      std::to_string(image.width) + " x " + std::to_string(image.height));
}

/// Calls `visit` with each pixel's first byte.
template <class Visitor> void forEachPixel(const TextureImage& image, const Visitor& visit) {
    const auto components = static_cast<size_t>(textureComponents(image.pixelFormat));
    const auto rowBytes = static_cast<size_t>(textureRowBytes(image.pixelFormat, image.width));
    for (size_t y = 0; y < static_cast<size_t>(image.height); ++y) {
        const uint8_t* pixel = image.bytes().data() + y * rowBytes;
        for (int x = 0; x < image.width; ++x, pixel += components)
            visit(pixel);
    }
}

void createGreyTexture(TextureImage& image) {
    if (!hasAllPixels(image))
        return;
    if (image.pixelFormat == GL_LUMINANCE) {
        replaceTexture(image, GL_LUMINANCE, image.bytes().data());
        return;
    }
    std::vector<uint8_t> grey;
    grey.reserve(static_cast<size_t>(image.width) * static_cast<size_t>(image.height));
    forEachPixel(image, [&grey](const uint8_t* pixel) {
        const int sum = pixel[0] + pixel[1] + pixel[2];
        grey.push_back(static_cast<uint8_t>(static_cast<float>(sum) * kThird));
    });
    replaceTexture(image, GL_LUMINANCE, grey.data());
}

/// A bump image with the pixels of a colour image, null when that has none to copy.
TextureImage* makeBumpImage(const TextureImage& color) {
    const int components = textureComponents(color.pixelFormat);
    if (components < 3 || !hasAllPixels(color))
        return nullptr;
    std::vector<uint8_t> pixels;
    pixels.reserve(static_cast<size_t>(color.width) * static_cast<size_t>(color.height) *
                   static_cast<size_t>(components));
    forEachPixel(color, [&pixels, components](const uint8_t* pixel) {
        pixels.insert(pixels.end(), pixel, pixel + components);
    });
    TextureImage* bump = makeTextureImage();
    if (bump == nullptr)
        return nullptr;
    bump->width = color.width;
    bump->height = color.height;
    bump->role = TextureRole::Bump;
    bump->pixelFormat = components == 3 ? GL_RGB : GL_RGBA;
    bump->setBytes(std::move(pixels));
    return bump;
}

/// The images that the materials use. A shared slot may serve many materials; each image is worked
/// on once. Where materials want one bump image at several strengths, the last one gets it.
struct UsedImages {
    std::unordered_set<TextureImage*> plain;
    std::unordered_set<TextureImage*> opacity;
    std::unordered_map<TextureImage*, float> bumps; ///< with the strength wanted

    void addSlot(TEXTURESLOT& slot, float bumpStrength) {
        TextureImage* color = liveImage(slot.color.get());
        if (color == nullptr)
            color = liveImage(slot.alternativeColor.get());
        addTo(plain, color);
        addTo(plain, liveImage(slot.specular.get()));
        addTo(opacity, liveImage(slot.opacity.get()));
        if (TextureImage* normalMap = liveImage(slot.normalMap.get()))
            plain.insert(normalMap);
        else if (bumpStrength != 0.0f)
            addBump(slot, color, bumpStrength);
    }

  private:
    static void addTo(std::unordered_set<TextureImage*>& images, TextureImage* image) {
        if (image != nullptr)
            images.insert(image);
    }
    void addBump(TEXTURESLOT& slot, const TextureImage* color, float strength) {
        TextureImage* bump = liveImage(slot.bump.get());
        if (!slot.bump && color != nullptr) {
            bump = makeBumpImage(*color);
            slot.bump = bump;
        }
        if (bump != nullptr)
            bumps[bump] = strength;
    }
};

UsedImages usedImages(const SCENE& scene) {
    UsedImages images;
    const SceneLists lists(scene);
    for (int m = 0; m < lists.materials.size(); ++m) {
        const MATERIAL& material = lists.materials[m];
        const TEXTURESLOT* slot = isSkipped(material) ? nullptr : textureSlot(lists, material);
        // Slots are the one place of these lists that the library writes to.
        if (slot != nullptr)
            images.addSlot(*const_cast<TEXTURESLOT*>(slot), material.bumpStrength);
    }
    return images;
}

} // namespace

void buildNormalMap(TextureImage& image, float strength) {
    // The same bits: a strength that is no number equals itself, too.
    const bool same = std::bit_cast<uint32_t>(strength) == std::bit_cast<uint32_t>(image.strength);
    if ((same && image.hasTexture()) || isTooLarge(image))
        return;
    image.strength = strength;
    if ((image.pixelFormat != GL_RGB && image.pixelFormat != GL_RGBA) || !hasAllPixels(image))
        return;
    const Image normals = normalMapOf(
        {.pixels = image.bytes(),
         .width = image.width,
         .height = image.height,
         .levels = 1,
         .format = image.pixelFormat == GL_RGB ? ImageFormat::Rgb8 : ImageFormat::Rgba8},
        strength);
    replaceTexture(image, GL_RGBA, normals.pixels.data());
}

void prepareTextures(Renderer& renderer) {
    const DebugGroup group("textures");
    renderer.maxAnisotropy = materialAnisotropy();
    glActiveTexture(GL_TEXTURE0);
    const UsedImages images = usedImages(*renderer.scene);
    ErrorLog& log = *renderer.errorLog;
    for (TextureImage* image : images.plain) {
        createTexture(*image);
        noteTooLarge(*image, log);
    }
    for (TextureImage* image : images.opacity) {
        createGreyTexture(*image);
        noteTooLarge(*image, log);
    }
    for (const auto& [image, strength] : images.bumps) {
        buildNormalMap(*image, strength);
        noteTooLarge(*image, log);
    }
    glBindTexture(GL_TEXTURE_2D, 0);
    resetTextureUnit(0);
}

} // namespace ogl
