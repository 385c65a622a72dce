// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "gpu/screen_quad.h"

#include "platform/win32.h"

namespace ogl {

ScreenMatrices::ScreenMatrices() {
    glMatrixMode(GL_PROJECTION);
    glPushMatrix();
    glLoadIdentity();
    glOrtho(0.0, 1.0, 0.0, 1.0, -1.0, 1.0);
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    glLoadIdentity();
}

ScreenMatrices::~ScreenMatrices() {
    glMatrixMode(GL_PROJECTION);
    glPopMatrix();
    glMatrixMode(GL_MODELVIEW);
    glPopMatrix();
}

void drawScreenQuad(const ScreenQuad& quad) {
    glColor4f(1.0f, 1.0f, 1.0f, 1.0f);
    glDisable(GL_DEPTH_TEST);
    glDisable(GL_ALPHA_TEST);
    glDisable(GL_BLEND);
    glDisable(GL_LIGHTING);
    glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
    glDepthMask(GL_FALSE);
    const ScreenMatrices matrices;
    glTranslatef(quad.offsetX, quad.offsetY, 0.0f);
    const float right = quad.textureX + quad.textureWidth;
    const float top = quad.textureY + quad.textureHeight;
    glBegin(GL_QUADS);
    glTexCoord2f(quad.textureX, quad.textureY);
    glVertex2f(0.0f, 0.0f);
    glTexCoord2f(quad.textureX, top);
    glVertex2f(0.0f, quad.scale);
    glTexCoord2f(right, top);
    glVertex2f(quad.scale, quad.scale);
    glTexCoord2f(right, quad.textureY);
    glVertex2f(quad.scale, 0.0f);
    glEnd();
    glDepthMask(GL_TRUE);
}

} // namespace ogl
