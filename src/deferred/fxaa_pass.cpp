// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "deferred/fxaa_pass.h"

#include "gpu/gl_debug.h"
#include "gpu/screen_quad.h"
#include "gpu/texture.h"

namespace ogl {

void FxaaPass::draw() const {
    const DebugGroup group("fxaa");
    program.use();
    program.setInt("tex", 0);
    setPixelSize(program, frame);
    bindTexture(0, TextureKind::Clamped, frame.targets.edgeTarget->colorTexture(0), GL_LINEAR,
                1.0f);
    clampAtBorder(); // searches along an edge end there instead of going round it

    drawScreenQuad({.textureWidth = static_cast<float>(frame.width),
                    .textureHeight = static_cast<float>(frame.height)});

    endImagePass(0);
}

} // namespace ogl
