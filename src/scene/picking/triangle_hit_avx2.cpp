// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Compiled for AVX2; nothing here is shared with files that are not.
#include "scene/picking/triangle_lanes.h"

#include <immintrin.h>

namespace ogl {
namespace {

struct Eight {
    static constexpr int width = 8;
    static constexpr unsigned allLanes = 0xff;
    __m256 v;

    static Eight all(float value) { return {_mm256_set1_ps(value)}; }
    Eight signBit() const { return {_mm256_and_ps(v, _mm256_set1_ps(-0.0f))}; }
    unsigned mask() const { return static_cast<unsigned>(_mm256_movemask_ps(v)); }
    friend Eight operator+(Eight a, Eight b) { return {_mm256_add_ps(a.v, b.v)}; }
    friend Eight operator-(Eight a, Eight b) { return {_mm256_sub_ps(a.v, b.v)}; }
    friend Eight operator*(Eight a, Eight b) { return {_mm256_mul_ps(a.v, b.v)}; }
    friend Eight operator^(Eight a, Eight b) { return {_mm256_xor_ps(a.v, b.v)}; }
    friend Eight operator|(Eight a, Eight b) { return {_mm256_or_ps(a.v, b.v)}; }
    friend Eight operator<(Eight a, Eight b) { return {_mm256_cmp_ps(a.v, b.v, _CMP_LT_OQ)}; }

    /// Four floats of triangle `k`, from its float number `from` on, beside those of `k` + 4.
    static __m256 rows(const uint8_t* triangles, int k, int from) {
        const auto* low = reinterpret_cast<const float*>(triangles + k * kTriangleBytes) + from;
        const auto* high =
            reinterpret_cast<const float*>(triangles + (k + 4) * kTriangleBytes) + from;
        return _mm256_insertf128_ps(_mm256_castps128_ps256(_mm_loadu_ps(low)), _mm_loadu_ps(high),
                                    1);
    }

    /// Turns four rows into columns, in both halves.
    static void transpose(__m256& a, __m256& b, __m256& c, __m256& d) {
        const __m256 ab = _mm256_unpacklo_ps(a, b);
        const __m256 cd = _mm256_unpacklo_ps(c, d);
        const __m256 abHigh = _mm256_unpackhi_ps(a, b);
        const __m256 cdHigh = _mm256_unpackhi_ps(c, d);
        a = _mm256_shuffle_ps(ab, cd, _MM_SHUFFLE(1, 0, 1, 0));
        b = _mm256_shuffle_ps(ab, cd, _MM_SHUFFLE(3, 2, 3, 2));
        c = _mm256_shuffle_ps(abHigh, cdHigh, _MM_SHUFFLE(1, 0, 1, 0));
        d = _mm256_shuffle_ps(abHigh, cdHigh, _MM_SHUFFLE(3, 2, 3, 2));
    }

    static void loadTriangles(const uint8_t* t, Lanes3<Eight>* corner) {
        __m256 a = rows(t, 0, 0), b = rows(t, 1, 0), c = rows(t, 2, 0), d = rows(t, 3, 0);
        transpose(a, b, c, d);
        __m256 e = rows(t, 0, 4), f = rows(t, 1, 4), g = rows(t, 2, 4), h = rows(t, 3, 4);
        transpose(e, f, g, h);
        const __m256 low = _mm256_unpackhi_ps(rows(t, 0, 5), rows(t, 1, 5));
        const __m256 high = _mm256_unpackhi_ps(rows(t, 2, 5), rows(t, 3, 5));
        corner[0] = {{a}, {b}, {c}};
        corner[1] = {{d}, {e}, {f}};
        corner[2] = {{g}, {h}, {_mm256_shuffle_ps(low, high, _MM_SHUFFLE(3, 2, 3, 2))}};
    }
};

} // namespace

int nextCandidateAvx2(const Ray& ray, const uint8_t* triangles, int first, int count) {
    return nextCandidate<Eight>(ray, triangles, first, count);
}

} // namespace ogl
