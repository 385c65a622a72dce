// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "deferred/image_pass.h"

namespace ogl {

/// Draws the edges as a sketch on white paper into attachment 1 of the light target. Makes the
/// target set's noise when there is none.
struct SketchPass {
    const ShaderProgram& program; ///< "imgNpr"
    const FrameView& frame;
    float noiseStrength; ///< pixels
    Vec3 edgeColor;
    Vec3 background; ///< where nothing is drawn

    void draw() const;
};

} // namespace ogl
