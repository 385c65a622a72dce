// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "gpu/texture_image.h"

namespace ogl {

class Renderer;

/// Makes the GL textures that the used materials of the renderer's scene need: colour images,
/// specular maps and given normal maps once; opacity maps, as grey textures, every time; normal
/// maps from bump images when the material's bump strength is not the one that they were made
/// with. A material with a bump strength but no bump image gets a copy of its colour image as
/// one, which the host frees with its slot. Sets the renderer's anisotropy. Leaves texturing off
/// on unit 0, which is active.
void prepareTextures(Renderer& renderer);

/// Makes the image's texture the normal map of its pixels at `strength`, unless it is that
/// already. Images that are neither GL_RGB nor GL_RGBA get none.
void buildNormalMap(TextureImage& image, float strength);

} // namespace ogl
