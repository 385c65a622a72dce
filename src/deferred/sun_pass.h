// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "deferred/light_pass.h"

namespace ogl {

/// Adds the light of the sun.
struct SunPass {
    const ShaderProgram& program; ///< "imgSunlight"
    const FrameView& frame;
    const SunLight* sun; ///< null: nothing is added
    ShadowStyle shadows;

    void draw() const;
};

} // namespace ogl
