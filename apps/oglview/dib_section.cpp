// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/dib_section.h"

#include "oglview/user_error.h"

#include <string>

namespace oglview {

DibSection::DibSection(int width, int height) {
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 24;
    info.bmiHeader.biCompression = BI_RGB;
    void* bits = nullptr;
    bitmap_ = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    if (bitmap_ == nullptr)
        throw UserError("there is no memory for a picture of " + std::to_string(width) + " x " +
                        std::to_string(height) + " pixels");
    pixels_ = static_cast<uint8_t*>(bits);
    picture_ = {width, height, pixels_};
}

} // namespace oglview
