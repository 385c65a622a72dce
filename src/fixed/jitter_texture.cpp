// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/jitter_texture.h"

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
    const auto texels = jitterTexels();
    GLTexture texture;
    texture.create();
    glActiveTexture(GL_TEXTURE0);
    glBindTexture(GL_TEXTURE_2D, texture.name());
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_REPEAT);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_REPEAT);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 4);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, kJitterSize, kJitterSize, 0, GL_RGBA, GL_FLOAT,
                 texels.data());
    glBindTexture(GL_TEXTURE_2D, 0);
    return texture;
}

} // namespace ogl
