// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "bench_raytrace.h"

#include "bench_scene.h"
#include "figures.h"
#include "raytrace/scene_packer.h"
#include "scene/webgl/export_faces.h"

#include <memory>
#include <string>

namespace ogl::bench {

namespace {

constexpr int kRounds = 5;
constexpr int kLargestSide = 16384;
constexpr double kMegabyte = 1024.0 * 1024.0;

/// Adds up every coordinate of every triangle.
float readOnce(const SCENE& scene) {
    const SceneLists lists(scene);
    float sum = 0.0f;
    for (int object = 0; object < lists.faces.size(); ++object) {
        const ItemRange range = lists.faces.cluster(object);
        for (int f = range.first; f < range.end(); ++f) {
            const FaceTriangles triangles = faceTriangles(lists, f, lists.faces.items()[f].flags);
            for (int k = 0; k < 3 * triangles.triangleCount; ++k) {
                const Vec3 p = storedVector(triangles.positions, k);
                sum += p.x + p.y + p.z;
            }
        }
    }
    return sum;
}

double megabytes(const PackedScene& packed) {
    const size_t bytes =
        (packed.vertices.size() + packed.normals.size() + packed.uvs.size()) * sizeof(Vec3) +
        packed.materialRecords.size() * sizeof(MaterialRecord) +
        (packed.objectBounds.size() + packed.gridCells.size()) * sizeof(BoxRecord);
    return static_cast<double>(bytes) / kMegabyte;
}

struct Result {
    Cost pack;
    Cost read;
};

Result measure(const SceneSize& size, const std::string& name) {
    const auto fixture = std::make_unique<test::SceneFixture>();
    makeScene(*fixture, size);
    PackedScene packed;
    Result result;
    result.pack = leastCost(kRounds, [&] { packScene(fixture->scene(), kLargestSide, packed); });
    volatile float sum = 0.0f; // or nothing would be read
    result.read = leastCost(kRounds, [&] { sum = readOnce(fixture->scene()); });
    printFigure(("raytrace_pack_" + name).c_str(), result.pack.time, "ms");
    printFigure(("raytrace_packed_triangles_" + name).c_str(), packed.triangleCount(), "");
    printFigure(("raytrace_memory_" + name).c_str(), megabytes(packed), "MB");
    printRatio(("raytrace_pack_to_reading_" + name).c_str(), result.pack, result.read);
    return result;
}

} // namespace

void benchRayTrace() {
    const auto sizeWith = [](int materials) {
        return SceneSize{
            .objects = 5000, .facesPerObject = 75, .materials = materials, .materialsPerObject = 4};
    };
    const Result few = measure(sizeWith(20), "5000_objects");
    const Result many = measure(sizeWith(500), "500_materials");
    printRatio("raytrace_pack_500_to_20_materials", many.pack, few.pack);
    measure({.objects = 1, .facesPerObject = 375000, .materials = 1, .materialsPerObject = 1},
            "one_object");
}

} // namespace ogl::bench
