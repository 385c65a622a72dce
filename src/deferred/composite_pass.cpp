// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "deferred/composite_pass.h"

#include "gpu/gl_debug.h"
#include "gpu/screen_quad.h"

namespace ogl {

namespace {

constexpr int kLightUnit = 3;
constexpr int kEnvironmentUnit = 4;
constexpr int kSketchUnit = 5;
constexpr int kSketch = 1; ///< attachment of the light target
constexpr float kExposureScale = -2.0f;

} // namespace

void CompositePass::draw() const {
    const DebugGroup group("composite");
    program.use();
    setUniforms();
    bindInputs();

    RenderTarget& target = *frame.targets.edgeTarget;
    if (forFxaa) {
        target.bind();
        target.setDrawBuffer(0);
        glClearColor(1.0f, 0.0f, 0.0f, 1.0f);
        glClear(GL_COLOR_BUFFER_BIT);
    }
    drawScreenQuad();

    ShaderProgram::useNone();
    target.unbind();
    endImagePass(kSketchUnit);
}

void CompositePass::setUniforms() const {
    program.setInt("posTex", kPlaces);
    program.setInt("normTex", kSurfaces);
    program.setInt("gBuffer2Tex", kColors);
    program.setInt("lightingTex", kLightUnit);
    program.setInt("enviroMap", kEnvironmentUnit);
    program.setInt("edgeTex", kSketchUnit);
    program.setFloat("reflectionLevel", style.reflectionLevel);
    program.setFloat("saturation", style.saturation);
    program.setFloat("gamma", style.gamma);
    program.setFloat("exposure", style.exposure * kExposureScale);
    program.setFloat("edgeStrength", style.edgeStrength);
    program.setInt("numAASamples", frame.samples);
    program.setVec3v("camPos", &frame.eye.x);
    program.setInt("drawLumaToAlpha", forFxaa ? 1 : 0);
    program.setVec3v("edgeColor", &style.edgeColor.x);
    program.setInt("drawMono", style.monochrome ? 1 : 0);
}

void CompositePass::bindInputs() const {
    for (const int attachment : {kPlaces, kSurfaces, kColors})
        bindSurfaces(frame, attachment, attachment);
    bindLight(frame, kLightUnit, light, GL_NEAREST);
    bindEnvironment(environment, kEnvironmentUnit);
    bindLight(frame, kSketchUnit, kSketch, GL_NEAREST);
}

} // namespace ogl
