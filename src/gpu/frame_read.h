// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

namespace ogl {

/// Reads the lower left `width` x `height` pixels of the current read buffer, bottom row first,
/// with the current pixel store. `format`: GL_BGR, GL_BGRA, GL_RGB or GL_RGBA, 8 bits per channel.
/// The samples of a multisampled window are averaged.
void readPixels(int width, int height, unsigned format, void* pixels);

} // namespace ogl
