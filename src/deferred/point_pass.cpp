// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "deferred/point_pass.h"

#include "gpu/gl_debug.h"

namespace ogl {

void PointPass::draw() const {
    const DebugGroup group("point lights");
    LightPass pass(program, frame);
    for (const auto& light : lights) {
        if (light->kind != LightKind::Point)
            continue;
        const Vec3 position = light->position();
        const Vec4 intensity = lightIntensity(light->color);
        program.setVec3v("lightPos", &position.x);
        program.setVec4v("lightIntensity", &intensity.x);
        program.setInt("lightAttenuation", light->attenuate);
        pass.add();
    }
}

} // namespace ogl
