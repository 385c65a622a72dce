// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "deferred/edge_mask_pass.h"

#include "gpu/gl_debug.h"
#include "gpu/screen_quad.h"

namespace ogl {

void EdgeMaskPass::draw() const {
    const DebugGroup group("edge mask");
    program.use();
    program.setInt("numAASamples", frame.samples);
    program.setVec3v("camPos", &frame.eye.x);
    program.setInt("posTex", 0);
    program.setInt("normTex", 1);
    bindSurfaces(frame, 0, kPlaces);
    bindSurfaces(frame, 1, kSurfaces);

    RenderTarget& target = *frame.targets.edgeTarget;
    target.bind();
    target.setDrawBuffer(0);
    glClearColor(0.0f, 0.0f, 0.0f, 1.0f);
    glClear(GL_COLOR_BUFFER_BIT);
    drawScreenQuad();

    target.unbind();
    endImagePass(1);
}

} // namespace ogl
