// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "raytrace/pair_triangles.h"

#include "fixed/batches/mesh_batch_builder.h"
#include "scene/webgl/export_faces.h"

#include <array>
#include <cmath>

namespace ogl {

namespace {

constexpr Vec3 kNoNormal{0.0f, 0.0f, 1.0f};

bool isFinite(Vec3 v) {
    // 0 unless one of them is no finite number.
    return v.x * 0.0f + v.y * 0.0f + v.z * 0.0f == 0.0f;
}

/// In double precision, so that the squares of any floats fit.
Vec3 unitNormal(Vec3 v) {
    const double x = v.x;
    const double y = v.y;
    const double z = v.z;
    const double size = std::sqrt(x * x + y * y + z * z);
    if (!(size > 0.0) || !std::isfinite(size))
        return kNoNormal;
    return {static_cast<float>(x / size), static_cast<float>(y / size),
            static_cast<float>(z / size)};
}

Vec3 faceNormal(const FACE& face) {
    const Vec3 normal = visibleNormal(face);
    return normal.x == 0.0f && normal.y == 0.0f && normal.z == 0.0f ? kNoNormal : normal;
}

/// The texture coordinates of the face's vertex `i`.
Vec3 texCoord(const ListView<TEXCOORD>& coords, int first, int i, float record) {
    const TEXCOORD* coord =
        first >= 0 && i < coords.size() - first ? coords.at(first + i) : nullptr;
    return coord != nullptr ? Vec3{coord->u, 1.0f - coord->v, record} : Vec3{0.0f, 0.0f, record};
}

} // namespace

bool PairTriangles::read(const SceneLists& lists, const MaterialPair& pair, int64_t mostTriangles) {
    positions.clear();
    normals.clear();
    uvs.clear();
    box = Box{};
    for (const int32_t face : pair.faces) {
        const uint32_t flags = lists.faces.items()[face].flags;
        if (faceTriangles(lists, face, flags).triangleCount > mostTriangles - count())
            return false;
        readFace(lists, face, static_cast<float>(pair.record));
    }
    return true;
}

void PairTriangles::readFace(const SceneLists& lists, int number, float record) {
    const FACE& face = lists.faces.items()[number];
    const FaceTriangles triangles = faceTriangles(lists, number, face.flags);
    const Vec3 flatNormal = faceNormal(face);
    const size_t first = positions.size();
    const size_t most = first + 3 * static_cast<size_t>(triangles.triangleCount);
    positions.resize(most);
    normals.resize(most);
    uvs.resize(most);
    size_t at = first;
    for (int t = 0; t < triangles.triangleCount; ++t) {
        const std::array<Vec3, 3> corners{storedVector(triangles.positions, 3 * t),
                                          storedVector(triangles.positions, 3 * t + 1),
                                          storedVector(triangles.positions, 3 * t + 2)};
        if (!isFinite(corners[0]) || !isFinite(corners[1]) || !isFinite(corners[2]))
            continue;
        for (int i = 0; i < 3; ++i, ++at) {
            const int vertex = 3 * t + i;
            positions[at] = corners[static_cast<size_t>(i)];
            box.grow(positions[at]);
            normals[at] = triangles.normals != nullptr
                              ? unitNormal(storedVector(triangles.normals, vertex))
                              : flatNormal;
            uvs[at] = texCoord(lists.texCoords, face.texCoordIndex, vertex, record);
        }
    }
    positions.resize(at);
    normals.resize(at);
    uvs.resize(at);
}

} // namespace ogl
