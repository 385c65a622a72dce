// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "deferred/light_pass.h"

#include "gpu/screen_quad.h"
#include "gpu/texture.h"

namespace ogl {

namespace {

constexpr int kLightingUnit = 0;
constexpr int kPlaceUnit = 1;
constexpr int kSurfaceUnit = 2;
constexpr int kEdgeUnit = 3;
constexpr int kJitterUnit = 4;
constexpr int kShadowUnit = 5;

void resetTextureMatrix(int unit) {
    glActiveTexture(static_cast<unsigned>(GL_TEXTURE0 + unit));
    glMatrixMode(GL_TEXTURE);
    glLoadIdentity();
    glMatrixMode(GL_MODELVIEW);
}

} // namespace

Vec4 lightIntensity(Vec3 color) {
    return {color.x, color.y, color.z, 0.3f * color.x + 0.6f * color.y + 0.1f * color.z};
}

LightPass::LightPass(const ShaderProgram& program, const FrameView& frame)
    : program_(program), frame_(frame) {
    program.use();
    program.setInt("lightingTex", kLightingUnit);
    program.setInt("posTex", kPlaceUnit);
    program.setInt("normTex", kSurfaceUnit);
    program.setInt("tmpTex", kEdgeUnit);
    program.setInt("jitterMap", kJitterUnit);
    program.setInt("shadowMap", kShadowUnit); // never another sampler's unit, even unused
    program.setInt("useShadow", 0);
    program.setInt("numAASamples", frame.samples);
    program.setVec3v("camPos", &frame.eye.x);
    setPixelSize(program, frame);
    bindLight(frame, kLightingUnit, kLightSoFar, GL_NEAREST);
    bindSurfaces(frame, kPlaceUnit, kPlaces);
    bindSurfaces(frame, kSurfaceUnit, kSurfaces);
    bindEdges(frame, kEdgeUnit);
    frame.targets.lightTarget->bind();
}

LightPass::~LightPass() {
    frame_.targets.lightTarget->unbind();
    if (shadows_)
        resetTextureMatrix(kShadowUnit);
    endImagePass(kShadowUnit);
}

void LightPass::setShadows(const ShadowStyle& style) {
    shadows_ = style.on;
    program_.setInt("useShadow", style.on ? 1 : 0);
    if (style.on)
        setShadowFilter(program_, style.samples, style.jitter, kJitterUnit);
}

void LightPass::bindShadowMap(const ShadowLight& light) {
    if (!shadows_)
        return;
    program_.setInt("useShadow", light.castsShadow);
    if (light.castsShadow != 0)
        light.bindShadowMap(kShadowUnit);
}

void LightPass::add() {
    RenderTarget& target = *frame_.targets.lightTarget;
    target.setDrawBuffer(kLightAdded);
    drawScreenQuad();
    copyLight(frame_, kLightAdded, kLightSoFar); // leaves the light so far on unit 0
}

} // namespace ogl
