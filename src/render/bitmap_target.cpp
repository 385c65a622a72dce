// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "render/bitmap_target.h"

#include "gpu/frame_read.h"

#include <algorithm>

namespace ogl {

BitmapTarget bitmapTarget(HBITMAP bitmap) {
    DIBSECTION section{};
    if (bitmap == nullptr || GetObjectA(bitmap, static_cast<int>(sizeof(section)), &section) !=
                                 static_cast<int>(sizeof(section)))
        return {};
    const BITMAP& description = section.dsBm;
    const int bits = description.bmBitsPixel;
    if ((bits != 24 && bits != 32) || description.bmWidth <= 0 || description.bmHeight <= 0)
        return {};
    return {description.bmWidth, description.bmHeight, bits, description.bmWidthBytes,
            static_cast<uint8_t*>(description.bmBits)};
}

void readFrame(const BitmapTarget& target, int viewWidth, int viewHeight) {
    const int width = std::min(viewWidth, target.width);
    const int height = std::min(viewHeight, target.height);
    if (!target.isValid() || width <= 0 || height <= 0)
        return;
    glPixelStorei(GL_PACK_ALIGNMENT, 4);
    glPixelStorei(GL_PACK_ROW_LENGTH, target.width);
    readPixels(width, height, target.bitsPerPixel == 24 ? GL_BGR : GL_BGRA, target.pixels);
    glPixelStorei(GL_PACK_ROW_LENGTH, 0);
}

} // namespace ogl
