// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "render/material_images.h"

#include "render/renderer.h"

namespace ogl {

MaterialImages materialImages(const MATERIAL& material, const SceneLists& lists,
                              TextureMode textureMode) {
    MaterialImages images;
    const TEXTURESLOT* slot = textureSlot(lists, material);
    const bool isInline = material.textureIndex == -1;
    if (slot == nullptr || textureMode == TextureMode::None ||
        (isInline && textureMode != TextureMode::All))
        return images;
    images.shared = !isInline;
    images.color = liveImage(slot->color.get());
    if (images.color == nullptr)
        images.color = liveImage(slot->alternativeColor.get());
    images.opacity = liveImage(slot->opacity.get());
    // A bump image from which no normal map was made does not hide the given one.
    images.normal = liveImage(slot->bump.get());
    if (images.normal == nullptr || !images.normal->hasTexture())
        images.normal = liveImage(slot->normalMap.get());
    images.specular = liveImage(slot->specular.get());
    return images;
}

} // namespace ogl
