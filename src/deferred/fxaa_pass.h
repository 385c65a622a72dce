// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "deferred/image_pass.h"

namespace ogl {

/// Draws the finished picture of the edge target, brightness in alpha, with smoothed edges into the
/// framebuffer that is bound.
struct FxaaPass {
    const ShaderProgram& program; ///< "imgFxaa"
    const FrameView& frame;

    void draw() const;
};

} // namespace ogl
