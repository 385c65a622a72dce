// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Textures computed in code, as device-independent bitmaps.
#pragma once

#include "host/scene_parts.h"

#include <functional>

namespace ogl::host {

/// A colour of doubles from 0 to 1.
struct Tone {
    double red = 0.0;
    double green = 0.0;
    double blue = 0.0;
};

/// A DIB of `width` x `height` pixels (`width` a multiple of 4) with the colour that `tone` gives
/// for the middle of each pixel; (0, 0) is the lower left corner of the image, (1, 1) the upper
/// right. Opacity maps get 8 bits per pixel (the red channel), all others 24.
TextureFile paintDib(TextureUsage usage, int width, int height,
                     const std::function<Tone(double u, double v)>& tone);

Texture woodPlanks();
Texture stoneTiles();
Texture wallTiles();
Texture woodGrain();
Texture wovenFabric();
Texture stripedRug();
Texture deckBoards();
Texture cutHatch();
Texture leaf();
Texture abstractPainting();

} // namespace ogl::host
