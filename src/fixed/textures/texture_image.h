// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "gpu/texture_image.h"
#include "ogl/host_records.h"

namespace ogl {

/// Makes an empty image; null when there is no memory below 4 GiB.
TextureImage* makeTextureImage();

/// Frees the image, its pixels and its GL texture, and sets the slot to null. An address that is
/// no live image of the library's is not freed. The GL texture is deleted when a context is
/// current, else before the next frame.
void releaseTextureImage(Ptr32<TextureImage>& slot);

} // namespace ogl
