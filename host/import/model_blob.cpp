// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host/import/model_blob.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <type_traits>

namespace ogl::host {
namespace {

constexpr uint32_t kModelMagic = 0x324c444d;   // "MDL2"
constexpr uint32_t kFailureMagic = 0x31525245; // "ERR1"

class Writer {
  public:
    template <class T> void value(const T& data) {
        static_assert(std::is_trivially_copyable_v<T>);
        const auto* first = reinterpret_cast<const std::byte*>(&data);
        bytes_.insert(bytes_.end(), first, first + sizeof(T));
    }
    template <class T> void array(const std::vector<T>& data) {
        static_assert(std::is_trivially_copyable_v<T>);
        value(static_cast<uint64_t>(data.size()));
        const auto* first = reinterpret_cast<const std::byte*>(data.data());
        bytes_.insert(bytes_.end(), first, first + data.size() * sizeof(T));
    }
    void text(const std::string& data) { array(std::vector<char>(data.begin(), data.end())); }
    std::vector<std::byte> take() { return std::move(bytes_); }

  private:
    std::vector<std::byte> bytes_;
};

/// Every read fails softly: after the first one that finds too few bytes all give zero.
class Reader {
  public:
    explicit Reader(std::span<const std::byte> bytes) : bytes_(bytes) {}

    template <class T> T value() {
        T data{};
        if (bytes_.size() < sizeof(T)) {
            broken_ = true;
            return data;
        }
        std::memcpy(&data, bytes_.data(), sizeof(T));
        bytes_ = bytes_.subspan(sizeof(T));
        return data;
    }
    /// A number of things of which each takes at least `bytesEach` bytes.
    size_t count(size_t bytesEach) {
        const auto number = value<uint64_t>();
        if (number > bytes_.size() / bytesEach) {
            broken_ = true;
            return 0;
        }
        return static_cast<size_t>(number);
    }
    template <class T> std::vector<T> array() {
        std::vector<T> data(count(sizeof(T)));
        if (!data.empty())
            std::memcpy(data.data(), bytes_.data(), data.size() * sizeof(T));
        bytes_ = bytes_.subspan(data.size() * sizeof(T));
        return data;
    }
    std::string text() {
        const std::vector<char> data = array<char>();
        return {data.begin(), data.end()};
    }
    bool good() const { return !broken_; }
    bool atEnd() const { return bytes_.empty(); }

  private:
    std::span<const std::byte> bytes_;
    bool broken_ = false;
};

constexpr size_t kSmallestMaterial = 4 * 8 + 7 * 4 + 3;
constexpr size_t kSmallestTexture = 2 * 8;
constexpr size_t kSmallestTextureFile = 5 * 4 + 8;
constexpr size_t kSmallestText = 8;
constexpr int kLargestSide = 0xffff;
constexpr size_t kSmallestPart = 4 + 4 * 8;
constexpr size_t kSmallestObject = 2 * 8;

void writeMaterial(Writer& out, const ModelMaterial& material) {
    out.text(material.name);
    out.value(material.color);
    out.value(material.opacity);
    out.value(material.emission);
    out.value(material.specular);
    out.value(static_cast<uint8_t>(material.twoSided));
    out.text(material.texture);
    out.text(material.alphaTexture);
    out.text(material.normalTexture);
    out.value(material.alphaUse);
    out.value(material.textureNumber);
    out.value(static_cast<uint8_t>(material.alphaTextured));
}

void writeTexture(Writer& out, const Texture& texture) {
    out.text(texture.name);
    out.value(static_cast<uint64_t>(texture.files.size()));
    for (const TextureFile& file : texture.files) {
        out.value(file.usage);
        out.value(file.type);
        out.value(file.width);
        out.value(file.height);
        out.value(file.bitsPerPixel);
        out.array(file.bytes);
    }
}

ModelMaterial readMaterial(Reader& in) {
    ModelMaterial material;
    material.name = in.text();
    material.color = in.value<std::array<float, 3>>();
    material.opacity = in.value<float>();
    material.emission = in.value<float>();
    material.specular = in.value<float>();
    material.twoSided = in.value<uint8_t>() != 0;
    material.texture = in.text();
    material.alphaTexture = in.text();
    material.normalTexture = in.text();
    material.alphaUse = in.value<AlphaUse>();
    material.textureNumber = in.value<int>();
    material.alphaTextured = in.value<uint8_t>() != 0;
    return material;
}

TextureFile readTextureFile(Reader& in) {
    TextureFile file;
    file.usage = in.value<TextureUsage>();
    file.type = in.value<TextureFileType>();
    file.width = in.value<int>();
    file.height = in.value<int>();
    file.bitsPerPixel = in.value<int>();
    file.bytes = in.array<uint8_t>();
    return file;
}

Texture readTexture(Reader& in) {
    Texture texture;
    texture.name = in.text();
    texture.files.resize(in.count(kSmallestTextureFile));
    for (TextureFile& file : texture.files)
        file = readTextureFile(in);
    return texture;
}

/// The usage decides where in the host's record the image goes. The bytes are the library's to
/// check.
bool isSound(const TextureFile& file) {
    constexpr std::array kUsages = {TextureUsage::Color, TextureUsage::Opacity,
                                    TextureUsage::NormalMap};
    return std::ranges::find(kUsages, file.usage) != kUsages.end() && file.width > 0 &&
           file.width <= kLargestSide && file.height > 0 && file.height <= kLargestSide;
}

bool readTextures(Reader& in, Model& model) {
    model.textures.resize(in.count(kSmallestTexture));
    for (Texture& texture : model.textures) {
        texture = readTexture(in);
        if (!in.good() || !std::ranges::all_of(
                              texture.files, [](const TextureFile& file) { return isSound(file); }))
            return false;
    }
    return in.good();
}

bool isUnitRange(float value) {
    return value >= 0.0f && value <= 1.0f;
}

bool isSound(const ModelMaterial& material, size_t textureCount) {
    return material.textureNumber >= kNone &&
           material.textureNumber < static_cast<int>(textureCount) &&
           std::ranges::all_of(material.color, isUnitRange) && isUnitRange(material.opacity) &&
           isUnitRange(material.emission) && isUnitRange(material.specular);
}

bool isSound(const ModelPart& part, size_t materialCount) {
    const size_t vertices = part.positions.size();
    const auto finite = [](auto number) { return std::isfinite(number); };
    return part.material < materialCount && part.triangles.size() % 3 == 0 &&
           (part.normals.empty() || part.normals.size() == vertices * 3) &&
           (part.texCoords.empty() || part.texCoords.size() == vertices * 2) &&
           std::ranges::all_of(part.triangles, [&](uint32_t v) { return v < vertices; }) &&
           std::ranges::all_of(part.positions, isFinite) &&
           std::ranges::all_of(part.normals, finite) && std::ranges::all_of(part.texCoords, finite);
}

ModelPart readPart(Reader& in) {
    ModelPart part;
    part.material = in.value<uint32_t>();
    part.positions = in.array<Vec3>();
    part.normals = in.array<float>();
    part.texCoords = in.array<float>();
    part.triangles = in.array<uint32_t>();
    return part;
}

bool readObjects(Reader& in, Model& model) {
    model.objects.resize(in.count(kSmallestObject));
    for (ModelObject& object : model.objects) {
        object.name = in.text();
        object.parts.resize(in.count(kSmallestPart));
        for (ModelPart& part : object.parts) {
            part = readPart(in);
            if (!in.good() || !isSound(part, model.materials.size()))
                return false;
        }
    }
    return in.good() && in.atEnd();
}

bool readModel(Reader& in, Model& model) {
    model.format = in.text();
    model.lengthUnit = in.text();
    model.lengthUnitGuessed = in.value<uint8_t>() != 0;
    model.moved = in.value<Vec3>();
    model.warnings.resize(in.count(kSmallestText));
    for (std::string& warning : model.warnings)
        warning = in.text();
    if (!readTextures(in, model))
        return false;
    model.materials.resize(in.count(kSmallestMaterial));
    for (ModelMaterial& material : model.materials) {
        material = readMaterial(in);
        if (!in.good() || !isSound(material, model.textures.size()))
            return false;
    }
    return readObjects(in, model);
}

} // namespace

std::vector<std::byte> packModel(const Model& model) {
    Writer out;
    out.value(kModelMagic);
    out.text(model.format);
    out.text(model.lengthUnit);
    out.value(static_cast<uint8_t>(model.lengthUnitGuessed));
    out.value(model.moved);
    out.value(static_cast<uint64_t>(model.warnings.size()));
    for (const std::string& warning : model.warnings)
        out.text(warning);
    out.value(static_cast<uint64_t>(model.textures.size()));
    for (const Texture& texture : model.textures)
        writeTexture(out, texture);
    out.value(static_cast<uint64_t>(model.materials.size()));
    for (const ModelMaterial& material : model.materials)
        writeMaterial(out, material);
    out.value(static_cast<uint64_t>(model.objects.size()));
    for (const ModelObject& object : model.objects) {
        out.text(object.name);
        out.value(static_cast<uint64_t>(object.parts.size()));
        for (const ModelPart& part : object.parts) {
            out.value(part.material);
            out.array(part.positions);
            out.array(part.normals);
            out.array(part.texCoords);
            out.array(part.triangles);
        }
    }
    return out.take();
}

std::vector<std::byte> packFailure(const std::string& message) {
    Writer out;
    out.value(kFailureMagic);
    out.text(message);
    return out.take();
}

std::string unpackModel(std::span<const std::byte> bytes, Model& model) {
    model = {};
    Reader in(bytes);
    const auto magic = in.value<uint32_t>();
    if (magic == kFailureMagic) {
        const std::string message = in.text();
        return in.good() && !message.empty() ? message : "the importer gave no reason";
    }
    if (magic == kModelMagic && readModel(in, model))
        return {};
    model = {};
    return "the importer handed back a damaged model";
}

} // namespace ogl::host
