// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

namespace ogl {

/// Writes the lower left `width` x `height` pixels of the read buffer as a Windows bitmap of 24
/// bits per pixel. The frame's top row is stored first, under a positive height. False, with no
/// file left, when the path cannot be written.
bool writeFrame(int width, int height, const char* fileName);

} // namespace ogl
