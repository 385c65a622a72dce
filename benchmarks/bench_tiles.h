// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

namespace ogl::bench {

/// A print of 6000 x 4000 pixels of a city of a million triangles, drawn in tiles, against a plain
/// OpenGL program that does the same, and without leaving anything out of a tile. Returns false
/// without a display.
bool benchTiles();

} // namespace ogl::bench
