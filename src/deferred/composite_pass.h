// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "deferred/image_pass.h"

namespace ogl {

/// How light becomes a picture, from the scene's settings.
struct PictureStyle {
    float reflectionLevel = 0.4f;
    float saturation = 1.0f;
    float exposure = 1.0f; ///< of the scene
    float gamma = 1.0f;
    float edgeStrength = 0.0f; ///< of the sketch; 0 = none
    bool monochrome = false;
    Vec3 edgeColor{};
};

/// Puts the picture together from the G-buffer, the light, the environment and the sketch.
struct CompositePass {
    const ShaderProgram& program; ///< "imgFinal"
    const FrameView& frame;
    const PictureStyle& style;
    const GLTexture& environment; ///< may not exist: reflections are black then
    int light;                    ///< attachment of the light target
    bool forFxaa;                 ///< into the edge target with brightness in alpha, instead of
                                  ///< into the framebuffer that is bound

    void draw() const;

  private:
    void setUniforms() const;
    void bindInputs() const;
};

} // namespace ogl
