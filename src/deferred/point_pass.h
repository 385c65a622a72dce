// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "deferred/light_pass.h"

#include <span>

namespace ogl {

/// Adds the light of every point light of a list.
struct PointPass {
    const ShaderProgram& program; ///< "imgPointlight"
    const FrameView& frame;
    std::span<const std::unique_ptr<Light>> lights; ///< of all kinds

    void draw() const;
};

} // namespace ogl
