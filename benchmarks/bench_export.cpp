// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "bench_export.h"

#include "bench_scene.h"
#include "figures.h"
#include "scene/webgl/export_faces.h"
#include "scene/webgl/webgl_exporter.h"

#include <charconv>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace ogl::bench {

namespace {

constexpr int kRounds = 5;

/// The numbers of a document's arrays, in no particular order.
std::vector<float> numbersOf(const SCENE& scene) {
    const SceneLists lists(scene);
    std::vector<float> numbers;
    for (int f = 0; f < lists.faces.items().size(); ++f) {
        const FACE& face = lists.faces.items()[f];
        const FaceTriangles triangles = faceTriangles(lists, f, face.flags);
        for (int k = 0; k < triangles.triangleCount * 3; ++k) {
            const Vec3 p = storedVector(triangles.positions, k);
            const TEXCOORD& t = lists.texCoords[face.texCoordIndex + k];
            numbers.insert(numbers.end(), {p.x, p.y, p.z, -0.0f, -0.0f, -1.0f, t.u, 1.0f - t.v});
        }
    }
    return numbers;
}

/// Formats every number with the standard library into one buffer that stays warm.
size_t formatAll(const std::vector<float>& numbers) {
    char text[32];
    size_t size = 0;
    for (const float number : numbers) {
        const auto end = std::to_chars(text, text + sizeof text, static_cast<double>(number),
                                       std::chars_format::general, 6);
        size += static_cast<size_t>(end.ptr - text) + 1;
    }
    return size;
}

Cost exportCost(const SCENE& scene) {
    const auto path = std::filesystem::temp_directory_path() / "ogl_bench_export.js";
    const WebGLExporter exporter;
    const Cost cost = leastCost(kRounds, [&] { exporter.write(scene, path.string(), 1024, 768); });
    std::filesystem::remove(path);
    return cost;
}

} // namespace

void benchExport() {
    const auto few = std::make_unique<test::SceneFixture>();
    makeScene(*few, millionTriangles(20));
    const Cost written = exportCost(few->scene());
    printFigure("export_1m_triangles", written.time, "ms");
    {
        const std::vector<float> numbers = numbersOf(few->scene());
        size_t size = 0;
        const Cost formatted = leastCost(kRounds, [&] { size += formatAll(numbers); });
        printFigure("format_its_numbers_with_to_chars", size > 0 ? formatted.time : 0.0, "ms");
        printRatio("export_to_format_with_to_chars", written, formatted);
    }
    const auto many = std::make_unique<test::SceneFixture>();
    makeScene(*many, millionTriangles(500));
    printRatio("export_500_to_20_materials", exportCost(many->scene()), written);
}

} // namespace ogl::bench
