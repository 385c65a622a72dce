// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "render/bitmap_frame.h"

#include "gpu/frame_read.h"
#include "gpu/tile_renderer.h"
#include "math/view_volume.h"

#include <algorithm>
#include <cmath>

namespace ogl {

namespace {

/// The part of a tile's side that its border takes, on each side.
constexpr double kBorderShare = 0.5 * 0.75;

/// Mesa's llvmpipe (22.3) drops samples of lines in the last column and row of a scissor box:
/// pixels that are drawn beyond what is kept, on each side.
constexpr int kScissorMargin = 1;

/// The border of a square tile: cut off for passes that read their neighbours, rounded for others.
/// Small tiles keep one pixel at least.
int borderOf(int side, bool screenSpacePasses) {
    const double border = side * kBorderShare;
    return std::min(static_cast<int>(screenSpacePasses ? border : std::round(border)),
                    (side - 1) / 2);
}

/// The renderer's camera for the time of a tiled picture.
class TileCamera {
  public:
    TileCamera(Renderer& renderer, const BitmapTarget& target)
        : renderer_(renderer), saved_(renderer.camera) {
        setViewCamera(renderer.camera, *renderer.scene, target.width, target.height,
                      renderer.camera.far);
        renderer.camera.applyView();
        glGetDoublev(GL_MODELVIEW_MATRIX, view_);
    }
    ~TileCamera() {
        renderer_.camera = saved_;
        renderer_.tileVolume = nullptr;
        glDisable(GL_SCISSOR_TEST);
    }
    TileCamera(const TileCamera&) = delete;
    TileCamera& operator=(const TileCamera&) = delete;

    const double* view() const { return view_; }

    /// The projection and viewport of the tile alone. The last tiles of a row or column, which are
    /// smaller, show more than they need: passes that read their neighbours work on whole targets.
    void showTile(const TileRenderer& tiles) const {
        PerspectiveCamera& camera = renderer_.camera;
        const int side = tiles.get(TileToken::TileWidth);
        camera.tile =
            tiles.tileFrustum().part(0, 0, side, side, tiles.get(TileToken::CurrentTileWidth),
                                     tiles.get(TileToken::CurrentTileHeight));
        camera.viewportWidth = side;
        camera.viewportHeight = side;
    }

    /// The tile as a part of its picture: lines are then clipped where those of a single frame are.
    void showPictureAround(const TileRenderer& tiles) const {
        const TileSurroundings around = tiles.surroundings();
        PerspectiveCamera& camera = renderer_.camera;
        camera.viewportX = around.viewport.x;
        camera.viewportY = around.viewport.y;
        camera.viewportWidth = around.viewport.width;
        camera.viewportHeight = around.viewport.height;
        camera.tile = around.bounds;
    }

  private:
    Renderer& renderer_;
    PerspectiveCamera saved_;
    double view_[16] = {};
};

/// The pixels of the current tile that are kept.
PixelRect keptPixels(const TileRenderer& tiles) {
    const int border = tiles.get(TileToken::TileBorder);
    return {border, border, tiles.get(TileToken::CurrentTileWidth) - 2 * border,
            tiles.get(TileToken::CurrentTileHeight) - 2 * border};
}

/// What can show in `rect` of the current tile, or reach into it from `reach` pixels away.
ViewVolume volumeAround(const TileRenderer& tiles, const PixelRect& rect, int reach,
                        const double* view) {
    const Frustum part = tiles.tileFrustum().part(
        rect.x - reach, rect.y - reach, rect.x + rect.width + reach, rect.y + rect.height + reach,
        tiles.get(TileToken::CurrentTileWidth), tiles.get(TileToken::CurrentTileHeight));
    return {part, view};
}

} // namespace

void drawFrameToBitmap(Renderer& renderer, HBITMAP bitmap, const std::function<void()>& drawFrame,
                       const TileNeeds& needs) {
    const BitmapTarget target = bitmapTarget(bitmap);
    if (!target.isValid())
        return;
    if (target.width == renderer.width && target.height == renderer.height) {
        drawFrame();
        readFrame(target, renderer.width, renderer.height);
        return;
    }
    drawTiles(renderer, target, drawFrame, needs);
}

void drawTiles(Renderer& renderer, const BitmapTarget& target,
               const std::function<void()>& drawTile, const TileNeeds& needs) {
    const int side = std::min(renderer.width, renderer.height);
    if (!target.isValid() || side < 1)
        return;
    const TileCamera camera(renderer, target);
    TileRenderer tiles;
    tiles.setTileSize(side, side, borderOf(side, needs.screenSpacePasses));
    tiles.setImageSize(target.width, target.height);
    tiles.setImageBuffer(target.bitsPerPixel == 24 ? GL_BGR : GL_BGRA, GL_UNSIGNED_BYTE,
                         target.pixels);
    tiles.setRowOrder(TileToken::TopToBottom);
    tiles.setFrustum(renderer.camera.pictureFrustum());
    glPixelStorei(GL_PACK_ALIGNMENT, 4);
    do {
        tiles.beginTile();
        const PixelRect kept = keptPixels(tiles);
        const int reach = needs.reachPixels + (needs.screenSpacePasses ? kept.x : 0);
        const ViewVolume volume = volumeAround(tiles, kept, reach, camera.view());
        renderer.tileVolume = &volume;
        if (needs.screenSpacePasses) {
            camera.showTile(tiles);
        } else {
            camera.showPictureAround(tiles);
            glEnable(GL_SCISSOR_TEST);
            const int margin = std::min(kScissorMargin, kept.x);
            glScissor(kept.x - margin, kept.y - margin, kept.width + 2 * margin,
                      kept.height + 2 * margin);
        }
        drawTile();
        glDisable(GL_SCISSOR_TEST);
    } while (tiles.endTile());
}

} // namespace ogl
