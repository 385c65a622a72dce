// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "deferred/ambient_occlusion_pass.h"

#include "deferred/seed_directions.h"
#include "gpu/gl_debug.h"
#include "gpu/screen_quad.h"
#include "gpu/texture.h"
#include "math/matrix4f.h"

#include <algorithm>

namespace ogl {

namespace {

constexpr float kRadiusScale = 1.5f; ///< metres
constexpr float kStrengthScale = 1.75f;
constexpr float kLeastStrength = 0.01f; ///< as in "imgAO"
constexpr float kCountScale = 16.0f;
constexpr float kLeastCount = 8.0f;
constexpr float kPatternSize = 4.0f; ///< pixels; its square is the number of seed rows

/// No more than there are directions, whatever the host asks for.
int sampleCount(float occlusion) {
    return static_cast<int>(std::clamp(occlusion * kCountScale + kLeastCount, kLeastCount,
                                       static_cast<float>(kSeedColumns)));
}

} // namespace

bool AmbientOcclusionPass::isNone(float occlusion) {
    return occlusion * kStrengthScale < kLeastStrength;
}

void AmbientOcclusionPass::draw() const {
    const DebugGroup group("ambient occlusion");
    program.use();
    setUniforms();
    bindSurfaces(frame, 0, kPlaces);
    bindSurfaces(frame, 1, kSurfaces);
    bindTexture(2, TextureKind::Rectangle, seeds.name(), GL_NEAREST, 1.0f);
    bindEdges(frame, 3);

    RenderTarget& target = *frame.targets.lightTarget;
    target.bind();
    target.setDrawBuffer(0);
    glClearColor(0.0f, 0.0f, 0.0f, 0.0f);
    glClear(GL_COLOR_BUFFER_BIT);
    drawScreenQuad();

    endImagePass(3);
    copyLight(frame, 0, 1);
    target.unbind();
}

void AmbientOcclusionPass::setUniforms() const {
    Matrix4f view{};
    Matrix4f projection{};
    glGetFloatv(GL_MODELVIEW_MATRIX, view.m);
    glGetFloatv(GL_PROJECTION_MATRIX, projection.m);
    const Matrix4f both = projection * view;
    program.setMat4("mvMatrix", view.m);
    program.setMat4("projMatrix", projection.m);
    program.setMat4("modviewprojMat", both.m);
    program.setInt("posTex", 0);
    program.setInt("normTex", 1);
    program.setInt("seedTexture", 2);
    program.setInt("tmpTex", 3);
    program.setVec2("posTexSize", static_cast<float>(frame.width),
                    static_cast<float>(frame.height));
    program.setFloat("sampleRadius", occlusion * kRadiusScale);
    program.setFloat("strength", occlusion * kStrengthScale);
    program.setInt("sampleCount", sampleCount(occlusion));
    program.setFloat("patternSize", kPatternSize);
    program.setInt("numAASamples", std::max(frame.samples / 2, 1));
    program.setFloat("ambientFac", ambient);
}

} // namespace ogl
