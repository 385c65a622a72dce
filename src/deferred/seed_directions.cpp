// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "deferred/seed_directions.h"

#include "gpu/float_texture.h"

#include <cmath>

namespace ogl {

namespace {

constexpr float kQuarterPi = 0.785398163f;
constexpr float kFlat = 0.1f; ///< directions with less height are raised
constexpr float kRaise = 0.2f;

/// The point of the unit disk for a point of the unit square.
Vec3 onDisk(float u, float v) {
    const float a = 2.0f * u - 1.0f;
    const float b = 2.0f * v - 1.0f;
    if (a == 0.0f && b == 0.0f)
        return {0.0f, 0.0f, 0.0f};
    float radius = 0.0f;
    float angle = 0.0f; // in eighths of the circle
    if (a < -b) {
        radius = b < a ? -b : -a;
        angle = b < a ? 6.0f + a / -b : 4.0f - b / -a;
    } else if (a <= b) {
        radius = b;
        angle = 2.0f - a / b;
    } else {
        radius = a;
        angle = b / a + (b <= 0.0f ? 8.0f : 0.0f);
    }
    return {radius * std::cos(kQuarterPi * angle), radius * std::sin(kQuarterPi * angle), 0.0f};
}

Vec3 lifted(Vec3 p) {
    p.z = std::sqrt(std::fmax(0.0f, 1.0f - p.x * p.x - p.y * p.y));
    if (p.z >= kFlat)
        return p;
    p.z += kRaise;
    return normalized(p);
}

} // namespace

float radicalInverse(unsigned number, unsigned base) {
    const float step = 1.0f / static_cast<float>(base);
    float place = step;
    float sum = 0.0f;
    while (number != 0) {
        sum += static_cast<float>(number % base) * place;
        number /= base;
        place *= step;
    }
    return sum;
}

std::vector<Vec3> seedDirections() {
    std::vector<Vec3> directions;
    for (unsigned i = 0; i < kSeedColumns * kSeedRows; ++i)
        directions.push_back(lifted(onDisk(radicalInverse(i, 2), radicalInverse(i, 3))));
    return directions;
}

GLTexture createSeedTexture() {
    const std::vector<Vec3> directions = seedDirections();
    return createFloatTexture(
        {GL_TEXTURE_RECTANGLE, GL_RGB32F, GL_RGB, kSeedColumns, kSeedRows, GL_NEAREST, GL_CLAMP},
        numbersOf(directions));
}

} // namespace ogl
