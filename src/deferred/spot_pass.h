// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "deferred/light_pass.h"

#include <span>

namespace ogl {

/// Adds the light of every spot light of a list.
struct SpotPass {
    const ShaderProgram& program; ///< "imgSpotlight"
    const FrameView& frame;
    std::span<const std::unique_ptr<Light>> lights; ///< of all kinds
    ShadowStyle shadows;

    void draw() const;
};

} // namespace ogl
