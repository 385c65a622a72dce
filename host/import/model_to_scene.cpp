// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host/import/model_to_scene.h"

#include <cmath>

namespace ogl::host {
namespace {

uint8_t byteOf(float unitRange) {
    return static_cast<uint8_t>(std::lround(unitRange * 255.0f));
}

Material materialOf(const ModelMaterial& source, TextureId firstTexture) {
    Material material;
    material.name = source.name;
    material.color = {byteOf(source.color[0]), byteOf(source.color[1]), byteOf(source.color[2])};
    material.opacity = source.opacity;
    material.emission = source.emission;
    material.specular = source.specular;
    if (source.textureNumber != kNone) {
        material.texture = firstTexture + source.textureNumber;
        material.brightness = kTexturedBrightness;
    }
    material.alphaTextured = source.alphaTextured;
    return material;
}

/// The parts of one object that go into one soup, so that neighbours across parts are found.
struct SoupArrays {
    std::vector<Vec3> positions;
    std::vector<Vec3> normals;
    std::vector<Vec2> texCoords;
    std::vector<uint32_t> indices;
    std::vector<MaterialId> materials;
    bool hasTexCoords = false;

    void add(const ModelPart& part, double scale, MaterialId material) {
        const auto first = static_cast<uint32_t>(positions.size());
        for (const Vec3& position : part.positions)
            positions.push_back(position * scale);
        for (size_t k = 0; k + 2 < part.normals.size(); k += 3)
            normals.push_back({part.normals[k], part.normals[k + 1], part.normals[k + 2]});
        for (size_t k = 0; k + 1 < part.texCoords.size(); k += 2)
            texCoords.push_back({part.texCoords[k], part.texCoords[k + 1]});
        hasTexCoords = hasTexCoords || !part.texCoords.empty();
        texCoords.resize(positions.size());
        for (const uint32_t vertex : part.triangles)
            indices.push_back(first + vertex);
        materials.resize(indices.size() / 3, material);
    }

    TriangleSoup soup() const {
        TriangleSoup result;
        result.positions = positions;
        result.normals = normals;
        if (hasTexCoords)
            result.texCoords = texCoords;
        result.indices = indices;
        result.materials = materials;
        return result;
    }
};

void addTo(SoupReport& sum, const SoupReport& report) {
    sum.invalid += report.invalid;
    sum.degenerate += report.degenerate;
    sum.duplicate += report.duplicate;
    sum.inner += report.inner;
    sum.planarFaces += report.planarFaces;
    sum.curvedFaces += report.curvedFaces;
    sum.triangles += report.triangles;
}

SoupReport addObjectParts(SceneBuilder& builder, ObjectId id, const Model& model,
                          const ModelObject& object, double scale, bool bothSides,
                          MaterialId firstMaterial) {
    SoupReport sum;
    for (const bool twoSided : {false, true})
        for (const bool withNormals : {false, true}) {
            SoupArrays arrays;
            for (const ModelPart& part : object.parts)
                if ((bothSides || model.materials[part.material].twoSided) == twoSided &&
                    !part.normals.empty() == withNormals)
                    arrays.add(part, scale, firstMaterial + static_cast<int>(part.material));
            if (arrays.indices.empty())
                continue;
            SoupOptions options;
            options.bothSides = twoSided;
            addTo(sum, builder.addTriangleSoup(id, arrays.soup(), options));
        }
    return sum;
}

} // namespace

SoupReport addModel(SceneBuilder& builder, const Model& model, double scale, bool bothSides) {
    const MaterialId firstMaterial = builder.materialCount();
    const auto firstTexture = static_cast<TextureId>(builder.textures().size());
    for (const Texture& texture : model.textures)
        builder.addTexture(texture);
    for (const ModelMaterial& material : model.materials)
        builder.addMaterial(materialOf(material, firstTexture));
    SoupReport sum;
    for (const ModelObject& object : model.objects)
        addTo(sum, addObjectParts(builder, builder.addObject(object.name), model, object, scale,
                                  bothSides, firstMaterial));
    return sum;
}

} // namespace ogl::host
