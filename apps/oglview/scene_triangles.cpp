// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/scene_triangles.h"

#include <cstring>

namespace oglview {
namespace {

template <class T> T elementAt(const ogl::LIST& list, int number) {
    T element;
    const auto* bytes = static_cast<const uint8_t*>(list.data.get());
    std::memcpy(&element, bytes + static_cast<ptrdiff_t>(number) * list.elementSize,
                sizeof element);
    return element;
}

/// An object's record reaches at least to its flags; the rest is not needed here.
uint32_t objectFlags(const ogl::LIST& objects, int number) {
    uint32_t flags = 0;
    const auto* bytes = static_cast<const uint8_t*>(objects.data.get());
    std::memcpy(&flags,
                bytes + static_cast<ptrdiff_t>(number) * objects.elementSize +
                    offsetof(ogl::OBJECT, flags),
                sizeof flags);
    return flags;
}

void addFace(const ogl::GEOMETRY& geometry, int face, TriangleCorners& corners) {
    const auto item = elementAt<ogl::FACE>(geometry.clusters.items, face);
    const auto block = elementAt<ogl::INDEX>(geometry.faceTriangles.index, face);
    const bool hasNormals = (item.flags & ogl::kFaceVertexNormals) != 0;
    const int vertices = 3 * (block.count / (hasNormals ? 72 : 36));
    const auto* data = static_cast<const uint8_t*>(geometry.faceTriangles.items.data.get());
    for (int k = 0; k < vertices; ++k) {
        float position[3];
        std::memcpy(position, data + block.first + static_cast<ptrdiff_t>(k) * 12, sizeof position);
        corners.push_back({position[0], position[1], position[2]});
    }
}

} // namespace

TriangleCorners visibleTriangles(const ogl::SCENE& scene) {
    TriangleCorners corners;
    const ogl::GEOMETRY& geometry = scene.geometry;
    if (!geometry.objects)
        return corners;
    const ogl::LIST objects = *geometry.objects.get();
    for (int object = 0; object < objects.count && object < geometry.clusters.index.count;
         ++object) {
        if ((objectFlags(objects, object) & ogl::kObjectNotDrawn) != 0)
            continue;
        const auto faces = elementAt<ogl::INDEX>(geometry.clusters.index, object);
        for (int face = faces.first; face < faces.first + faces.count; ++face)
            addFace(geometry, face, corners);
    }
    return corners;
}

} // namespace oglview
