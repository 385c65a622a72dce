// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/overlays/overlays.h"

#include "fixed/batches/loop_points.h"
#include "fixed/overlays/overlay_state.h"
#include "gpu/gl_debug.h"
#include "scene/record_color.h"

#include <numbers>
#include <span>

namespace ogl {

namespace {

constexpr float kSymbolScale = 0.01f * 0.001f; ///< per percent of size

constexpr Vec3 kFirstFlat[] = {{0, 0, 0},    {0, 150, 0}, {75, 150, 0}, {75, 75, 0},
                               {300, 75, 0}, {300, 0, 0}, {0, 0, 0}};
constexpr Vec3 kFirstUpright[] = {{0, 0, 0},    {0, 0, 150}, {75, 0, 150}, {75, 0, 75},
                                  {300, 0, 75}, {300, 0, 0}, {0, 0, 0}};
constexpr Vec3 kSecondUpright[] = {{0, 0, 0},       {-100, 0, 100}, {-300, 0, 100}, {-300, 0, -100},
                                   {-100, 0, -100}, {0, 0, 0},      {-300, 0, 0}};
constexpr Vec3 kSecondFlat[] = {{0, 0, 0},       {-100, 100, 0},  {-300, 100, 0},
                                {-300, -100, 0}, {-100, -100, 0}, {0, 0, 0}};

void drawPolyline(std::span<const Vec3> points, float scale, bool mirrored) {
    glBegin(GL_LINE_STRIP);
    for (const Vec3& p : points)
        glVertex3f(p.x * scale, (mirrored ? -p.y : p.y) * scale, p.z * scale);
    glEnd();
}

void drawSymbol(const SCENE& scene, const SYMBOL& symbol, std::span<const Vec3> first,
                std::span<const Vec3> second) {
    const Vec3 position = scaledPoint(symbol.position, loopPointScale(scene));
    const float scale = static_cast<float>(symbol.sizePercent) * kSymbolScale;
    const bool mirrored = (symbol.flags & kSymbolMirrored) != 0;
    setColor(colorOf(symbol.color));
    glPushMatrix();
    glTranslatef(position.x, position.y, position.z);
    glRotated(symbol.angle * 180.0 / std::numbers::pi, 0.0, 0.0, 1.0);
    drawPolyline(first, scale, mirrored);
    drawPolyline(second, scale, mirrored);
    glPopMatrix();
}

} // namespace

void drawSymbols(const SCENE& scene) {
    const DebugGroup group("symbols");
    glEnable(GL_MULTISAMPLE);
    glDisable(GL_DEPTH_TEST);
    glLineWidth(1.0f);
    drawSymbol(scene, scene.symbol1, kFirstFlat, kFirstUpright);
    drawSymbol(scene, scene.symbol2, kSecondUpright, kSecondFlat);
    setOverlayState();
}

} // namespace ogl
