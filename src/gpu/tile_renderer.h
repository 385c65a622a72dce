// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "gpu/frame_read.h"
#include "math/frustum.h"

#include <optional>

namespace ogl {

/// What TileRenderer::get() tells, and the two row orders.
enum class TileToken : int {
    TileWidth,
    TileHeight,
    TileBorder,
    ImageWidth,
    ImageHeight,
    Rows,
    Columns,
    CurrentRow,        ///< -1 unless a tile is being drawn
    CurrentColumn,     ///< -1 unless a tile is being drawn
    CurrentTileWidth,  ///< smaller than TileWidth in the last column
    CurrentTileHeight, ///< smaller than TileHeight in the top row
    RowOrder,          ///< TopToBottom or BottomToTop, as a number
    TopToBottom,
    BottomToTop,
};

/// The part of a picture around a tile that one viewport shows.
struct TileSurroundings {
    PixelRect viewport;            ///< counted from the tile's corner
    std::optional<Frustum> bounds; ///< of that part; none = all of the picture
};

/// Draws a picture of any size piece by piece in the current viewport's corner. Each tile shows a
/// part of the picture and a border around it, which is drawn but not kept:
///
///       +-----------+
///       |  +-----+  |    draw once per tile:
///       |  |kept |  |        do { tiles.beginTile(); ...draw...; } while (tiles.endTile());
///       |  +-----+  |
///       +-----------+
///
/// Rows count from the bottom of the picture, and pictures are stored bottom row first, in
/// whichever order the rows are drawn.
class TileRenderer {
  public:
    /// Pixels, the border included on each side. Starts over with the first tile.
    void setTileSize(int width, int height, int border);
    /// Receives each tile as it is, border included; null for none. Rows follow the pack alignment.
    void setTileBuffer(unsigned format, unsigned type, void* buffer);
    void setImageSize(int width, int height);
    /// Receives the picture; null for none. Rows follow the pack alignment.
    void setImageBuffer(unsigned format, unsigned type, void* buffer);
    /// 0 for tokens that name no value.
    int get(TileToken token) const;
    /// Order in which the rows are drawn: TopToBottom or BottomToTop; others change nothing.
    void setRowOrder(TileToken order);

    // The projection of the whole picture; one of them, before the first tile.

    void setOrtho(const Frustum& bounds);
    void setFrustum(const Frustum& frustum);
    /// `fieldOfViewDegrees`: vertical.
    void setPerspective(double fieldOfViewDegrees, double aspect, double near, double far);

    /// Sets the viewport and loads the tile's projection. Leaves the matrix mode at GL_PROJECTION.
    void beginTile();
    /// Reads what was drawn. False when that was the last tile; the viewport is then as it was
    /// before the first. Tiles without a part that is kept are none: false at once.
    bool endTile();

    /// Bounds of the tile being drawn, border included.
    Frustum tileFrustum() const;
    /// The whole picture, or as much around the tile being drawn as a viewport holds. With these as
    /// viewport and projection the tile shows the same, but what crosses its border is clipped
    /// where it is in a single frame: a line that is clipped starts its dashes anew, and a point
    /// whose middle lies outside is not drawn.
    TileSurroundings surroundings() const;
    /// Sets the raster position to a point, also to one outside the tile, so that what is drawn
    /// there reaches into it. Outside tiles the same as glRasterPos3f.
    void rasterPos3f(float x, float y, float z) const;

  private:
    struct Buffer {
        unsigned format = GL_RGBA;
        unsigned type = GL_UNSIGNED_BYTE;
        void* pixels = nullptr;
    };

    int innerWidth() const { return tileWidth_ - 2 * border_; }
    int innerHeight() const { return tileHeight_ - 2 * border_; }
    void countTiles();
    void placeTile();
    void readTile() const;

    int imageWidth_ = 0;
    int imageHeight_ = 0;
    Buffer image_;
    int tileWidth_ = 256;
    int tileHeight_ = 256;
    int border_ = 0;
    Buffer tile_;
    bool perspective_ = true;
    Frustum bounds_;
    TileToken rowOrder_ = TileToken::BottomToTop;
    int rows_ = 0;
    int columns_ = 0;
    int currentTile_ = -1;
    bool drawing_ = false;
    int currentWidth_ = 0;
    int currentHeight_ = 0;
    int row_ = 0;
    int column_ = 0;
    int savedViewport_[4] = {};
};

} // namespace ogl
