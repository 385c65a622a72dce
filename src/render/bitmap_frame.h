// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "render/bitmap_target.h"
#include "render/renderer.h"

#include <functional>

namespace ogl {

/// Pixels around a pixel that lines and marks drawn there can touch, at least.
inline constexpr int kUsualReach = 8;

/// What drawing in tiles has to regard.
struct TileNeeds {
    /// Half the width of the widest line or mark, pixels: batches that miss a tile by more are not
    /// drawn in it.
    int reachPixels = kUsualReach;
    /// Passes read neighbours of the pixels that they write, so that a tile's border must be drawn
    /// too. Without them only what a tile keeps is.
    bool screenSpacePasses = false;
};

/// Draws one frame into a bitmap: at once when it has the view's size, else in tiles. Anything that
/// is no DIB section of 24 or 32 bits stays untouched. `drawFrame` clears and draws into the back
/// buffer of the current context with the renderer's camera; Renderer::tileVolume says what it may
/// leave out. It is called once per tile; what is needed once per picture is drawn before.
void drawFrameToBitmap(Renderer& renderer, HBITMAP bitmap, const std::function<void()>& drawFrame,
                       const TileNeeds& needs = {});

/// Draws a picture of the bitmap's size in tiles, whose sides are the shorter one of the view.
/// For each tile the renderer's camera is set up; afterwards it is as before.
void drawTiles(Renderer& renderer, const BitmapTarget& target,
               const std::function<void()>& drawTile, const TileNeeds& needs);

} // namespace ogl
