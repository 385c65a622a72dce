// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Pictures by way of the library's file output. It stores the frame's top row first, where Windows
// bitmaps have the bottom row; here they are turned the usual way up.
#pragma once

#include "oglview/dib_section.h"
#include "oglview/drawing_view.h"

namespace oglview {

/// Draws the scene into a temporary file and copies it into the bitmap, bottom row first. Throws
/// UserError when the library has written no picture of the bitmap's size.
void drawThroughFile(const DrawingView& view, ogl::SCENE* scene, uint32_t drawFlags,
                     DibSection& bitmap);

} // namespace oglview
