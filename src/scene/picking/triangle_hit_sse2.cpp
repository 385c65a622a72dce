// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "scene/picking/triangle_lanes.h"

#include <emmintrin.h>

namespace ogl {
namespace {

struct Four {
    static constexpr int width = 4;
    static constexpr unsigned allLanes = 0xf;
    __m128 v;

    static Four all(float value) { return {_mm_set1_ps(value)}; }
    Four signBit() const { return {_mm_and_ps(v, _mm_set1_ps(-0.0f))}; }
    unsigned mask() const { return static_cast<unsigned>(_mm_movemask_ps(v)); }
    friend Four operator+(Four a, Four b) { return {_mm_add_ps(a.v, b.v)}; }
    friend Four operator-(Four a, Four b) { return {_mm_sub_ps(a.v, b.v)}; }
    friend Four operator*(Four a, Four b) { return {_mm_mul_ps(a.v, b.v)}; }
    friend Four operator^(Four a, Four b) { return {_mm_xor_ps(a.v, b.v)}; }
    friend Four operator|(Four a, Four b) { return {_mm_or_ps(a.v, b.v)}; }
    friend Four operator<(Four a, Four b) { return {_mm_cmplt_ps(a.v, b.v)}; }

    /// Four floats of triangle `k`, from its float number `from` on.
    static __m128 row(const uint8_t* triangles, int k, int from) {
        return _mm_loadu_ps(reinterpret_cast<const float*>(triangles + k * kTriangleBytes) + from);
    }

    // Rows of four triangles turned into columns: floats 0 to 3, 4 to 7, and of 5 to 8 the last.
    static void loadTriangles(const uint8_t* t, Lanes3<Four>* corner) {
        __m128 a = row(t, 0, 0), b = row(t, 1, 0), c = row(t, 2, 0), d = row(t, 3, 0);
        _MM_TRANSPOSE4_PS(a, b, c, d);
        __m128 e = row(t, 0, 4), f = row(t, 1, 4), g = row(t, 2, 4), h = row(t, 3, 4);
        _MM_TRANSPOSE4_PS(e, f, g, h);
        const __m128 low = _mm_unpackhi_ps(row(t, 0, 5), row(t, 1, 5));
        const __m128 high = _mm_unpackhi_ps(row(t, 2, 5), row(t, 3, 5));
        corner[0] = {{a}, {b}, {c}};
        corner[1] = {{d}, {e}, {f}};
        corner[2] = {{g}, {h}, {_mm_movehl_ps(high, low)}};
    }
};

} // namespace

int nextCandidateSse2(const Ray& ray, const uint8_t* triangles, int first, int count) {
    return nextCandidate<Four>(ray, triangles, first, count);
}

} // namespace ogl
