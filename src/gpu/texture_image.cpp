// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "gpu/texture_image.h"

#include "platform/memory32.h"

namespace ogl {

TextureImage* liveImage(TextureImage* address) {
    return memory32::owns(address, memory32::Kind::TextureImage) ? address : nullptr;
}

} // namespace ogl
