// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/textures/jitter_texture.h"

#include "gpu/float_texture.h"

#include <random>

namespace ogl {

namespace {

constexpr float kNumberScale = 3.051944088384301e-5f; // 1 / 32766
constexpr float kShiftRange = 0.002f;
constexpr unsigned kNumbers = 32768;

} // namespace

std::array<float, kJitterSize * kJitterSize * 4> jitterTexels() {
    // Not rand(): its numbers differ between systems, and its sequence is the host's.
    std::minstd_rand numbers;
    std::array<float, kJitterSize * kJitterSize * 4> texels{};
    for (float& texel : texels)
        texel = (static_cast<float>(numbers() % kNumbers) * kNumberScale - 0.5f) * kShiftRange;
    return texels;
}

GLTexture createJitterTexture() {
    return createFloatTexture(
        {GL_TEXTURE_2D, GL_RGBA, GL_RGBA, kJitterSize, kJitterSize, GL_NEAREST, GL_REPEAT},
        jitterTexels());
}

} // namespace ogl
