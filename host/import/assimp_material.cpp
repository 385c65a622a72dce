// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host/import/assimp_material.h"

#include <assimp/GltfMaterial.h>
#include <assimp/material.h>

#include <algorithm>
#include <cmath>

namespace ogl::host {
namespace {

/// A number in 0 .. 1, whatever the file says.
float unitRange(float value, float otherwise) {
    return std::isfinite(value) ? std::clamp(value, 0.0f, 1.0f) : otherwise;
}

float meanOf(const aiColor3D& color) {
    return unitRange((color.r + color.g + color.b) / 3.0f, 0.0f);
}

std::string textureOf(const aiMaterial& material, aiTextureType type) {
    aiString path;
    if (material.GetTexture(type, 0, &path) != AI_SUCCESS)
        return {};
    return {path.C_Str(), path.length};
}

/// Only blended materials have an opacity of their own in such files.
void readAlphaMode(std::string_view mode, float alpha, ModelMaterial& material) {
    material.opacity = 1.0f;
    material.alphaUse = AlphaUse::None;
    if (mode == "BLEND") {
        material.opacity = alpha;
        material.alphaUse = AlphaUse::Blend;
    } else if (mode == "MASK") {
        material.alphaUse = AlphaUse::CutOut;
    }
}

} // namespace

unsigned textureChannel(const aiMaterial& material) {
    aiString path;
    unsigned channel = 0;
    for (const aiTextureType type : {aiTextureType_BASE_COLOR, aiTextureType_DIFFUSE})
        if (material.GetTexture(type, 0, &path, nullptr, &channel) == AI_SUCCESS)
            return channel;
    return 0;
}

ModelMaterial readMaterial(const aiMaterial& material) {
    ModelMaterial result;
    aiString name;
    if (material.Get(AI_MATKEY_NAME, name) == AI_SUCCESS)
        result.name.assign(name.C_Str(), name.length);

    aiColor4D color(0.8f, 0.8f, 0.8f, 1.0f);
    if (material.Get(AI_MATKEY_BASE_COLOR, color) != AI_SUCCESS)
        material.Get(AI_MATKEY_COLOR_DIFFUSE, color);
    result.color = {unitRange(color.r, 0.8f), unitRange(color.g, 0.8f), unitRange(color.b, 0.8f)};

    float opacity = 1.0f;
    if (material.Get(AI_MATKEY_OPACITY, opacity) == AI_SUCCESS)
        result.opacity = unitRange(opacity, 1.0f);
    aiString alphaMode;
    if (material.Get(AI_MATKEY_GLTF_ALPHAMODE, alphaMode) == AI_SUCCESS)
        readAlphaMode(alphaMode.C_Str(), unitRange(color.a, 1.0f), result);
    aiColor3D emissive(0, 0, 0);
    if (material.Get(AI_MATKEY_COLOR_EMISSIVE, emissive) == AI_SUCCESS)
        result.emission = meanOf(emissive);
    aiColor3D specular(0, 0, 0);
    if (material.Get(AI_MATKEY_COLOR_SPECULAR, specular) == AI_SUCCESS)
        result.specular = meanOf(specular);
    int twoSided = 0;
    material.Get(AI_MATKEY_TWOSIDED, twoSided);
    result.twoSided = twoSided != 0;

    result.texture = textureOf(material, aiTextureType_BASE_COLOR);
    if (result.texture.empty())
        result.texture = textureOf(material, aiTextureType_DIFFUSE);
    result.alphaTexture = textureOf(material, aiTextureType_OPACITY);
    result.normalTexture = textureOf(material, aiTextureType_NORMALS);
    return result;
}

} // namespace ogl::host
