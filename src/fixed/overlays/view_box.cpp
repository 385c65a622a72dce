// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/overlays/overlays.h"

#include "fixed/batches/loop_points.h"
#include "fixed/overlays/overlay_state.h"
#include "fixed/overlays/placed_lines.h"
#include "gpu/gl_debug.h"

namespace ogl {

namespace {

constexpr float kBoxLineWidth = 1.5f;
constexpr Vec3 kGroundTint{0.3f, 0.3f, 0.3f};

/// Corners are numbered by bits: 4 at the size in x, 2 in y, 1 in z.
constexpr unsigned kSegments[][2] = {{0, 1}, {2, 3}, {4, 5}, {6, 7}, {0, 4}, {2, 6}, {3, 7},
                                     {1, 5}, {0, 2}, {4, 6}, {5, 7}, {1, 3}, {2, 7}, {3, 6}};

Vec3 corner(unsigned number, Vec3 size, bool mirrored) {
    const float y = (number & 2u) != 0 ? size.y : 0.0f;
    return {(number & 4u) != 0 ? size.x : 0.0f, mirrored ? -y : y,
            (number & 1u) != 0 ? size.z : 0.0f};
}

void setViewBoxState() {
    glEnable(GL_MULTISAMPLE);
    glDisable(GL_DEPTH_TEST);
    glLineWidth(kBoxLineWidth);
    glPolygonMode(GL_FRONT_AND_BACK, GL_LINE);
}

} // namespace

void drawBox(const SCENE& scene, const VIEW& view, const BoxStyle& style) {
    const DebugGroup group("view box");
    const Vec3 size = scaledPoint(view.boxSize, loopPointScale(scene));
    VertexArray lines;
    for (const auto& segment : kSegments)
        for (const unsigned end : segment)
            lines.positions.push_back(corner(end, size, style.mirrored));
    setViewBoxState();
    lines.upload(GL_LINES);
    drawPlacedLines(lines, placementOf(scene, view, style.position, style.angle),
                    style.color + kGroundTint, style.color);
    setOverlayState();
}

void drawViewBox(const SCENE& scene, const VIEW& view) {
    drawBox(scene, view, {.position = view.boxPosition, .angle = view.boxAngle});
}

} // namespace ogl
