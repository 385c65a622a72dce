// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "render/shadow_filter.h"

#include "gpu/texture.h"

namespace ogl {

namespace {

constexpr float kShadowBlur = 0.001953125f; ///< 4 texels of the shadow map

} // namespace

void setShadowFilter(const ShaderProgram& program, const ShadowSamples& samples,
                     const GLTexture& jitter, int jitterUnit) {
    float x[kShadowSampleCount];
    float y[kShadowSampleCount];
    for (size_t i = 0; i < kShadowSampleCount; ++i) {
        x[i] = (samples[i][0] - 0.5f) * kShadowBlur;
        y[i] = (samples[i][1] - 0.5f) * kShadowBlur;
    }
    program.setMat4("shadowSamplesX", x);
    program.setMat4("shadowSamplesY", y);
    program.setFloat("shadowBlurFactor", kShadowBlur);
    program.setInt("jitterMap", jitterUnit);
    bindTexture(jitterUnit, TextureKind::Repeating, jitter.name(), GL_NEAREST, 1.0f);
}

} // namespace ogl
