// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>

namespace ogl {

/// Three floats: a point, a direction or a texture coordinate. Trivial, so that arrays of it can
/// grow without being written.
struct Vec3 {
    float x, y, z;
};

/// Four floats: a colour as red, green, blue, alpha.
struct Vec4 {
    float x, y, z, w;
};

inline Vec3 operator+(Vec3 a, Vec3 b) {
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}
inline Vec3 operator-(Vec3 a, Vec3 b) {
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}
inline Vec3 operator-(Vec3 a) {
    return {-a.x, -a.y, -a.z};
}
inline Vec3 operator*(Vec3 a, float factor) {
    return {a.x * factor, a.y * factor, a.z * factor};
}
inline Vec3 cross(Vec3 a, Vec3 b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
inline float dot(Vec3 a, Vec3 b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}
inline float length(Vec3 a) {
    return std::sqrt(dot(a, a));
}
/// The vector at unit length. One without a length (zero, not a number) gives zero.
inline Vec3 normalized(Vec3 a) {
    const float size = length(a);
    return size > 0.0f && size <= 3.402823466e38f ? a * (1.0f / size) : Vec3{};
}

/// Axis-aligned box. Starts inverted, so that the first point grown into it becomes the box.
struct Box {
    Vec3 min{1e7f, 1e7f, 1e7f};
    Vec3 max{-1e7f, -1e7f, -1e7f};

    /// Includes a point; coordinates that are no numbers change nothing.
    void grow(Vec3 p) {
        min = {p.x < min.x ? p.x : min.x, p.y < min.y ? p.y : min.y, p.z < min.z ? p.z : min.z};
        max = {p.x > max.x ? p.x : max.x, p.y > max.y ? p.y : max.y, p.z > max.z ? p.z : max.z};
    }
    Vec3 center() const { return (min + max) * 0.5f; }
    float diagonal() const { return length(max - min); }
};

} // namespace ogl
