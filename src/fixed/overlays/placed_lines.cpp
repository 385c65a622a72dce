// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/overlays/placed_lines.h"

#include "fixed/batches/loop_points.h"
#include "fixed/overlays/overlay_state.h"

#include <numbers>

namespace ogl {

namespace {

void drawAtPlace(const VertexArray& lines, const Placement& place, float height, Vec3 color) {
    constexpr float kDegrees = 180.0f / std::numbers::pi_v<float>;
    setColor(color);
    glPushMatrix();
    glScalef(1.0f, 1.0f, height);
    glTranslatef(place.offset.x, place.offset.y, place.offset.z);
    glTranslatef(place.pivot.x, place.pivot.y, 0.0f);
    glRotatef(place.angle * kDegrees, 0.0f, 0.0f, 1.0f);
    glTranslatef(-place.pivot.x, -place.pivot.y, 0.0f);
    lines.draw(kDrawPositions);
    glPopMatrix();
}

} // namespace

Placement placementOf(const SCENE& scene, const VIEW& view, VEC3I offset, double angle) {
    const double scale = loopPointScale(scene);
    const PIXEL pivot = view.pivot;
    return {scaledPoint(offset, scale), static_cast<float>(angle),
            scaledPoint({pivot.x, pivot.y, 0}, scale)};
}

void drawPlacedLines(const VertexArray& lines, const Placement& place, Vec3 groundColor,
                     Vec3 color) {
    drawAtPlace(lines, place, 0.0f, groundColor);
    drawAtPlace(lines, place, 1.0f, color);
    lines.unbind();
}

} // namespace ogl
