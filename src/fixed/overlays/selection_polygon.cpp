// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/overlays/overlays.h"

#include "fixed/overlays/overlay_state.h"
#include "platform/win32.h"
#include "scene/record_views.h"

namespace ogl {

namespace {

constexpr GLushort kDashes = 0x0f0f;

ListView<POLYGONPOINT> pointsOf(const VIEW& view) {
    LIST list{};
    list.count = view.polygonCount;
    list.elementSize = sizeof(POLYGONPOINT);
    list.data = view.polygon.get();
    return ListView<POLYGONPOINT>(list);
}

void drawArea(const ListView<POLYGONPOINT>& points) {
    setAlphaBlending();
    glColor4f(1.0f, 1.0f, 0.35f, 0.3f);
    glBegin(GL_QUADS);
    for (int k = 0; k < points.size(); ++k)
        glVertex2i(points[k].position.x, points[k].position.y);
    glEnd();
    glDisable(GL_BLEND);
}

void drawEdges(const ListView<POLYGONPOINT>& points, Vec3 color) {
    setColor(color);
    glBegin(GL_LINES);
    for (int k = 0; k < points.size(); ++k) {
        glVertex2i(points[k].position.x, points[k].position.y);
        glVertex2i(points[k].edgeEnd.x, points[k].edgeEnd.y);
    }
    glEnd();
}

} // namespace

void drawSelectionPolygon(const VIEW& view) {
    const ListView<POLYGONPOINT> points = pointsOf(view);
    glDisable(GL_MULTISAMPLE);
    drawArea(points);
    glLineWidth(1.0f);
    glDisable(GL_LINE_STIPPLE);
    drawEdges(points, {1.0f, 1.0f, 0.25f});
    glEnable(GL_LINE_STIPPLE);
    glLineStipple(1, kDashes);
    drawEdges(points, {0.35f, 0.35f, 0.35f});
    glDisable(GL_LINE_STIPPLE);
    glEnable(GL_MULTISAMPLE);
}

} // namespace ogl
