// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "deferred/image_pass.h"

namespace ogl {

/// Fills both attachments of the light target with the ambient light that gets past the surfaces
/// around, for the camera that is set.
struct AmbientOcclusionPass {
    const ShaderProgram& program; ///< "imgAO"
    const FrameView& frame;
    const GLTexture& seeds; ///< of createSeedTexture()
    float ambient;          ///< light where nothing is occluded
    float occlusion;        ///< 0 = none, 1 = the host's 100 %

    void draw() const;

    /// Whether an occlusion is too little to be drawn.
    static bool isNone(float occlusion);

  private:
    void setUniforms() const;
};

} // namespace ogl
