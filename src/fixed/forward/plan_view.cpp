// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/forward/plan_view.h"

#include "gpu/tile_renderer.h"
#include "math/vector3.h"
#include "ogl/host_records.h"
#include "render/bitmap_target.h"

#include <algorithm>
#include <cmath>

namespace ogl {

namespace {

constexpr double kNear = 0.1;

/// An orthographic view from above.
struct PlanView {
    Frustum bounds;
    double eyeHeight; ///< z of the eye
    double middle;    ///< z of the point below that it looks at
};

/// What a plan shows, in scene coordinates: `bounds`, grown to hold the origin and the site's
/// width along x and depth along y from there.
Box planBox(const SCENE& scene, Box bounds) {
    const double unit = 1.0 / (scene.geometry.unitScale * 1000.0);
    bounds.min.x = std::min(bounds.min.x, 0.0f);
    bounds.min.y = std::min(bounds.min.y, 0.0f);
    bounds.min.z = std::min(bounds.min.z, 0.0f);
    if (std::isfinite(unit)) {
        bounds.max.x = std::max(bounds.max.x, static_cast<float>(scene.siteWidth * unit));
        bounds.max.y = std::max(bounds.max.y, static_cast<float>(scene.siteDepth * unit));
    }
    return bounds;
}

/// The view that shows the whole box.
PlanView planView(const Box& box) {
    const auto diagonal = static_cast<double>(box.diagonal());
    const Vec3 center = box.center();
    const double distance =
        std::hypot(static_cast<double>(center.x), static_cast<double>(center.y), diagonal);
    return {{box.min.x, box.max.x, box.min.y, box.max.y, kNear, distance + diagonal},
            diagonal + center.z,
            center.z};
}

void applyProjection(const Frustum& bounds, const PixelRect& viewport) {
    glViewport(viewport.x, viewport.y, viewport.width, viewport.height);
    loadOrtho(bounds);
}

/// Clears and draws with the projection that is set.
void drawPlan(Renderer& renderer, const PlanView& view, const std::function<void()>& drawMeshes) {
    renderer.clearBackground();
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    gluLookAt(0.0, 0.0, view.eyeHeight, 0.0, 0.0, view.middle, 0.0, 1.0, 0.0);
    drawMeshes();
}

/// Tiles without borders: no pass of a plan reads its neighbours, and marks reach from one tile
/// into the next.
void drawInTiles(Renderer& renderer, const BitmapTarget& target, const PlanView& view,
                 const std::function<void()>& drawMeshes) {
    if (renderer.width < 1 || renderer.height < 1)
        return;
    TileRenderer tiles;
    tiles.setTileSize(renderer.width, renderer.height, 0);
    tiles.setImageSize(target.width, target.height);
    tiles.setImageBuffer(target.bitsPerPixel == 24 ? GL_BGR : GL_BGRA, GL_UNSIGNED_BYTE,
                         target.pixels);
    tiles.setOrtho(view.bounds);
    glPixelStorei(GL_PACK_ALIGNMENT, 4);
    do {
        tiles.beginTile();
        const TileSurroundings around = tiles.surroundings();
        applyProjection(around.bounds.value_or(view.bounds), around.viewport);
        drawPlan(renderer, view, drawMeshes);
    } while (tiles.endTile());
}

} // namespace

void drawPlanToBitmap(Renderer& renderer, HBITMAP bitmap, const std::function<void()>& drawMeshes) {
    const BitmapTarget target = bitmapTarget(bitmap);
    if (!target.isValid())
        return;
    const PlanView view = planView(planBox(*renderer.scene, renderer.sceneBounds));
    if (target.width == renderer.width && target.height == renderer.height) {
        applyProjection(view.bounds, {0, 0, target.width, target.height});
        drawPlan(renderer, view, drawMeshes);
        readFrame(target, target.width, target.height);
        return;
    }
    drawInTiles(renderer, target, view, drawMeshes);
}

} // namespace ogl
