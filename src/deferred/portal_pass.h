// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "deferred/light_pass.h"

#include <span>

namespace ogl {

/// Brightness of the light that the scene's portals let in: red, green, blue.
Vec3 portalColor(const SCENE& scene);

/// Adds the light of every portal of a list.
struct PortalPass {
    const ShaderProgram& program; ///< "imgPortallight"
    const FrameView& frame;
    std::span<const std::unique_ptr<Light>> lights; ///< of all kinds
    Vec3 color;                                     ///< of all portals

    void draw() const;
};

} // namespace ogl
