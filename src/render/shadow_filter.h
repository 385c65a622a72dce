// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "gpu/shader_program.h"
#include "render/light.h"

#include <array>

namespace ogl {

/// Where the shadow filter looks beside a place, 0 .. 1.
using ShadowSamples = std::array<std::array<float, 2>, kShadowSampleCount>;

/// Tells the program in use how to filter shadows, and binds the texture that shifts the samples
/// from pixel to pixel.
void setShadowFilter(const ShaderProgram& program, const ShadowSamples& samples,
                     const GLTexture& jitter, int jitterUnit);

} // namespace ogl
