// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "gpu/texture.h"
#include "render/material_images.h"
#include "render/renderer.h"

namespace ogl {

namespace {

void turnTexturesOff() {
    for (int unit = 3; unit >= 0; --unit) {
        glActiveTexture(static_cast<unsigned>(GL_TEXTURE0 + unit));
        glBindTexture(GL_TEXTURE_2D, 0);
        glDisable(GL_TEXTURE_2D);
    }
}

/// The colour comes from unit 0, the alpha from this unit's texture.
void combineAlphaOnly() {
    glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_COMBINE);
    glTexEnvi(GL_TEXTURE_ENV, GL_COMBINE_RGB, GL_REPLACE);
    glTexEnvi(GL_TEXTURE_ENV, GL_SOURCE0_RGB, GL_PREVIOUS);
    glTexEnvi(GL_TEXTURE_ENV, GL_COMBINE_ALPHA, GL_REPLACE);
    glTexEnvi(GL_TEXTURE_ENV, GL_SOURCE0_ALPHA, GL_TEXTURE);
}

/// Alpha maps are grey: their brightness is the alpha.
void bindAlphaMap(const TextureImage& image, float anisotropy) {
    bindTexture(1, TextureKind::Repeating, image.textureName(), GL_LINEAR, anisotropy);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    if (GLEW_ARB_texture_swizzle)
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_SWIZZLE_A, GL_RED);
    combineAlphaOnly();
}

} // namespace

void Renderer::bindMaterialTextures(const MATERIAL& material, int& textured, int& sharedSlot,
                                    int& alphaMap, unsigned enable) {
    textured = sharedSlot = alphaMap = 0;
    if (enable == 0 || choices.textureMode == TextureMode::None || scene == nullptr) {
        turnTexturesOff();
        return;
    }
    const MaterialImages images = materialImages(material, SceneLists(*scene), choices.textureMode);
    sharedSlot = images.shared ? 1 : 0;
    textured = images.color != nullptr ? 1 : 0;
    alphaMap = images.opacity != nullptr ? 1 : 0;
    if (images.opacity != nullptr && images.opacity->hasTexture())
        bindAlphaMap(*images.opacity, maxAnisotropy);
    else
        resetTextureUnit(1);
    // Unit 0 last, so that it is the active one.
    if (images.color != nullptr && images.color->hasTexture())
        bindTexture(0, TextureKind::Repeating, images.color->textureName(), GL_LINEAR,
                    maxAnisotropy);
    else
        resetTextureUnit(0);
}

} // namespace ogl
