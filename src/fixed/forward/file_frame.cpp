// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/forward/file_frame.h"

#include "gpu/frame_read.h"
#include "image/bmp_file.h"
#include "platform/win32.h"

namespace ogl {

bool writeFrame(int width, int height, const char* fileName) {
    if (width <= 0 || height <= 0)
        return false;
    Image image;
    image.width = width;
    image.height = height;
    image.format = ImageFormat::Rgb8;
    image.pixels.resize(levelBytes(image, 0, 1));
    // OpenGL's first row is the frame's bottom row, and the writer stores the last row first.
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    readPixels(width, height, GL_RGB, image.pixels.data());
    glPixelStorei(GL_PACK_ALIGNMENT, 4);
    return writeBmp(image, fileName);
}

} // namespace ogl
