// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/surfaces/program_material.h"

#include "gpu/texture.h"
#include "render/material_images.h"
#include "scene/record_color.h"

#include <algorithm>
#include <cmath>

namespace ogl {

namespace {

constexpr float kEmissionMark = 3.0f; ///< reflection factors above it mark emitting surfaces

/// How the programs read one kind of map.
struct MapRow {
    unsigned bit;
    int unit;
    const char* sampler;
    const char* flag;
};
constexpr MapRow kDiffuse{kDiffuseMap, 0, "diffuseMap", "hasDiffTexture"};
constexpr MapRow kNormal{kNormalMap, 1, "normalMap", "hasNormalTexture"};
constexpr MapRow kSpecular{kSpecularMap, 2, "specularMap", "hasSpecularTexture"};
constexpr MapRow kOpacity{kOpacityMap, 3, "opacityMap", "hasOpacityTexture"};

bool hasTexture(const TextureImage* image) {
    return image != nullptr && image->hasTexture();
}

void bindMap(const Renderer& renderer, const ShaderProgram& program, const MapRow& map,
             const TextureImage* image, unsigned mask) {
    const bool used = (mask & map.bit) != 0 && hasTexture(image);
    program.setInt(map.sampler, map.unit);
    program.setInt(map.flag, used ? 1 : 0);
    if (!used) {
        resetTextureUnit(map.unit);
        return;
    }
    bindTexture(map.unit, TextureKind::Repeating, image->textureName(), GL_LINEAR,
                renderer.maxAnisotropy);
    if (map.bit == kOpacityMap) {
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    }
}

/// Factor and colour before they are multiplied.
struct Tint {
    Vec3 color;
    float factor = 1.0f;
};

Tint tintOf(const MATERIAL& material, TextureMode textureMode, ColorMode colorMode, bool textured,
            bool opacityMap) {
    if (textureMode == TextureMode::None)
        return {{1.0f, 1.0f, 1.0f}};
    if (opacityMap || (textureMode == TextureMode::SharedOnly && textured))
        return {{0.5f, 0.5f, 0.5f}};
    if (colorMode == ColorMode::White)
        return {{1.0f, 1.0f, 1.0f}};
    const Vec3 color{static_cast<float>(material.color.red) / 255.0f,
                     static_cast<float>(material.color.green) / 255.0f,
                     static_cast<float>(material.color.blue) / 255.0f};
    if (colorMode == ColorMode::Grey) {
        const float grey = 0.3f * color.x + 0.6f * color.y + 0.1f * color.z;
        return {{grey, grey, grey}};
    }
    return {color, material.brightness * kBrightnessScale};
}

} // namespace

Vec4 programColor(const MATERIAL& material, TextureMode textureMode, ColorMode colorMode,
                  bool textured, bool opacityMap) {
    const Tint tint = tintOf(material, textureMode, colorMode, textured, opacityMap);
    const auto channel = [&](float value) { return std::min(value * tint.factor, 1.0f); };
    return {channel(tint.color.x), channel(tint.color.y), channel(tint.color.z),
            visibleAlpha(material.opacity)};
}

BoundMaterial bindProgramTextures(const Renderer& renderer, const ShaderProgram& program,
                                  const MATERIAL& material, unsigned mask) {
    BoundMaterial bound;
    if (mask == 0 || renderer.choices.textureMode == TextureMode::None) {
        for (const MapRow& map : {kDiffuse, kNormal, kSpecular, kOpacity})
            program.setInt(map.flag, 0);
        return bound;
    }
    const MaterialImages images =
        materialImages(material, SceneLists(*renderer.scene), renderer.choices.textureMode);
    bound.sharedSlot = images.shared;
    bound.textured = images.color != nullptr;
    bound.alphaMap = images.opacity != nullptr;
    bindMap(renderer, program, kOpacity, images.opacity, mask);
    bindMap(renderer, program, kSpecular, images.specular, mask);
    bindMap(renderer, program, kNormal, images.normal, mask);
    bindMap(renderer, program, kDiffuse, images.color, mask);
    return bound;
}

void setProgramMaterial(const Renderer& renderer, const ShaderProgram& program,
                        const MATERIAL& material, const BoundMaterial& bound) {
    const Vec4 color = programColor(material, renderer.choices.textureMode,
                                    renderer.choices.colorMode, bound.textured, bound.alphaMap);
    program.setVec4("diffuseMat", color.x, color.y, color.z, color.w);
    program.setFloat("reflFacMat", material.emission > 0.0f ? material.emission + kEmissionMark
                                                            : material.reflection);
    program.setFloat("fresnelFacMat", material.fresnel);
    program.setFloat("shininessMat", std::pow(10.0f, 3.1999998f * material.glossiness + 1.0f));
    program.setFloat("specularMat", material.specular);
}

BoundMaterial ProgramShading::bindTextures(const MATERIAL& material) {
    return bindProgramTextures(renderer_, program_, material, mask_);
}

void ProgramShading::setColor(const MATERIAL& material, const BoundMaterial& bound) {
    setProgramMaterial(renderer_, program_, material, bound);
}

void ProgramShading::draw(const MeshVertexArray& batch, const BoundMaterial&) {
    const int lit = (batch.flags & kBatchUnlit) != 0 ? 0 : 1;
    if (lit != lit_) {
        runs_.flush();
        program_.setInt("useLighting", lit);
    }
    lit_ = lit;
    runs_.add(batch);
}

void ProgramShading::finish(const BoundMaterial&) {
    runs_.flush();
}

} // namespace ogl
