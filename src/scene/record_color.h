// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "math/vector3.h"
#include "ogl/host_records.h"

namespace ogl {

inline constexpr float kByteScale = 0.003921569f; ///< of colour bytes
inline constexpr float kPercent = 0.01f;

inline Vec3 colorOf(RGB8 color) {
    return Vec3{static_cast<float>(color.red), static_cast<float>(color.green),
                static_cast<float>(color.blue)} *
           kByteScale;
}

/// `packed`: red in bits 0-7, green in bits 8-15, blue in bits 16-23.
inline Vec3 colorOf(uint32_t packed) {
    return colorOf(RGB8{static_cast<uint8_t>(packed), static_cast<uint8_t>(packed >> 8),
                        static_cast<uint8_t>(packed >> 16)});
}

/// What a material's reflection adds to its colour.
inline constexpr float kReflectionShare = 0.5f;
/// What a material's brightness of 1 multiplies its colour with.
inline constexpr float kBrightnessScale = 2.5f;

/// The opacity that is drawn: what is not quite invisible is at least faint.
inline float visibleAlpha(float opacity) {
    constexpr float kFaintestAlpha = 0.2f;
    return opacity > 0.0f && opacity < kFaintestAlpha ? kFaintestAlpha : opacity;
}

} // namespace ogl
