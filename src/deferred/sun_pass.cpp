// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "deferred/sun_pass.h"

#include "gpu/gl_debug.h"

namespace ogl {

void SunPass::draw() const {
    if (sun == nullptr)
        return;
    const DebugGroup group("sun light");
    LightPass pass(program, frame);
    pass.setShadows(shadows);
    const Vec4 intensity = lightIntensity(sun->color);
    const Vec3 toSun = -sun->direction();
    program.setVec4v("lightIntensity", &intensity.x);
    program.setVec3v("lightDir", &toSun.x);
    pass.bindShadowMap(*sun);
    pass.add();
}

} // namespace ogl
