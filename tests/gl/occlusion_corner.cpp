// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "gl/occlusion_corner.h"

namespace ogl::test {

namespace {

/// The number as half floats keep it, within their normal range.
float half(float number) {
    int exponent = 0;
    const float mantissa = std::frexp(number, &exponent);
    return std::ldexp(std::nearbyint(mantissa * 2048.0f) / 2048.0f, exponent);
}

/// The normal that comes back from a G-buffer of half floats.
Vec3 kept(Vec3 n) {
    const float p = std::sqrt(8.0f * n.z + 8.0f);
    const float x = half(n.x / p + 0.5f) * 4.0f - 2.0f;
    const float y = half(n.y / p + 0.5f) * 4.0f - 2.0f;
    const float d = x * x + y * y;
    const float g = std::sqrt(1.0f - d * 0.25f);
    return {x * g, y * g, 1.0f - d * 0.5f};
}

Surface surfaceAt(int x, int y, float shift) {
    if (x < 3)
        return uncovered();
    const float u = (static_cast<float>(x) + shift) / OcclusionCorner::kSide;
    const float v = (static_cast<float>(y) + 0.5f) / OcclusionCorner::kSide;
    Surface s;
    if (v < 0.5f) {
        s.place = {2 * u - 1, 4 * v - 1, 0};
    } else {
        s.place = {2 * u - 1, 1, 4 * v - 2};
        s.normal = kept({0, -1, 0});
        s.id = 2;
    }
    return s;
}

} // namespace

OcclusionCorner::OcclusionCorner() {
    for (const float shift : {0.25f, 0.75f}) {
        samples_.emplace_back();
        for (int i = 0; i < kSide * kSide; ++i)
            samples_.back().push_back(surfaceAt(i % kSide, i / kSide, shift));
    }
}

/// The picture is sheared: its height is half of y and half of z.
Matrix4f OcclusionCorner::projection() {
    constexpr float w = 2.5f;
    constexpr float elements[16] = {w, 0, 0, 0, 0, w / 2, 0, 0, 0, w / 2, 0, 0, 0, -w / 2, 0, w};
    Matrix4f matrix{};
    std::copy(std::begin(elements), std::end(elements), std::begin(matrix.m));
    return matrix;
}

float OcclusionCorner::occlusion(size_t sample, int x, int y) {
    const auto at = [&](int px, int py) {
        return samples_[sample][static_cast<size_t>(py * kSide + px)];
    };
    const Surface s = at(x, y);
    const Vec3 tangent = normalized(cross({0.01f, 0.99f, 0}, s.normal));
    const Vec3 cotangent = cross(s.normal, tangent);
    const Matrix4f matrix = projection();
    const float* m = matrix.m;
    float sum = 0;
    for (int k = 0; k < count; ++k) {
        const Texel& seed = seeds.texel(k, x % 4 + 4 * (y % 4));
        const Vec3 d = tangent * seed[0] + cotangent * seed[1] + s.normal * seed[2];
        const float part = static_cast<float>(k) / static_cast<float>(count);
        const Vec3 p = s.place + d * (part * part * radius + 0.01f);
        const float w = m[3] * p.x + m[7] * p.y + m[11] * p.z + m[15];
        const auto pixel = [&](int row) {
            const float clip = m[row] * p.x + m[row + 4] * p.y + m[row + 8] * p.z + m[row + 12];
            const float place = (clip / w + 1) * 0.5f * kSide;
            nearestBorder = std::min(nearestBorder, std::abs(place - std::round(place)));
            return std::clamp(static_cast<int>(place), 0, kSide - 1);
        };
        const Vec3 delta = at(pixel(0), pixel(1)).place - s.place;
        const float distance = length(delta);
        if (distance > 0)
            sum +=
                std::max(dot(delta * (1 / distance), s.normal), 0.0f) * strength / (distance + 1);
    }
    return sum / static_cast<float>(count);
}

} // namespace ogl::test
