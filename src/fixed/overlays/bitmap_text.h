// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "math/vector3.h"

#include <string_view>

namespace ogl {

/// Draws the text at the current raster position and moves that on. `fontLists`: the first bitmap
/// font list; 0 draws nothing. Bytes without a glyph in the font are left out.
void drawText(unsigned fontLists, std::string_view text);

/// Draws an opaque text whose first character's base line starts at (x, y) of the current
/// coordinates. Leaves depth test and blending off and lines 2 pixels wide.
void drawLabel(unsigned fontLists, std::string_view text, float x, float y, Vec3 color);

} // namespace ogl
