// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "deferred/blur_pass.h"

#include "gpu/gl_debug.h"
#include "gpu/screen_quad.h"

namespace ogl {

void BlurPass::draw() const {
    const DebugGroup group("blur");
    program.use();
    program.setInt("lightTex", 0);
    program.setInt("tmpTex", 1);
    setPixelSize(program, frame);
    bindLight(frame, 0, source, GL_LINEAR);
    bindEdges(frame, 1);

    RenderTarget& target = *frame.targets.lightTarget;
    if (destination >= 0) {
        target.bind();
        target.setDrawBuffer(destination);
        glClearColor(0.0f, 0.0f, 0.0f, 1.0f);
        glClear(GL_COLOR_BUFFER_BIT);
    }
    drawScreenQuad();

    target.unbind();
    endImagePass(2);
}

} // namespace ogl
