// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "gpu/tile_renderer.h"

#include <algorithm>
#include <numbers>

namespace ogl {

namespace {

int quotientUp(int a, int b) {
    return a > 0 && b > 0 ? (a - 1) / b + 1 : 0;
}

/// Where glReadPixels puts a rectangle of a larger picture; everything as before at the end.
class PackWindow {
  public:
    PackWindow() {
        for (int i = 0; i < 3; ++i)
            glGetIntegerv(kNames[i], &saved_[i]);
    }
    ~PackWindow() { set(saved_[0], saved_[1], saved_[2]); }
    PackWindow(const PackWindow&) = delete;
    PackWindow& operator=(const PackWindow&) = delete;

    static void set(int rowLength, int skippedRows, int skippedPixels) {
        glPixelStorei(kNames[0], rowLength);
        glPixelStorei(kNames[1], skippedRows);
        glPixelStorei(kNames[2], skippedPixels);
    }

  private:
    static constexpr unsigned kNames[3] = {GL_PACK_ROW_LENGTH, GL_PACK_SKIP_ROWS,
                                           GL_PACK_SKIP_PIXELS};
    int saved_[3] = {};
};

/// A stretch of a picture's columns or rows.
struct Stretch {
    int first = 0;
    int count = 0;
};

/// At most `limit` of `total` columns or rows, about as many before as after `center`.
Stretch around(int center, int total, int limit) {
    const int count = std::min(total, limit);
    return {std::clamp(center - count / 2, 0, total - count), count};
}

} // namespace

void TileRenderer::setTileSize(int width, int height, int border) {
    tileWidth_ = width;
    tileHeight_ = height;
    border_ = border;
    countTiles();
    currentTile_ = 0;
    drawing_ = false;
}

void TileRenderer::setTileBuffer(unsigned format, unsigned type, void* buffer) {
    tile_ = {format, type, buffer};
}

void TileRenderer::setImageSize(int width, int height) {
    imageWidth_ = width;
    imageHeight_ = height;
    countTiles();
}

void TileRenderer::setImageBuffer(unsigned format, unsigned type, void* buffer) {
    image_ = {format, type, buffer};
}

int TileRenderer::get(TileToken token) const {
    switch (token) {
    case TileToken::TileWidth:
        return tileWidth_;
    case TileToken::TileHeight:
        return tileHeight_;
    case TileToken::TileBorder:
        return border_;
    case TileToken::ImageWidth:
        return imageWidth_;
    case TileToken::ImageHeight:
        return imageHeight_;
    case TileToken::Rows:
        return rows_;
    case TileToken::Columns:
        return columns_;
    case TileToken::CurrentRow:
        return drawing_ ? row_ : -1;
    case TileToken::CurrentColumn:
        return drawing_ ? column_ : -1;
    case TileToken::CurrentTileWidth:
        return currentWidth_;
    case TileToken::CurrentTileHeight:
        return currentHeight_;
    case TileToken::RowOrder:
        return static_cast<int>(rowOrder_);
    default:
        return 0;
    }
}

void TileRenderer::setRowOrder(TileToken order) {
    if (order == TileToken::TopToBottom || order == TileToken::BottomToTop)
        rowOrder_ = order;
}

void TileRenderer::setOrtho(const Frustum& bounds) {
    bounds_ = bounds;
    perspective_ = false;
}

void TileRenderer::setFrustum(const Frustum& frustum) {
    bounds_ = frustum;
    perspective_ = true;
}

void TileRenderer::setPerspective(double fieldOfViewDegrees, double aspect, double near,
                                  double far) {
    const double top = near * std::tan(fieldOfViewDegrees * std::numbers::pi / 360.0);
    setFrustum({-top * aspect, top * aspect, -top, top, near, far});
}

void TileRenderer::countTiles() {
    columns_ = quotientUp(imageWidth_, innerWidth());
    rows_ = quotientUp(imageHeight_, innerHeight());
}

void TileRenderer::beginTile() {
    if (currentTile_ <= 0) {
        countTiles();
        glGetIntegerv(GL_VIEWPORT, savedViewport_);
        currentTile_ = 0;
    }
    if (rows_ == 0 || columns_ == 0)
        return;
    placeTile();
    drawing_ = true;
    glViewport(0, 0, currentWidth_, currentHeight_);
    if (perspective_)
        loadFrustum(tileFrustum());
    else
        loadOrtho(tileFrustum());
}

void TileRenderer::placeTile() {
    row_ = currentTile_ / columns_;
    column_ = currentTile_ % columns_;
    if (rowOrder_ == TileToken::TopToBottom)
        row_ = rows_ - row_ - 1;
    currentWidth_ = column_ < columns_ - 1
                        ? tileWidth_
                        : imageWidth_ - (columns_ - 1) * innerWidth() + 2 * border_;
    currentHeight_ =
        row_ < rows_ - 1 ? tileHeight_ : imageHeight_ - (rows_ - 1) * innerHeight() + 2 * border_;
}

Frustum TileRenderer::tileFrustum() const {
    const double x = column_ * innerWidth() - border_;
    const double y = row_ * innerHeight() - border_;
    return bounds_.part(x, y, x + currentWidth_, y + currentHeight_, imageWidth_, imageHeight_);
}

TileSurroundings TileRenderer::surroundings() const {
    GLint limits[2] = {1, 1};
    glGetIntegerv(GL_MAX_VIEWPORT_DIMS, limits);
    const int x = column_ * innerWidth() - border_;
    const int y = row_ * innerHeight() - border_;
    const Stretch columns = around(x + tileWidth_ / 2, imageWidth_, limits[0]);
    const Stretch rows = around(y + tileHeight_ / 2, imageHeight_, limits[1]);
    TileSurroundings result{{columns.first - x, rows.first - y, columns.count, rows.count}, {}};
    if (columns.count < imageWidth_ || rows.count < imageHeight_)
        result.bounds = bounds_.part(columns.first, rows.first, columns.first + columns.count,
                                     rows.first + rows.count, imageWidth_, imageHeight_);
    return result;
}

bool TileRenderer::endTile() {
    if (!drawing_) {
        currentTile_ = -1;
        return false;
    }
    glFlush();
    readTile();
    drawing_ = false;
    if (++currentTile_ < rows_ * columns_)
        return true;
    glViewport(savedViewport_[0], savedViewport_[1], savedViewport_[2], savedViewport_[3]);
    currentTile_ = -1;
    return false;
}

void TileRenderer::readTile() const {
    const PackWindow restored;
    if (tile_.pixels != nullptr) {
        PackWindow::set(0, 0, 0);
        readPixels({0, 0, currentWidth_, currentHeight_}, tile_.format, tile_.type, tile_.pixels);
    }
    if (image_.pixels != nullptr) {
        PackWindow::set(imageWidth_, row_ * innerHeight(), column_ * innerWidth());
        readPixels({border_, border_, currentWidth_ - 2 * border_, currentHeight_ - 2 * border_},
                   image_.format, image_.type, image_.pixels);
    }
}

void TileRenderer::rasterPos3f(float x, float y, float z) const {
    if (!drawing_) {
        glRasterPos3f(x, y, z);
        return;
    }
    double modelView[16];
    double projection[16];
    glGetDoublev(GL_MODELVIEW_MATRIX, modelView);
    glGetDoublev(GL_PROJECTION_MATRIX, projection);
    const GLint viewport[4] = {0, 0, currentWidth_, currentHeight_};
    double windowX = 0.0;
    double windowY = 0.0;
    double depth = 0.0;
    if (gluProject(static_cast<double>(x), static_cast<double>(y), static_cast<double>(z),
                   modelView, projection, viewport, &windowX, &windowY, &depth) != GL_TRUE)
        return;
    // A corner that is surely inside is a valid raster position; moving it keeps it valid.
    glPushAttrib(GL_TRANSFORM_BIT);
    glMatrixMode(GL_PROJECTION);
    glPushMatrix();
    glLoadIdentity();
    glOrtho(0.0, currentWidth_, 0.0, currentHeight_, 0.0, 1.0);
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    glLoadIdentity();
    glRasterPos3d(0.0, 0.0, -depth);
    glBitmap(0, 0, 0.0f, 0.0f, static_cast<float>(windowX), static_cast<float>(windowY), nullptr);
    glPopMatrix();
    glMatrixMode(GL_PROJECTION);
    glPopMatrix();
    glPopAttrib();
}

} // namespace ogl
