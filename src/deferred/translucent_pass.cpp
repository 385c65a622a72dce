// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "deferred/translucent_pass.h"

#include "deferred/translucent_list.h"
#include "fixed/surfaces/program_material.h"
#include "gpu/gl_debug.h"
#include "gpu/gl_state.h"
#include "gpu/texture.h"

namespace ogl {

namespace {

constexpr unsigned kMaps = kDiffuseMap | kNormalMap | kOpacityMap;
constexpr int kEnvironmentUnit = 6;
constexpr float kExposureScale = 2.0f;
constexpr float kToLight = 0.577350269f; ///< each part of the fixed light's direction

} // namespace

void TranslucentPass::draw() const {
    const DebugGroup group("translucent surfaces");
    turnColorClampingOff();
    setState();
    program.use();
    setUniforms();
    drawSurfaces();
    endImagePass(kEnvironmentUnit);
    glDepthMask(GL_TRUE);
    glDisable(GL_BLEND);
}

void TranslucentPass::setState() const {
    glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
    glCullFace(GL_BACK);
    glEnable(GL_DEPTH_TEST);
    glDepthMask(GL_FALSE);
    glDisable(GL_ALPHA_TEST);
    glDisable(GL_SAMPLE_ALPHA_TO_COVERAGE);
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glDisable(GL_POLYGON_OFFSET_FILL);
    resetTextureUnit(0);
}

void TranslucentPass::setUniforms() const {
    const Vec3 eye = renderer.camera.position;
    program.setInt("enviroMap", kEnvironmentUnit);
    program.setFloat("reflectionLevel", style.reflectionLevel);
    program.setFloat("saturation", style.saturation);
    program.setFloat("gamma", style.gamma);
    program.setFloat("exposure", style.exposure * kExposureScale);
    program.setVec3v("camPos", &eye.x);
    program.setVec3("lightIntensity", 1.0f, 1.0f, 1.0f);
    program.setVec3("lightDir", kToLight, kToLight, kToLight);
    program.setVec3v("edgeColor", &style.edgeColor.x);
    program.setInt("drawMono", style.monochrome ? 1 : 0);
    bindEnvironment(environment, kEnvironmentUnit);
}

void TranslucentPass::drawSurfaces() const {
    const SceneLists lists(*renderer.scene);
    ProgramShading shading(renderer, program, kMaps);
    BoundMaterial bound;
    int boundMaterial = -1;
    unbindAllArrays();
    for (const TranslucentSurface& surface : translucentSurfaces(renderer, meshes)) {
        if (surface.material != boundMaterial) {
            shading.finish(bound);
            boundMaterial = surface.material;
            bound = shading.bindTextures(lists.materials[boundMaterial]);
            shading.setColor(lists.materials[boundMaterial], bound);
            setCapability(GL_CULL_FACE, !bound.alphaMap); // what is cut out is seen from both sides
        }
        shading.draw(*surface.draw->batch, bound);
    }
    shading.finish(bound);
    unbindAllArrays();
}

} // namespace ogl
