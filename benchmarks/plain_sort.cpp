// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "plain_sort.h"

#include <cmath>
#include <cstring>
#include <vector>

namespace ogl::bench {

namespace {

using Vector = PlainArrays::Vector;

template <class T> const T* data(const LIST& list) {
    return static_cast<const T*>(list.data.get());
}

Vector tangent(Vector n) {
    Vector t{n.y, -n.x, 0.0f};
    if (t.x * t.x + t.y * t.y < 0.81f)
        t = {0.0f, n.z, -n.y};
    const float size = std::sqrt(t.x * t.x + t.y * t.y + t.z * t.z);
    return {t.x / size, t.y / size, t.z / size};
}

} // namespace

size_t sortPlainly(const SCENE& scene, PlainArrays& arrays) {
    const GEOMETRY& g = scene.geometry;
    const auto* clusters = data<INDEX>(g.clusters.index);
    const auto* faces = data<FACE>(g.clusters.items);
    const auto* blocks = data<INDEX>(g.faceTriangles.index);
    const auto* bytes = data<uint8_t>(g.faceTriangles.items);
    const auto* coords = data<TEXCOORD>(g.texCoords);
    const int objects = g.clusters.index.count;

    std::vector<size_t> next(static_cast<size_t>(g.materials.count));
    std::vector<size_t> starts(static_cast<size_t>(g.clusters.items.count));
    size_t total = 0;
    std::vector<int> used;
    for (int k = 0; k < objects; ++k) {
        used.clear();
        for (int f = clusters[k].first; f < clusters[k].first + clusters[k].count; ++f) {
            auto& vertices = next[static_cast<size_t>(faces[f].material)];
            if (vertices == 0)
                used.push_back(faces[f].material);
            vertices += static_cast<size_t>(blocks[f].count) / 12;
        }
        for (const int material : used) {
            const size_t vertices = next[static_cast<size_t>(material)];
            next[static_cast<size_t>(material)] = total;
            total += vertices;
        }
        for (int f = clusters[k].first; f < clusters[k].first + clusters[k].count; ++f) {
            auto& at = next[static_cast<size_t>(faces[f].material)];
            starts[static_cast<size_t>(f)] = at;
            at += static_cast<size_t>(blocks[f].count) / 12;
        }
        for (const int material : used)
            next[static_cast<size_t>(material)] = 0;
    }

    if (arrays.size != total) {
        for (auto* array :
             {&arrays.positions, &arrays.normals, &arrays.tangents, &arrays.texCoords})
            array->reset(new Vector[total]);
        arrays.size = total;
    }
    for (int f = 0; f < g.clusters.items.count; ++f) {
        const FACE& face = faces[f];
        const size_t at = starts[static_cast<size_t>(f)];
        const size_t vertices = static_cast<size_t>(blocks[f].count) / 12;
        std::memcpy(&arrays.positions[at], bytes + blocks[f].first, vertices * sizeof(Vector));
        const double x = face.normal.x, y = face.normal.y, z = face.normal.z;
        const double size = std::sqrt(x * x + y * y + z * z);
        const Vector normal{static_cast<float>(-x / size), static_cast<float>(-y / size),
                            static_cast<float>(-z / size)};
        const Vector across = tangent(normal);
        for (size_t i = 0; i < vertices; ++i) {
            arrays.normals[at + i] = normal;
            arrays.tangents[at + i] = across;
            const TEXCOORD& coord = coords[static_cast<size_t>(face.texCoordIndex) + i];
            arrays.texCoords[at + i] = {coord.u, 1.0f - coord.v, 0.0f};
        }
    }
    return total;
}

} // namespace ogl::bench
