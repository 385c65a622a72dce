// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "deferred/image_pass.h"

namespace ogl {

/// Smooths the light of one attachment of the light target into another one, but not across edges.
struct BlurPass {
    const ShaderProgram& program; ///< "imgEABlur"
    const FrameView& frame;
    int source;
    int destination; ///< below 0 = the framebuffer that is bound

    void draw() const;
};

} // namespace ogl
