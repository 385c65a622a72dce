// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/forward/portals.h"

#include "fixed/batches/mesh_batch_builder.h"
#include "scene/record_views.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace ogl {

namespace {

constexpr uint8_t kWindowKind = 1;
constexpr uint8_t kDoorKind = 2;

/// The triangles of a portal face, where the host stores them.
struct PortalFace {
    const FACE* face;
    FaceTriangles triangles;
    int32_t firstTriangle;
};

Vec3 vertexOf(const uint8_t* vertices, int k) {
    Vec3 v;
    std::memcpy(&v, vertices + static_cast<size_t>(k) * sizeof v, sizeof v);
    return v;
}

std::vector<PortalFace> portalFaces(const SceneLists& lists) {
    std::vector<PortalFace> found;
    int64_t triangles = 0; // portals may name the same bytes
    for (int k = 0; k < lists.faces.size(); ++k) {
        const OBJECT* object = lists.objects.at(k);
        if (object == nullptr || (object->kind != kWindowKind && object->kind != kDoorKind))
            continue;
        const ItemRange range = lists.faces.cluster(k);
        for (int f = range.first; f < range.end(); ++f) {
            const FACE& face = lists.faces.items()[f];
            if ((face.flags & kFacePortal) == 0)
                continue;
            found.push_back({&face, faceTriangles(lists, f, face.flags),
                             static_cast<int32_t>(std::min<int64_t>(triangles, INT32_MAX))});
            triangles += found.back().triangles.triangleCount;
        }
    }
    return found;
}

/// The normal of the first vertex.
Vec3 normalOf(const PortalFace& portal) {
    const Vec3 normal = portal.triangles.normals != nullptr
                            ? normalized(vertexOf(portal.triangles.normals, 0))
                            : visibleNormal(*portal.face);
    return length(normal) > 0.0f ? normal : Vec3{0.0f, 0.0f, 1.0f};
}

Vec3 centerOf(const uint8_t* positions, int vertices) {
    double sum[3] = {};
    for (int i = 0; i < vertices; ++i) {
        const Vec3 p = vertexOf(positions, i);
        sum[0] += static_cast<double>(p.x);
        sum[1] += static_cast<double>(p.y);
        sum[2] += static_cast<double>(p.z);
    }
    return {static_cast<float>(sum[0] / vertices), static_cast<float>(sum[1] / vertices),
            static_cast<float>(sum[2] / vertices)};
}

Vec3 farthestFrom(Vec3 center, const uint8_t* positions, int vertices) {
    Vec3 farthest = vertexOf(positions, 0);
    for (int i = 1; i < vertices; ++i) {
        const Vec3 p = vertexOf(positions, i);
        if (length(p - center) > length(farthest - center))
            farthest = p;
    }
    return farthest;
}

PortalRecord recordOf(const PortalFace& portal) {
    const int vertices = portal.triangles.triangleCount * kVerticesPerTriangle;
    const uint8_t* positions = portal.triangles.positions;
    const Vec3 center = centerOf(positions, vertices);
    const Vec3 toCorner = center - farthestFrom(center, positions, vertices);
    const Vec3 normal = normalOf(portal);
    const Vec3 u = tangentOf(normal);
    const Vec3 v = cross(u, normal);
    return {portal.firstTriangle,
            portal.triangles.triangleCount,
            center,
            normal,
            u * std::fabs(dot(u, toCorner)),
            v * std::fabs(dot(v, toCorner))};
}

bool isFinite(const PortalRecord& record) {
    return std::isfinite(length(record.center)) && std::isfinite(length(record.halfU)) &&
           std::isfinite(length(record.halfV));
}

} // namespace

std::vector<PortalRecord> findPortals(const SCENE& scene) {
    const SceneLists lists(scene);
    const std::vector<PortalFace> faces = portalFaces(lists);
    std::vector<PortalRecord> portals;
    for (size_t i = 1; i < faces.size(); i += 2) {
        if (faces[i].triangles.triangleCount == 0)
            continue;
        const PortalRecord record = recordOf(faces[i]);
        if (isFinite(record))
            portals.push_back(record);
    }
    return portals;
}

} // namespace ogl
