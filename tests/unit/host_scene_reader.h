// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Reads a built scene back through the library's own checked views.
#pragma once

#include "host/scene_builder.h"
#include "scene/record_views.h"

#include <cstring>
#include <vector>

namespace ogl::test {

using host::Vec3;

struct ReadLoop {
    std::vector<Vec3> points;
    bool closed = false;
    bool hidden = false;
};

struct ReadFace {
    uint32_t flags = 0;
    int material = -1;
    Vec3 normal;                 ///< as stored
    std::vector<Vec3> corners;   ///< as stored, three per triangle
    std::vector<Vec3> normals;   ///< vertex normals as stored
    std::vector<float> floats;   ///< the triangles' coordinates as stored
    std::vector<ReadLoop> loops; ///< in the record's order
    bool curved() const { return (flags & kFaceVertexNormals) != 0; }
    /// A face without area, which only carries lines.
    bool isLine() const { return !curved() && area() == 0.0; }
    double area() const {
        double sum = 0.0;
        for (size_t i = 0; i + 2 < corners.size(); i += 3)
            sum += length(cross(corners[i + 1] - corners[i], corners[i + 2] - corners[i])) * 0.5;
        return sum;
    }
};

inline std::vector<Vec3> readVectors(const uint8_t* bytes, int count) {
    std::vector<Vec3> result;
    for (int i = 0; i < count; ++i) {
        float v[3];
        std::memcpy(v, bytes + i * 12, sizeof v);
        result.push_back({v[0], v[1], v[2]});
    }
    return result;
}

inline ReadLoop readLoop(const SceneLists& lists, double unitScale, int loop) {
    ReadLoop result;
    const LOOPSTYLE* style = lists.loopStyles.at(loop);
    const LOOP* record = lists.loops.at(loop);
    if (style == nullptr || record == nullptr)
        return result;
    result.closed = style->kind == kLoopClosed;
    result.hidden = (style->flags & kLoopHidden) != 0;
    for (int i = 0; i < record->pointCount; ++i) {
        const LOOPPOINT* p = lists.loopPoints.at(record->firstPoint + i);
        if (p != nullptr)
            result.points.push_back({static_cast<float>(p->position.x * (unitScale * 0.001)),
                                     static_cast<float>(p->position.y * (unitScale * 0.001)),
                                     static_cast<float>(p->position.z * (unitScale * 0.001))});
    }
    return result;
}

inline ReadFace readFace(const SceneLists& lists, double unitScale, int number) {
    ReadFace face;
    const FACE& record = *lists.faces.items().at(number);
    face.flags = record.flags;
    face.material = record.material;
    face.normal = {record.normal.x, record.normal.y, record.normal.z};
    const FaceTriangles triangles = faceTriangles(lists, number, record.flags);
    face.corners = readVectors(triangles.positions, triangles.triangleCount * 3);
    if (triangles.normals != nullptr)
        face.normals = readVectors(triangles.normals, triangles.triangleCount * 3);
    face.floats.resize(static_cast<size_t>(triangles.triangleCount) * 9);
    if (!face.floats.empty())
        std::memcpy(face.floats.data(), triangles.positions, face.floats.size() * 4);
    if (const FACELOOPS* loops = lists.faceLoops.at(number))
        for (int i = 0; i < loops->loopCount; ++i)
            face.loops.push_back(readLoop(lists, unitScale, loops->firstLoop + i));
    return face;
}

inline std::vector<ReadFace> readObject(const SCENE& scene, int object) {
    const SceneLists lists(scene);
    std::vector<ReadFace> faces;
    const ItemRange range = lists.faces.cluster(object);
    for (int f = range.first; f < range.end(); ++f)
        faces.push_back(readFace(lists, scene.geometry.unitScale, f));
    return faces;
}

/// Twice the area vector of a loop.
inline Vec3 loopArea(const ReadLoop& loop) {
    Vec3 sum;
    for (size_t i = 1; i + 1 < loop.points.size(); ++i)
        sum = sum + cross(loop.points[i] - loop.points[0], loop.points[i + 1] - loop.points[0]);
    return sum;
}

} // namespace ogl::test
