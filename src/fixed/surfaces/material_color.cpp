// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/surfaces/material_color.h"

#include "render/renderer.h"
#include "scene/record_color.h"

#include <algorithm>

namespace ogl {

Vec4 materialColor(const MATERIAL& material, TextureMode textureMode, ColorMode colorMode,
                   bool sharedSlot, bool textured) {
    const float glow = material.reflection * kReflectionShare;
    Vec3 color{static_cast<float>(material.color.red) * kByteScale + glow,
               static_cast<float>(material.color.green) * kByteScale + glow,
               static_cast<float>(material.color.blue) * kByteScale + glow};
    float factor = 1.0f;
    if (textureMode == TextureMode::None || textureMode == TextureMode::SharedOnly) {
        color = {1.0f, 1.0f, 1.0f};
    } else if (textured) {
        color = {0.5f, 0.5f, 0.5f};
    } else if (colorMode == ColorMode::Grey) {
        const float grey = 0.6f * color.y + 0.3f * color.x + 0.1f * color.z;
        color = {grey, grey, grey};
    } else {
        factor = material.brightness * kBrightnessScale;
    }
    return {std::min(color.x * factor, 1.0f), std::min(color.y * factor, 1.0f),
            std::min(color.z * factor, 1.0f), visibleAlpha(sharedSlot ? 1.0f : material.opacity)};
}

} // namespace ogl
