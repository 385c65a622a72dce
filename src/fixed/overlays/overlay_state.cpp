// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/overlays/overlay_state.h"

#include "gpu/texture.h"
#include "gpu/vertex_array.h"

#include <initializer_list>

namespace ogl {

void setOverlayState() {
    for (const unsigned capability : std::initializer_list<unsigned>{
             GL_LIGHTING, GL_COLOR_MATERIAL, GL_TEXTURE_RECTANGLE, GL_CULL_FACE, GL_ALPHA_TEST,
             GL_BLEND, GL_SAMPLE_ALPHA_TO_COVERAGE, GL_LINE_STIPPLE, GL_POINT_SPRITE,
             GL_POLYGON_OFFSET_FILL, GL_POLYGON_OFFSET_LINE, GL_MULTISAMPLE})
        glDisable(capability);
    resetTextureUnit(0);
    glEnable(GL_DEPTH_TEST);
    glDepthMask(GL_TRUE);
    glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
    glLineWidth(1.0f);
    unbindAllArrays();
}

void leaveOverlayState() {
    glEnable(GL_ALPHA_TEST);
}

void setAlphaBlending() {
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
}

void setColor(Vec3 color) {
    glColor4f(color.x, color.y, color.z, 1.0f);
}

PixelSpace::PixelSpace(int width, int height) {
    glMatrixMode(GL_PROJECTION);
    glPushMatrix();
    glLoadIdentity();
    gluOrtho2D(0.0, width, height, 0.0);
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    glLoadIdentity();
}

PixelSpace::~PixelSpace() {
    glMatrixMode(GL_PROJECTION);
    glPopMatrix();
    glMatrixMode(GL_MODELVIEW);
    glPopMatrix();
}

} // namespace ogl
