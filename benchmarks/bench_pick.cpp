// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "bench_pick.h"

#include "bench_scene.h"
#include "figures.h"
#include "scene/picking/picking.h"
#include "scene/record_views.h"

#include <emmintrin.h>
#include <memory>
#include <string>

namespace ogl::bench {

namespace {

constexpr int kRounds = 15;

/// Reads every byte of the triangles once, in the order in which they lie.
int readTriangles(const SceneLists& lists) {
    const ListView<uint8_t>& items = lists.triangleBytes.items();
    const uint8_t* bytes = &items[0];
    __m128i sums[4] = {};
    const int size = items.size() & ~63;
    for (int k = 0; k < size; k += 64)
        for (int part = 0; part < 4; ++part)
            sums[part] = _mm_xor_si128(sums[part], _mm_loadu_si128(reinterpret_cast<const __m128i*>(
                                                       bytes + k + 16 * part)));
    return _mm_cvtsi128_si32(
        _mm_xor_si128(_mm_xor_si128(sums[0], sums[1]), _mm_xor_si128(sums[2], sums[3])));
}

void measure(const std::string& name, int facesPerObject, int trianglesPerFace) {
    const auto fixture = std::make_unique<test::SceneFixture>();
    makeScene(*fixture, {.objects = 5000,
                         .facesPerObject = facesPerObject,
                         .materials = 1,
                         .materialsPerObject = 1,
                         .trianglesPerFace = trianglesPerFace});
    const SCENE& scene = fixture->scene();
    const SceneLists lists(scene);
    const Ray ray = pickRay(scene, {1024, 768, 500, 300});
    volatile int sink = 0;
    const Cost read = leastCost(kRounds, [&] { sink = readTriangles(lists); });
    const auto pick = [&](CandidateSearch search) {
        return leastCost(kRounds,
                         [&] { sink = static_cast<int>(pickObjects(scene, ray, search).size()); });
    };
    printFigure((name + "_read_bytes").c_str(), read.time, "ms");
    const Cost narrow = pick(nextCandidateSse2);
    printFigure((name + "_sse2").c_str(), narrow.time, "ms");
    printRatio((name + "_sse2_to_read").c_str(), narrow, read);
    if (!hasAvx2())
        return;
    const Cost wide = pick(nextCandidateAvx2);
    printFigure((name + "_avx2").c_str(), wide.time, "ms");
    printRatio((name + "_avx2_to_read").c_str(), wide, read);
}

} // namespace

void benchPick() {
    measure("pick_1m_triangles_in_20s", 10, 20);
    measure("pick_1m_triangles_in_pairs", 100, 2);
}

} // namespace ogl::bench
