// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "deferred/spot_pass.h"

#include "gpu/gl_debug.h"

namespace ogl {

void SpotPass::draw() const {
    const DebugGroup group("spot lights");
    LightPass pass(program, frame);
    pass.setShadows(shadows);
    for (const auto& light : lights) {
        if (light->kind != LightKind::Spot)
            continue;
        const auto& spot = static_cast<const SpotLight&>(*light);
        const Vec3 position = spot.position();
        const Vec3 direction = spot.direction();
        const Vec4 intensity = lightIntensity(spot.color);
        program.setVec3v("lightPos", &position.x);
        program.setVec3v("lightDir", &direction.x);
        program.setVec4v("lightIntensity", &intensity.x);
        program.setFloat("lightCosCutoff", spot.cosCutoff);
        program.setInt("lightAttenuation", spot.attenuate);
        pass.bindShadowMap(spot);
        pass.add();
    }
}

} // namespace ogl
