// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "deferred/sketch_pass.h"

#include "deferred/noise_gradient.h"
#include "gpu/gl_debug.h"
#include "gpu/screen_quad.h"
#include "gpu/texture.h"

#include <algorithm>
#include <cmath>

namespace ogl {

namespace {

/// The noise covers the picture. In parts it is stretched, so that lines go on from one to the
/// next.
void makeNoise(const FrameView& frame) {
    FrameTargetSet& targets = frame.targets;
    int width = frame.width;
    int height = frame.height;
    if (const float aspect = frame.part.aspect; aspect > 1.0f)
        width = std::max(static_cast<int>(std::lround(static_cast<float>(height) / aspect)), 1);
    else if (aspect > 0.0f)
        height = std::max(static_cast<int>(std::lround(static_cast<float>(width) * aspect)), 1);
    if (targets.noiseTexture.exists() && targets.noiseWidth == width &&
        targets.noiseHeight == height)
        return;
    targets.noiseTexture = createNoiseTexture(width, height);
    targets.noiseWidth = width;
    targets.noiseHeight = height;
}

} // namespace

void SketchPass::draw() const {
    const DebugGroup group("sketch");
    makeNoise(frame);
    program.use();
    program.setInt("normTex", 0);
    program.setInt("tmpTex", 1);
    program.setInt("noiseTex", 2);
    setPixelSize(program, frame);
    program.setFloat("noiseStrength", noiseStrength);
    program.setVec3v("edgeColor", &edgeColor.x);
    bindSurfaces(frame, 0, kSurfaces);
    bindEdges(frame, 1);
    bindTexture(2, TextureKind::Clamped, frame.targets.noiseTexture.name(),
                frame.part.aspect > 0.0f ? GL_LINEAR : GL_NEAREST, 1.0f);
    clampAtBorder();

    RenderTarget& target = *frame.targets.lightTarget;
    target.bind();
    target.setDrawBuffer(1);
    glClearColor(background.x, background.y, background.z, 1.0f);
    glClear(GL_COLOR_BUFFER_BIT);
    drawScreenQuad({.textureX = frame.part.left,
                    .textureY = frame.part.bottom,
                    .textureWidth = frame.part.width,
                    .textureHeight = frame.part.height});

    target.unbind();
    endImagePass(2);
}

} // namespace ogl
