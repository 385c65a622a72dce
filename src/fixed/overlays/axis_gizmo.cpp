// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/overlays/overlays.h"

#include "fixed/overlays/overlay_state.h"
#include "gpu/gl_debug.h"
#include "platform/win32.h"
#include "scene/record_color.h"

#include <numbers>

namespace ogl {

namespace {

constexpr float kPointSize = 8.0f;

void drawAxis(uint32_t color, Vec3 end) {
    setColor(colorOf(color));
    glVertex3f(0.0f, 0.0f, 0.0f);
    glVertex3f(end.x, end.y, end.z);
}

void drawAxes(const GIZMO& gizmo) {
    const VEC3F origin = gizmo.translation;
    const VEC3F lengths = gizmo.lengths;
    glLineWidth(1.0f);
    glPushMatrix();
    glTranslatef(origin.x, origin.y, origin.z);
    glRotated(gizmo.angle * 180.0 / std::numbers::pi, 0.0, 0.0, 1.0);
    glBegin(GL_LINES);
    drawAxis(gizmo.colors[0], {lengths.x, 0.0f, 0.0f});
    drawAxis(gizmo.colors[1], {0.0f, lengths.y, 0.0f});
    drawAxis(gizmo.colors[2], {0.0f, 0.0f, lengths.z});
    glEnd();
    glPopMatrix();
}

void drawPoint(VEC3F position) {
    constexpr float kNoAttenuation[3] = {1.0f, 0.0f, 0.0f};
    glPushAttrib(GL_POINT_BIT); // its limits are those of the edge marks at other times
    setColor(Vec3{});
    glPointParameterf(GL_POINT_SIZE_MIN, kPointSize);
    glPointParameterf(GL_POINT_SIZE_MAX, kPointSize);
    glPointParameterfv(GL_POINT_DISTANCE_ATTENUATION, kNoAttenuation);
    glPointSize(kPointSize);
    glBegin(GL_POINTS);
    glVertex3f(position.x, position.y, position.z);
    glEnd();
    glPopAttrib();
}

} // namespace

void drawGizmo(const GIZMO& gizmo) {
    const DebugGroup group("gizmo");
    drawAxes(gizmo);
    drawPoint(gizmo.pointPosition);
}

} // namespace ogl
