// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/textures/mark_texture.h"

#include "gpu/texture.h"

#include <algorithm>
#include <cmath>

namespace ogl {

namespace {

constexpr uint8_t kMarkGrey = 180;
constexpr int kCenter = kMarkSize / 2;
constexpr float kFadePerTexel = 0.0625f;

/// The cross is seven texels wide.
bool isOnArm(int texel) {
    return texel > 12 && texel < 20;
}

uint8_t markAlpha(int x, int y) {
    if (!isOnArm(x) && !isOnArm(y))
        return 0;
    const float distance =
        std::hypot(static_cast<float>(x - kCenter), static_cast<float>(y - kCenter));
    return static_cast<uint8_t>(std::max(0.0f, 1.0f - distance * kFadePerTexel) * 255.0f);
}

} // namespace

std::array<uint8_t, kMarkSize * kMarkSize * 4> markTexels() {
    std::array<uint8_t, kMarkSize * kMarkSize * 4> texels{};
    uint8_t* texel = texels.data();
    for (int y = 0; y < kMarkSize; ++y)
        for (int x = 0; x < kMarkSize; ++x, texel += 4) {
            std::fill_n(texel, 3, kMarkGrey);
            texel[3] = markAlpha(x, y);
        }
    return texels;
}

GLTexture createMarkTexture() {
    const auto texels = markTexels();
    GLTexture texture =
        createTexture2D(TextureKind::Repeating, GL_RGBA, kMarkSize, kMarkSize, texels.data());
    glDisable(GL_TEXTURE_2D);
    return texture;
}

} // namespace ogl
