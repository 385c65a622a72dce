// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "deferred/sketch_pass.h"

#include "deferred/noise_gradient.h"
#include "gpu/gl_debug.h"
#include "gpu/screen_quad.h"
#include "gpu/texture.h"

namespace ogl {

void SketchPass::draw() const {
    const DebugGroup group("sketch");
    GLTexture& noise = frame.targets.noiseTexture;
    if (!noise.exists())
        noise = createNoiseTexture(frame.width, frame.height);
    program.use();
    program.setInt("normTex", 0);
    program.setInt("tmpTex", 1);
    program.setInt("noiseTex", 2);
    setPixelSize(program, frame);
    program.setFloat("noiseStrength", noiseStrength);
    program.setVec3v("edgeColor", &edgeColor.x);
    bindSurfaces(frame, 0, kSurfaces);
    bindEdges(frame, 1);
    bindTexture(2, TextureKind::Repeating, noise.name(), GL_NEAREST, 1.0f);

    RenderTarget& target = *frame.targets.lightTarget;
    target.bind();
    target.setDrawBuffer(1);
    glClearColor(background.x, background.y, background.z, 1.0f);
    glClear(GL_COLOR_BUFFER_BIT);
    drawScreenQuad();

    target.unbind();
    endImagePass(2);
}

} // namespace ogl
