// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/forward/portal_sky.h"

#include "gpu/gl_debug.h"
#include "gpu/shader_program.h"
#include "gpu/texture.h"

namespace ogl {

namespace {

constexpr float kQuadOffset = 0.002f;
constexpr double kSkyRadius = 50.0;
constexpr int kSkySlices = 18;

void vertex(Vec3 p) {
    glVertex3f(p.x, p.y, p.z);
}

void setState() {
    glDisable(GL_LIGHTING);
    glDisable(GL_BLEND);
    ShaderProgram::useNone();
    glDisable(GL_DEPTH_TEST);
    glEnable(GL_MULTISAMPLE);
    glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
    glEnable(GL_CULL_FACE);
    glCullFace(GL_BACK);
    glColor4f(1.0f, 1.0f, 1.0f, 1.0f);
    glDepthMask(GL_FALSE);
    resetTextureUnit(0);
}

void setColorWrites(GLboolean on) {
    glColorMask(on, on, on, on);
}

void drawMask(std::span<const PortalRecord> portals) {
    setColorWrites(GL_FALSE);
    glClearStencil(0);
    glClear(GL_STENCIL_BUFFER_BIT);
    glEnable(GL_STENCIL_TEST);
    glStencilFunc(GL_ALWAYS, 1, 0xffffffffu);
    glStencilOp(GL_KEEP, GL_KEEP, GL_REPLACE);
    drawPortalQuads(portals);
    setColorWrites(GL_TRUE);
}

void drawSky(unsigned backgroundTexture, GLUquadric* quadric) {
    glStencilFunc(GL_EQUAL, 1, 0xffffffffu);
    glStencilOp(GL_KEEP, GL_KEEP, GL_KEEP);
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    bindTexture(0, TextureKind::Repeating, backgroundTexture, GL_LINEAR, 1.0f);
    glScalef(-1.0f, 1.0f, -0.75f);
    gluSphere(quadric, kSkyRadius, kSkySlices, kSkySlices);
    resetTextureUnit(0);
    glPopMatrix();
}

} // namespace

void drawPortalQuads(std::span<const PortalRecord> portals) {
    glBegin(GL_QUADS);
    for (const PortalRecord& portal : portals) {
        const Vec3 center = portal.center + portal.normal * kQuadOffset;
        vertex(center - portal.halfU - portal.halfV);
        vertex(center - portal.halfU + portal.halfV);
        vertex(center + portal.halfU + portal.halfV);
        vertex(center + portal.halfU - portal.halfV);
    }
    glEnd();
}

GLUquadric* createSkyQuadric() {
    GLUquadric* quadric = gluNewQuadric();
    gluQuadricTexture(quadric, GL_TRUE);
    gluQuadricDrawStyle(quadric, GLU_FILL);
    gluQuadricNormals(quadric, GLU_SMOOTH);
    gluQuadricOrientation(quadric, GLU_OUTSIDE);
    return quadric;
}

void drawSkyThroughPortals(std::span<const PortalRecord> portals, unsigned backgroundTexture,
                           GLUquadric* quadric) {
    const DebugGroup group("sky through portals");
    setState();
    drawMask(portals);
    drawSky(backgroundTexture, quadric);
    glDisable(GL_STENCIL_TEST);
    glDepthMask(GL_TRUE);
    glEnable(GL_CULL_FACE);
}

} // namespace ogl
