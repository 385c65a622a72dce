// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "bench_batches.h"

#include "bench_scene.h"
#include "figures.h"
#include "fixed/batches/mesh_batch_builder.h"
#include "plain_sort.h"

#include <memory>
#include <utility>
#include <vector>

namespace ogl::bench {

namespace {

constexpr int kRounds = 7;

/// Builds the batches of every object and empties what an upload would empty. As in a renderer, the
/// positions stay until all is built.
size_t buildEverything(SCENE& scene, int objects) {
    MeshBatchBuilder builder(scene);
    Box bounds;
    std::vector<MeshBatches> all;
    size_t vertices = 0;
    for (int k = 0; k < objects; ++k) {
        MeshBatches batches = builder.build(k, builder.batchSizes(k), bounds);
        for (const auto& batch : batches) {
            vertices += batch->positions.size();
            batch->normals.clear();
            batch->tangents.clear();
            batch->texCoords.clear();
        }
        builder.reclaim(batches);
        all.push_back(std::move(batches));
    }
    return vertices;
}

struct Times {
    Cost build;
    Cost plainFresh; ///< into memory of its own, as a first build is
    Cost plainWarm;  ///< into memory that was written before
};

Times measure(int materials) {
    const auto fixture = std::make_unique<test::SceneFixture>();
    const SceneSize size = millionTriangles(materials);
    makeScene(*fixture, size);
    size_t built = 0;
    size_t sorted = 0;
    Times times{};
    times.build =
        leastCost(kRounds, [&] { built = buildEverything(fixture->scene(), size.objects); });
    times.plainFresh = leastCost(kRounds, [&] {
        PlainArrays fresh;
        sorted = sortPlainly(fixture->scene(), fresh);
    });
    PlainArrays warm;
    times.plainWarm = leastCost(kRounds, [&] { sorted = sortPlainly(fixture->scene(), warm); });
    if (built != sorted)
        std::printf("the two sorts differ: %zu and %zu vertices\n", built, sorted);
    return times;
}

} // namespace

void benchBatches() {
    const Times few = measure(20);
    const Times many = measure(500);
    printFigure("batch_build_1m_triangles_20_materials", few.build.time, "ms");
    printFigure("batch_build_1m_triangles_500_materials", many.build.time, "ms");
    printRatio("batch_build_500_to_20_materials", many.build, few.build);
    printFigure("plain_sort_1m_triangles_fresh_memory", few.plainFresh.time, "ms");
    printFigure("plain_sort_1m_triangles_warm_memory", few.plainWarm.time, "ms");
    printRatio("batch_build_to_plain_sort_fresh_memory", few.build, few.plainFresh);
    printRatio("batch_build_to_plain_sort_warm_memory", few.build, few.plainWarm);
}

} // namespace ogl::bench
