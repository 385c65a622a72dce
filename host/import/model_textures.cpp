// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host/import/model_textures.h"

#include "host/dib_file.h"
#include "host/import/model_files.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <optional>
#include <tuple>

namespace ogl::host {
namespace {

constexpr size_t kTgaHeaderSize = 18;

uint8_t greyOf(const uint8_t* pixel) {
    return static_cast<uint8_t>((pixel[0] + pixel[1] + pixel[2]) / 3);
}

/// Calls `write` with a pixel of the picture and its place in the bitmap.
template <class Write>
TextureFile toDib(TextureUsage usage, const DecodedImage& image, int bits, const Write& write) {
    TextureFile dib = blankDib(usage, image.width, image.height, bits);
    const uint8_t* pixel = image.pixels.data();
    for (int y = image.height - 1; y >= 0; --y) {
        uint8_t* place = dibRow(dib, y);
        for (int x = 0; x < image.width; ++x, pixel += 4, place += bits / 8)
            write(pixel, place);
    }
    return dib;
}

TextureFile colorDib(const DecodedImage& image, bool withAlpha) {
    return toDib(TextureUsage::Color, image, withAlpha ? 32 : 24,
                 [withAlpha](const uint8_t* pixel, uint8_t* place) {
                     place[0] = pixel[2];
                     place[1] = pixel[1];
                     place[2] = pixel[0];
                     if (withAlpha)
                         place[3] = pixel[3];
                 });
}

TextureFile opacityDib(const DecodedImage& image, bool fromAlpha) {
    return toDib(TextureUsage::Opacity, image, 8,
                 [fromAlpha](const uint8_t* pixel, uint8_t* place) {
                     place[0] = fromAlpha ? pixel[3] : greyOf(pixel);
                 });
}

/// Normal maps go over as TGA: of bitmaps the library takes blue for x.
TextureFile normalMapTga(const DecodedImage& image) {
    TextureFile file{
        TextureUsage::NormalMap, TextureFileType::Tga, image.width, image.height, 24, {}};
    const auto low = [](int value) { return static_cast<uint8_t>(value); };
    const auto high = [](int value) { return static_cast<uint8_t>(value >> 8); };
    file.bytes = {0,
                  0,
                  2,
                  0,
                  0,
                  0,
                  0,
                  0,
                  0,
                  0,
                  0,
                  0,
                  low(image.width),
                  high(image.width),
                  low(image.height),
                  high(image.height),
                  24,
                  0x20}; // top row first
    file.bytes.reserve(kTgaHeaderSize + image.pixels.size() / 4 * 3);
    for (size_t k = 0; k < image.pixels.size(); k += 4)
        for (const size_t channel : {size_t{2}, size_t{1}, size_t{0}})
            file.bytes.push_back(image.pixels[k + channel]);
    return file;
}

class TextureMaker {
  public:
    TextureMaker(const ImageSource& source, Model& model) : source_(source), model_(model) {}

    void addTo(ModelMaterial& material) {
        const Key key{material.texture, material.alphaTexture, material.normalTexture,
                      material.alphaUse};
        const auto known = numbers_.find(key);
        if (known == numbers_.end())
            numbers_[key] = addTexture(material);
        material.textureNumber = numbers_[key];
        material.alphaTextured = material.textureNumber != kNone &&
                                 material.alphaUse == AlphaUse::Blend &&
                                 isBlended_[static_cast<size_t>(material.textureNumber)];
    }

  private:
    using Key = std::tuple<std::string, std::string, std::string, AlphaUse>;
    static constexpr int kLargestSide = 0xffff;

    /// The picture, or null when there is none of this name or none to be had.
    const DecodedImage* picture(const std::string& name) {
        if (name.empty())
            return nullptr;
        const auto [place, isNew] = pictures_.try_emplace(name);
        if (isNew) {
            DecodedImage image;
            std::string problem = source_(name, image);
            if (problem.empty() && std::max(image.width, image.height) > kLargestSide)
                problem = "it is too large";
            if (problem.empty())
                place->second = std::move(image);
            else
                model_.warnings.push_back("texture '" + name + "' is not shown: " + problem);
        }
        return place->second.has_value() ? &*place->second : nullptr;
    }

    int addTexture(const ModelMaterial& material) {
        const DecodedImage* color = picture(material.texture);
        const DecodedImage* opacity = picture(material.alphaTexture);
        const DecodedImage* normals = picture(material.normalTexture);
        if (color == nullptr)
            return kNone; // without a colour image the others say nothing
        const bool colorAlpha = material.alphaUse != AlphaUse::None && color->hasAlpha();
        const bool blended = colorAlpha && material.alphaUse == AlphaUse::Blend;
        Texture texture{material.texture, {colorDib(*color, blended)}};
        if (opacity != nullptr)
            texture.files.push_back(opacityDib(*opacity, opacity->hasAlpha()));
        else if (colorAlpha && !blended)
            texture.files.push_back(opacityDib(*color, true));
        if (normals != nullptr)
            texture.files.push_back(normalMapTga(*normals));
        model_.textures.push_back(std::move(texture));
        isBlended_.push_back(blended);
        return static_cast<int>(model_.textures.size() - 1);
    }

    const ImageSource& source_;
    Model& model_;
    std::map<std::string, std::optional<DecodedImage>> pictures_;
    std::map<Key, int> numbers_;
    std::vector<bool> isBlended_; ///< by texture
};

} // namespace

ImageSource imagesBeside(const std::string& modelPath) {
    const std::string folder = std::filesystem::path(modelPath).parent_path().string();
    return [folder](const std::string& name, DecodedImage& image) {
        std::vector<uint8_t> bytes;
        const std::string problem = readModelFile(folder, name, bytes);
        return problem.empty() ? decodeImage(bytes, image) : problem;
    };
}

void addTextures(const ImageSource& source, Model& model) {
    TextureMaker maker(source, model);
    for (ModelMaterial& material : model.materials)
        maker.addTo(material);
}

} // namespace ogl::host
