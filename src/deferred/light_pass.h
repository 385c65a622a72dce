// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "deferred/image_pass.h"
#include "render/light.h"
#include "render/shadow_filter.h"

namespace ogl {

/// Attachments of the light target: the light so far, and with the next light added.
inline constexpr int kLightSoFar = 0;
inline constexpr int kLightAdded = 1;

/// How lights throw shadows.
struct ShadowStyle {
    bool on = false;
    const GLTexture& jitter; ///< of the filter
    const ShadowSamples& samples;
};

/// Colour of a light with the strength of its highlights in w.
Vec4 lightIntensity(Vec3 color);

/// One run of a light program: adds lights to the light target, one after the other.
class LightPass {
  public:
    /// Takes the program into use and binds the inputs that all light programs have.
    LightPass(const ShaderProgram& program, const FrameView& frame);
    ~LightPass();
    LightPass(const LightPass&) = delete;
    LightPass& operator=(const LightPass&) = delete;

    /// For programs with shadows.
    void setShadows(const ShadowStyle& style);
    /// The shadow map of the next light, if it has one; nothing when shadows are off.
    void bindShadowMap(const ShadowLight& light);
    /// Adds the light that the program's uniforms describe.
    void add();

  private:
    const ShaderProgram& program_;
    const FrameView& frame_;
    bool shadows_ = false;
};

} // namespace ogl
