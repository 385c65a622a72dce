// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/drawing/site_box.h"

#include "gpu/gl_debug.h"
#include "gpu/gl_objects.h"
#include "gpu/vertex_array.h"

#include <cmath>

namespace ogl {

namespace {

constexpr GLushort kSiteDashes = 0xaaaa;

void setSiteBoxState() {
    glDisable(GL_LIGHTING);
    glDisable(GL_COLOR_MATERIAL);
    glDisable(GL_TEXTURE_RECTANGLE);
    glDisable(GL_BLEND);
    glDisable(GL_SAMPLE_ALPHA_TO_COVERAGE);
    glDisable(GL_DEPTH_TEST);
    glEnable(GL_MULTISAMPLE);
    glDepthMask(GL_TRUE);
    glLineWidth(1.0f);
    glEnable(GL_LINE_STIPPLE);
    glLineStipple(3, kSiteDashes);
    glColor4f(0.3f, 1.0f, 0.0f, 1.0f);
}

/// Corners are numbered by bits: 1 right, 2 back, 4 top. Edges join corners that differ in one.
void drawEdges(const Box& box) {
    const auto vertex = [&box](unsigned corner) {
        glVertex3f((corner & 1) != 0 ? box.max.x : box.min.x,
                   (corner & 2) != 0 ? box.max.y : box.min.y,
                   (corner & 4) != 0 ? box.max.z : box.min.z);
    };
    glBegin(GL_LINES);
    for (unsigned corner = 0; corner < 8; ++corner)
        for (unsigned bit = 1; bit <= 4; bit <<= 1)
            if ((corner & bit) == 0) {
                vertex(corner);
                vertex(corner | bit);
            }
    glEnd();
}

} // namespace

Box siteBox(const SCENE& scene) {
    const double unit = 1.0 / (scene.geometry.unitScale * 1000.0);
    if (!std::isfinite(unit))
        return {{0.0f, 0.0f, 0.0f}, {0.0f, 0.0f, 0.0f}};
    const auto x = static_cast<float>(scene.siteWidth * unit * 0.5);
    const auto y = static_cast<float>(scene.siteDepth * unit * 0.5);
    return {{-x, -y, 0.0f}, {x, y, static_cast<float>(scene.siteHeight * unit)}};
}

void drawSiteBox(const SCENE& scene) {
    const DebugGroup group("site box");
    unbindAllArrays();
    setSiteBoxState();
    drawEdges(siteBox(scene));
    glDisable(GL_LINE_STIPPLE);
}

} // namespace ogl
