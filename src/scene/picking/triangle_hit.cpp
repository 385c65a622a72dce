// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "scene/picking/triangle_hit.h"

#include <cstring>

namespace ogl {

bool hitTriangle(const Ray& ray, const uint8_t* triangle, float& distance) {
    Vec3 corners[3];
    static_assert(sizeof corners == kTriangleBytes);
    std::memcpy(corners, triangle, sizeof corners);
    const Vec3 edge1 = corners[1] - corners[0];
    const Vec3 edge2 = corners[2] - corners[0];
    const Vec3 p = cross(ray.direction, edge2);
    const float determinant = dot(edge1, p);
    if (determinant == 0.0f)
        return false;
    const Vec3 from = ray.origin - corners[0];
    const float u = dot(from, p) / determinant;
    if (!(u >= 0.0f))
        return false;
    const Vec3 q = cross(from, edge1);
    const float v = dot(ray.direction, q) / determinant;
    if (!(v >= 0.0f && u + v <= 1.0f))
        return false;
    const float t = dot(edge2, q) / determinant;
    if (!(t > 0.0f))
        return false;
    distance = t;
    return true;
}

bool hasAvx2() {
    return __builtin_cpu_supports("avx2") != 0;
}

CandidateSearch candidateSearch() {
    static const CandidateSearch fastest = hasAvx2() ? nextCandidateAvx2 : nextCandidateSse2;
    return fastest;
}

} // namespace ogl
