// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "deferred/gbuffer_pass.h"

#include "deferred/opaque_surfaces.h"
#include "fixed/surfaces/program_material.h"
#include "gpu/gl_debug.h"
#include "gpu/gl_state.h"

namespace ogl {

namespace {

constexpr unsigned kAllMaps = kDiffuseMap | kNormalMap | kSpecularMap | kOpacityMap;
/// In places and surfaces where nothing is drawn; as an object id it is none.
constexpr float kNoSurface = 0.3f;

} // namespace

void GBufferPass::draw() const {
    const DebugGroup group("g-buffer");
    turnColorClampingOff();
    RenderTarget& target = *frame.targets.gBuffer;
    target.bind();
    clear();
    if (drawSky)
        drawSky();
    target.setAllDrawBuffers();
    drawSurfaces();
    target.unbind();
}

void GBufferPass::clear() const {
    RenderTarget& target = *frame.targets.gBuffer;
    glDepthMask(GL_TRUE);
    glClearColor(kNoSurface, kNoSurface, kNoSurface, 1.0f);
    glClearDepth(1.0);
    for (const int attachment : {kPlaces, kSurfaces}) {
        target.setDrawBuffer(attachment);
        glClear(GL_COLOR_BUFFER_BIT);
    }
    target.setDrawBuffer(kColors);
    glClearColor(background.x, background.y, background.z, 1.0f);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
}

void GBufferPass::drawSurfaces() const {
    glEnable(GL_DEPTH_TEST);
    glDepthMask(GL_TRUE);
    glDisable(GL_BLEND);
    glDisable(GL_ALPHA_TEST);
    glEnable(GL_CULL_FACE);
    glCullFace(GL_BACK);
    glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
    program.use();
    program.setVec3v("camPos", &frame.eye.x);
    OpaqueSurfaces{renderer, meshes, program, kAllMaps}.draw();
    ShaderProgram::useNone();
}

} // namespace ogl
