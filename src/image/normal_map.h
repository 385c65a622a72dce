// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "image/image.h"

namespace ogl {

/// The normal map of a bump image (Rgb8 or Rgba8, brighter = higher) whose bytes are first scaled
/// by `strength`; a negative strength turns heights into depths. Rgba8 of the same size: the unit
/// normal's x, y and z from -1 .. 1 to 0 .. 255, and the height as alpha. The image is taken as
/// one tile of a pattern. Another format, or missing pixels, gives an image of format None.
Image normalMapOf(const Image& bump, float strength);

} // namespace ogl
