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

} // namespace

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
        result.opacity =
            std::string_view(alphaMode.C_Str()) == "BLEND" ? unitRange(color.a, 1.0f) : 1.0f;
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
    return result;
}

} // namespace ogl::host
