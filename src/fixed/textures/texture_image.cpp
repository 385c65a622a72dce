// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/textures/texture_image.h"

#include "platform/record_object.h"

namespace ogl {

TextureImage* makeTextureImage() {
    return makeRecordObject<TextureImage>(memory32::Kind::TextureImage);
}

void releaseTextureImage(Ptr32<TextureImage>& slot) {
    releaseRecordObject(slot, memory32::Kind::TextureImage);
}

} // namespace ogl
