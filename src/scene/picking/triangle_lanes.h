// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// The search for triangles that a ray may hit, for any number of lanes. Everything here has
// internal linkage: each instruction set compiles its own copy, and none may stand in for
// another's.
#pragma once

#include "scene/picking/triangle_hit.h"

#include <cstring>

namespace ogl {
namespace {

/// Three coordinates of one corner, an edge or a direction in every lane.
template <class V> struct Lanes3 { V x, y, z; };

template <class V> inline Lanes3<V> spread(Vec3 v) {
    return {V::all(v.x), V::all(v.y), V::all(v.z)};
}
template <class V> inline Lanes3<V> operator-(const Lanes3<V>& a, const Lanes3<V>& b) {
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}
template <class V> inline Lanes3<V> crossLanes(const Lanes3<V>& a, const Lanes3<V>& b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
template <class V> inline V dotLanes(const Lanes3<V>& a, const Lanes3<V>& b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

template <class V> struct RayLanes { Lanes3<V> origin, direction; };

/// One bit per lane: false only where hitTriangle() refuses the triangle.
///
/// The same operations in the same order as hitTriangle(), but for its divisions: a quotient's sign
/// and size are told from numerator and denominator. The margins are wider than what the divisions
/// could round or underflow. What is not a number compares false, so that it stays a candidate.
template <class V> inline unsigned candidates(const RayLanes<V>& ray, const uint8_t* triangles) {
    Lanes3<V> corner[3];
    V::loadTriangles(triangles, corner);
    const Lanes3<V> edge1 = corner[1] - corner[0];
    const Lanes3<V> edge2 = corner[2] - corner[0];
    const Lanes3<V> p = crossLanes(ray.direction, edge2);
    const V determinant = dotLanes(edge1, p);
    const Lanes3<V> from = ray.origin - corner[0];
    const V sign = determinant.signBit();
    const V size = determinant ^ sign;
    const V u = dotLanes(from, p) ^ sign;
    const Lanes3<V> q = crossLanes(from, edge1);
    const V v = dotLanes(ray.direction, q) ^ sign;
    const V below = size * V::all(-1e-30f);
    const V above = size * V::all(1.000001f);
    return V::allLanes & ~((u < below) | (v < below) | (above < u + v)).mask();
}

inline int firstSetBit(unsigned bits) {
    return __builtin_ctz(bits);
}

template <class V>
inline int nextCandidate(const Ray& ray, const uint8_t* triangles, int first, int count) {
    const RayLanes<V> lanes = {spread<V>(ray.origin), spread<V>(ray.direction)};
    int k = first;
    for (; k <= count - V::width; k += V::width)
        if (const unsigned found =
                candidates(lanes, triangles + size_t{kTriangleBytes} * static_cast<unsigned>(k)))
            return k + firstSetBit(found);
    if (k >= count)
        return count;
    // The rest, without reading behind it.
    uint8_t rest[V::width * kTriangleBytes] = {};
    const auto left = static_cast<unsigned>(count - k);
    std::memcpy(rest, triangles + size_t{kTriangleBytes} * static_cast<unsigned>(k),
                size_t{kTriangleBytes} * left);
    const unsigned found = candidates(lanes, rest) & ((1u << left) - 1u);
    return found != 0 ? k + firstSetBit(found) : count;
}

} // namespace
} // namespace ogl
