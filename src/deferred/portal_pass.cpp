// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "deferred/portal_pass.h"

#include "gpu/gl_debug.h"

#include <cmath>

namespace ogl {

namespace {

constexpr float kColorScale = 8.0f / 255.0f;
constexpr float kIntensityStep = 0.001f; ///< of the power of two
constexpr float kPassScale = 1.5f;

} // namespace

Vec3 portalColor(const SCENE& scene) {
    const float scale =
        kColorScale * std::exp2(kIntensityStep * static_cast<float>(scene.portalIntensity));
    return Vec3{static_cast<float>(scene.portalColor.red),
                static_cast<float>(scene.portalColor.green),
                static_cast<float>(scene.portalColor.blue)} *
           scale;
}

void PortalPass::draw() const {
    const DebugGroup group("portal lights");
    LightPass pass(program, frame);
    const Vec4 intensity = lightIntensity(color * kPassScale);
    program.setVec4v("lightIntensity", &intensity.x);
    for (const auto& light : lights) {
        if (light->kind != LightKind::Portal)
            continue;
        const auto& portal = static_cast<const PortalLight&>(*light);
        const Vec3 inwards = portal.direction();
        const Vec3 corners[4] = {portal.center - portal.halfU - portal.halfV,
                                 portal.center - portal.halfU + portal.halfV,
                                 portal.center + portal.halfU + portal.halfV,
                                 portal.center + portal.halfU - portal.halfV};
        program.setVec3v("lightDir", &inwards.x);
        program.setVec3v("lightQuad0", &corners[0].x);
        program.setVec3v("lightQuad1", &corners[1].x);
        program.setVec3v("lightQuad2", &corners[2].x);
        program.setVec3v("lightQuad3", &corners[3].x);
        pass.add();
    }
}

} // namespace ogl
