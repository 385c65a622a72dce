// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

namespace ogl {

/// Pixels of a frame, counted from its lower left corner.
struct PixelRect {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
};

/// Reads the rectangle of the current read buffer, bottom row first, with the current pixel store.
/// The samples of a multisampled window are averaged.
void readPixels(const PixelRect& rect, unsigned format, unsigned type, void* pixels);

/// Reads the lower left `width` x `height` pixels of the current read buffer, bottom row first,
/// with the current pixel store. `format`: GL_BGR, GL_BGRA, GL_RGB or GL_RGBA, 8 bits per channel.
/// The samples of a multisampled window are averaged.
void readPixels(int width, int height, unsigned format, void* pixels);

} // namespace ogl
