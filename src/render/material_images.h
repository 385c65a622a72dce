// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "gpu/texture_image.h"
#include "render/draw_choices.h"
#include "scene/record_views.h"

namespace ogl {

/// The images that a material shows; null where it has none.
struct MaterialImages {
    const TextureImage* color = nullptr; ///< or the alternative colour image
    const TextureImage* opacity = nullptr;
    const TextureImage* normal = nullptr; ///< the normal map made from a bump image, or the given
    const TextureImage* specular = nullptr;
    bool shared = false; ///< they come from a shared slot, whether it holds any or not
};

/// The images of the material's slot, as far as `textureMode` lets them be used.
/// They may have no GL texture: prepareTextures() makes those.
MaterialImages materialImages(const MATERIAL& material, const SceneLists& lists,
                              TextureMode textureMode);

} // namespace ogl
