// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "scene/webgl/export_faces.h"

#include <cmath>
#include <cstring>

namespace ogl {

namespace {

/// The face's box, or false when a coordinate is no finite number.
bool boxOf(const FaceTriangles& triangles, Box& box) {
    float check = 0.0f; // stays 0 while all are finite
    for (int k = 0; k < triangles.triangleCount * 3; ++k) {
        const Vec3 p = storedVector(triangles.positions, k);
        check += p.x * 0.0f + p.y * 0.0f + p.z * 0.0f;
        box.grow(p);
    }
    return check == 0.0f;
}

void growBy(Box& bounds, const Box& box) {
    bounds.grow(box.min);
    bounds.grow(box.max);
}

} // namespace

Vec3 storedVector(const uint8_t* vectors, int k) {
    Vec3 result;
    std::memcpy(&result, vectors + static_cast<size_t>(k) * sizeof result, sizeof result);
    return result;
}

ExportFaces::ExportFaces(const SCENE& scene, const SceneLists& lists) {
    struct Found {
        int32_t material;
        Entry entry;
    };
    std::vector<Found> found;
    const int materials = lists.materials.size();
    std::vector<size_t> counts(static_cast<size_t>(materials) + 1, 0);
    const int objects = visitedObjectCount(scene, lists);
    for (int object = 0; object < objects; ++object) {
        if (!lists.isDrawn(object))
            continue;
        const ItemRange range = lists.faces.cluster(object);
        for (int f = range.first; f < range.end(); ++f) {
            const FACE& face = lists.faces.items()[f];
            const int material = face.material;
            const MATERIAL* record = lists.materials.at(material);
            if (record == nullptr || record->useCount == 0)
                continue;
            const FaceTriangles triangles = faceTriangles(lists, f, face.flags);
            Box box;
            if (triangles.triangleCount == 0 || !boxOf(triangles, box))
                continue;
            growBy(bounds_, box);
            ++counts[static_cast<size_t>(material)];
            found.push_back({material, {object, f}});
        }
    }

    starts_.resize(counts.size(), 0);
    for (size_t m = 1; m < counts.size(); ++m)
        starts_[m] = starts_[m - 1] + counts[m - 1];
    entries_.resize(found.size());
    std::vector<size_t> next = starts_;
    for (const Found& one : found)
        entries_[next[static_cast<size_t>(one.material)]++] = one.entry;
}

} // namespace ogl
