// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "deferred/image_pass.h"

namespace ogl {

/// Finds the edges between surfaces in the G-buffer: the edge target's alpha, 0 .. 1.
struct EdgeMaskPass {
    const ShaderProgram& program; ///< "imgEdge"
    const FrameView& frame;

    void draw() const;
};

} // namespace ogl
