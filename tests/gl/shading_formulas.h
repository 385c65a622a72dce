// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "gl/shader_bench.h"

#include <algorithm>
#include <cmath>

namespace ogl::test {

inline constexpr float kPi = 3.14159265f;

inline Vec3 times(Vec3 a, Vec3 b) {
    return {a.x * b.x, a.y * b.y, a.z * b.z};
}

template <class Function> Vec3 perChannel(Vec3 a, Function f) {
    return {f(a.x), f(a.y), f(a.z)};
}

/// The highlight of a surface lit along `toLight`, seen from `eye`.
inline float highlight(const Surface& s, Vec3 toLight, Vec3 eye) {
    const Vec3 view = normalized(eye - s.place);
    const Vec3 half = normalized(toLight + view);
    const float cosine = dot(toLight, s.normal);
    const float power = std::max(std::pow(std::max(dot(half, s.normal), 0.0f), s.shininess), 1e-5f);
    return std::min((s.shininess + 1.0f) * power /
                        (8.0f * kPi * dot(half, toLight) * std::max(cosine, dot(view, s.normal))),
                    6.0f);
}

inline Vec3 toLinear(Vec3 c) {
    return perChannel(c, [](float x) { return std::pow(x, 1.8f); });
}

inline Vec3 toScreen(Vec3 c) {
    return perChannel(c, [](float x) { return std::pow(x, 1.0f / 1.8f); });
}

/// Saturation by way of brightness and two differences.
inline Vec3 saturated(Vec3 c, float saturation) {
    const float y = 0.299f * c.x + 0.587f * c.y + 0.114f * c.z;
    const float u = (-0.147f * c.x - 0.289f * c.y + 0.437f * c.z) * saturation;
    const float v = (0.615f * c.x - 0.515f * c.y - 0.100f * c.z) * saturation;
    return {y + 1.140f * v, y - 0.394f * u - 0.581f * v, y + 2.028f * u};
}

inline Vec3 toneCurve(Vec3 c, float exposure, float gamma) {
    return perChannel(c, [=](float x) {
        return std::pow(std::max(1.0f - std::exp(-exposure * x), 0.0f), gamma);
    });
}

inline Vec3 tinted(Vec3 c, Vec3 edgeColor) {
    const float brightness = (c.x + c.y + c.z) * 0.333333f;
    return edgeColor * (1.0f - brightness) + Vec3{brightness, brightness, brightness};
}

inline float wrapLight(float cosine) {
    return std::max(cosine + 1.0f, 0.0f) / 4.0f;
}

inline Vec3 mirrored(Vec3 toEye, Vec3 normal) {
    return normalized(normal * (2.0f * dot(toEye, normal)) - toEye);
}

/// A texture whose texels the test knows, read without filtering.
struct KnownMap {
    int width, height;
    std::vector<Texel> texels;

    /// Texels that differ from each other, each channel in 0.1 .. 0.9.
    static KnownMap varied(int width, int height) {
        KnownMap map{width, height, {}};
        for (int i = 0; i < width * height; ++i) {
            Texel t;
            for (size_t c = 0; c < 4; ++c)
                t[c] = 0.1f + 0.8f * static_cast<float>((i * 37 + static_cast<int>(c) * 61) % 101) /
                                  100.0f;
            map.texels.push_back(t);
        }
        return map;
    }
    const Texel& texel(int x, int y) const {
        const int row = std::clamp(y, 0, height - 1);
        const int column = std::clamp(x, 0, width - 1);
        return texels[static_cast<size_t>(row) * static_cast<size_t>(width) +
                      static_cast<size_t>(column)];
    }
    /// At texture coordinates 0 .. 1.
    const Texel& at(float u, float v) const {
        return texel(static_cast<int>(std::floor(u * static_cast<float>(width))),
                     static_cast<int>(std::floor(v * static_cast<float>(height))));
    }
    /// Of an environment map, in a direction.
    Vec3 towards(Vec3 d) const {
        const float size = std::sqrt(d.x * d.x + d.y * d.y);
        const Texel& t = at((d.y / size + 1.0f) * 0.25f, 1.0f - (d.z + 1.0f) * 0.5f);
        return {t[0], t[1], t[2]};
    }
};

} // namespace ogl::test
