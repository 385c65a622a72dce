// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/forward/program_surface_pass.h"

#include "fixed/surfaces/program_material.h"
#include "fixed/surfaces/surface_pass.h"
#include "gpu/gl_debug.h"
#include "gpu/gl_state.h"
#include "gpu/texture.h"
#include "render/program_sources.h"
#include "render/render_context.h"

namespace ogl {

namespace {

constexpr unsigned kMaps = kDiffuseMap | kNormalMap | kOpacityMap;
constexpr float kAmbientScale = 4.0f;
constexpr int kShadowUnit = 4;
constexpr int kJitterUnit = 5;

void setLinearFilter() {
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
}

} // namespace

void ProgramSurfacePass::draw() const {
    const DebugGroup group("lit surfaces");
    for (int unit = kJitterUnit; unit >= 0; --unit)
        resetTextureUnit(unit);
    turnColorClampingOff();
    program.use();
    setLight();
    ProgramShading shading(renderer, program, kMaps);
    SurfacePass{renderer, meshes, shading}.draw();
    restoreState();
}

void ProgramSurfacePass::setLight() const {
    const Vec3 color = sun != nullptr ? sun->color : Vec3{};
    const Vec3 toLight = sun != nullptr ? -sun->direction() : Vec3{};
    program.setVec3("lightIntensity", color.x, color.y, color.z);
    program.setVec3("lightDir", toLight.x, toLight.y, toLight.z);
    program.setFloat("ambientFactor", renderer.scene->geometry.lightAmbient * kAmbientScale);
    program.setInt("drawMono", renderer.choices.colorMode == ColorMode::Grey ? 1 : 0);
    if (program.variant() == kObjShaderShadow && sun != nullptr)
        setShadowMap();
}

void ProgramSurfacePass::setShadowMap() const {
    setShadowFilter(program, shadowSamples, jitterTexture, kJitterUnit);
    program.setInt("shadowMap", kShadowUnit);
    sun->bindShadowMap(kShadowUnit);
    if (renderer.vendor == kVendorNvidia)
        setLinearFilter();
    glActiveTexture(GL_TEXTURE0);
}

void ProgramSurfacePass::restoreState() const {
    ShaderProgram::useNone();
    glActiveTexture(GL_TEXTURE0 + kShadowUnit);
    glMatrixMode(GL_TEXTURE);
    glLoadIdentity();
    glMatrixMode(GL_MODELVIEW);
    for (int unit = kJitterUnit; unit >= 0; --unit)
        resetTextureUnit(unit);
}

} // namespace ogl
