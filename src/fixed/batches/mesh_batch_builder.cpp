// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/batches/mesh_batch_builder.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <utility>

namespace ogl {

namespace {

constexpr float kShortestNormal = 1e-5f;
/// A batch is drawn with one call, whose count is an int.
constexpr int64_t kMostVertices = std::numeric_limits<int>::max() / kVerticesPerTriangle;

Vec3 negatedNormal(const FACE& face) {
    return {static_cast<float>(-face.normal.x), static_cast<float>(-face.normal.y),
            static_cast<float>(-face.normal.z)};
}

Vec3 finiteOrZero(Vec3 v) {
    return std::isfinite(v.x) && std::isfinite(v.y) && std::isfinite(v.z) ? v : Vec3{};
}

Vec3 loadVec3(const uint8_t* bytes) {
    Vec3 v;
    std::memcpy(&v, bytes, sizeof v);
    return v;
}

void growBox(Box& box, const Vec3* points, int count) {
    Box grown = box;
    for (int i = 0; i < count; ++i)
        grown.grow(points[i]);
    box = grown;
}

Vec3Array takeArray(Vec3Array& spare, int count) {
    Vec3Array array = std::move(spare);
    spare = {};
    array.resize(static_cast<size_t>(count));
    return array;
}

} // namespace

/// Scaled in double precision, in which the host stores it.
Vec3 visibleNormal(const FACE& face) {
    const double x = face.normal.x;
    const double y = face.normal.y;
    const double z = face.normal.z;
    const double size = std::sqrt(x * x + y * y + z * z);
    if (!(size > 0.0) || !std::isfinite(size))
        return {};
    return {static_cast<float>(-x / size), static_cast<float>(-y / size),
            static_cast<float>(-z / size)};
}

Vec3 tangentOf(Vec3 n) {
    Vec3 tangent{n.y, -n.x, 0.0f};
    if (length(tangent) < 0.9f)
        tangent = {0.0f, n.z, -n.y};
    return normalized(tangent);
}

MeshBatchBuilder::MeshBatchBuilder(const SCENE& scene)
    : lists_(scene), ignoreTwoSided_((scene.geometry.flags & kGeometryTwoSided) != 0),
      buckets_(static_cast<size_t>(lists_.materials.size())) {}

template <class Visitor>
void MeshBatchBuilder::forEachFaceOf(int cluster, const Visitor& visit) const {
    const ItemRange range = lists_.faces.cluster(cluster);
    for (int f = range.first; f < range.end(); ++f)
        visit(lists_.faces.items()[f], f);
}

template <class Visitor>
void MeshBatchBuilder::forEachFace(int object, const Visitor& visit) const {
    if (object != kAllObjects) {
        forEachFaceOf(object, visit);
        return;
    }
    for (int k = 0; k < lists_.faces.size(); ++k)
        if (lists_.isDrawn(k))
            forEachFaceOf(k, visit);
}

int64_t MeshBatchBuilder::countTriangles(int object) const {
    int64_t count = 0;
    forEachFace(object, [&](const FACE& face, int f) {
        count += faceTriangles(lists_, f, face.flags).triangleCount;
    });
    return count;
}

MeshBatchBuilder::Bucket* MeshBatchBuilder::bucketOf(const FACE& face) {
    const MATERIAL* material = lists_.materials.at(face.material);
    return material != nullptr && material->useCount != 0
               ? &buckets_[static_cast<size_t>(face.material)]
               : nullptr;
}

std::vector<BatchSize> MeshBatchBuilder::batchSizes(int object) {
    std::vector<BatchSize> sizes;
    forEachFace(object, [&](const FACE& face, int f) {
        const int triangles = faceTriangles(lists_, f, face.flags).triangleCount;
        Bucket* bucket = triangles > 0 ? bucketOf(face) : nullptr;
        if (bucket == nullptr ||
            triangles > (kMostVertices - bucket->vertexCount) / kVerticesPerTriangle)
            return;
        if (bucket->vertexCount == 0)
            sizes.push_back({face.material, 0});
        bucket->vertexCount += triangles * kVerticesPerTriangle;
    });
    std::ranges::sort(sizes, {}, &BatchSize::material);
    for (BatchSize& size : sizes)
        size.vertexCount =
            std::exchange(buckets_[static_cast<size_t>(size.material)], {}).vertexCount;
    return sizes;
}

/// Shadow and lighting flags come from the first face of each object.
uint32_t MeshBatchBuilder::clusterFlags(int object) const {
    const int first = object == kAllObjects ? 0 : object;
    const int end = object == kAllObjects ? lists_.faces.size() : object + 1;
    uint32_t flags = 0;
    for (int k = first; k < end; ++k) {
        const ItemRange range = lists_.faces.cluster(k);
        if (range.count == 0 || (object == kAllObjects && !lists_.isDrawn(k)))
            continue;
        const uint32_t faceFlags = lists_.faces.items()[range.first].flags;
        if ((faceFlags & kFaceUnlit) != 0)
            flags |= kBatchNoShadow | kBatchUnlit;
        else if ((faceFlags & kFaceTwoSided) != 0 && !ignoreTwoSided_)
            flags |= kBatchNoShadow;
    }
    return flags;
}

uint32_t MeshBatchBuilder::materialFlags(const MATERIAL& material) const {
    const TEXTURESLOT* slot = textureSlot(lists_, material);
    const bool hasSharedImage = material.textureIndex != -1 && slot != nullptr && holdsImage(*slot);
    return material.opacity != 1.0f && !hasSharedImage ? kBatchTranslucent : 0;
}

std::unique_ptr<MeshVertexArray> MeshBatchBuilder::makeBatch(int material, int vertexCount,
                                                             uint32_t flags) {
    auto batch = std::make_unique<MeshVertexArray>();
    batch->material = material;
    batch->flags = flags | materialFlags(lists_.materials[material]);
    SpareArrays spare;
    if (!spare_.empty()) {
        spare = std::move(spare_.back());
        spare_.pop_back();
    }
    batch->positions.resize(static_cast<size_t>(vertexCount));
    batch->normals = takeArray(spare.normals, vertexCount);
    batch->tangents = takeArray(spare.tangents, vertexCount);
    batch->texCoords = takeArray(spare.texCoords, vertexCount);
    return batch;
}

MeshBatches MeshBatchBuilder::makeBatches(std::span<const BatchSize> sizes, uint32_t flags) {
    MeshBatches batches;
    batches.reserve(sizes.size());
    for (const BatchSize& size : sizes) {
        batches.push_back(makeBatch(size.material, size.vertexCount, flags));
        buckets_[static_cast<size_t>(size.material)] = {size.vertexCount, 0, batches.back().get()};
    }
    return batches;
}

MeshBatches MeshBatchBuilder::build(int object, std::span<const BatchSize> sizes, Box& bounds) {
    MeshBatches batches = makeBatches(sizes, clusterFlags(object));
    forEachFace(object, [&](const FACE& face, int f) {
        Bucket* bucket = bucketOf(face);
        if (bucket == nullptr || bucket->batch == nullptr)
            return;
        const FaceTriangles triangles = faceTriangles(lists_, f, face.flags);
        if (triangles.triangleCount <=
            (bucket->vertexCount - bucket->written) / kVerticesPerTriangle)
            writeFace(face, triangles, *bucket, bounds);
    });
    for (const BatchSize& size : sizes)
        buckets_[static_cast<size_t>(size.material)] = {};
    return batches;
}

void MeshBatchBuilder::writeFace(const FACE& face, const FaceTriangles& triangles, Bucket& bucket,
                                 Box& bounds) {
    const int count = triangles.triangleCount * kVerticesPerTriangle;
    if (count == 0)
        return;
    MeshVertexArray& batch = *bucket.batch;
    const int at = bucket.written;
    Vec3* positions = batch.positions.data() + at;
    std::memcpy(positions, triangles.positions, static_cast<size_t>(count) * sizeof(Vec3));
    growBox(bounds, positions, count);
    writeNormals(face, triangles, batch.normals.data() + at, batch.tangents.data() + at);
    writeTexCoords(face, count, batch.texCoords.data() + at);
    bucket.written += count;
}

void MeshBatchBuilder::writeNormals(const FACE& face, const FaceTriangles& triangles, Vec3* normals,
                                    Vec3* tangents) const {
    const int count = triangles.triangleCount * kVerticesPerTriangle;
    if (triangles.normals == nullptr) {
        const Vec3 normal = visibleNormal(face);
        std::fill_n(normals, count, normal);
        std::fill_n(tangents, count, tangentOf(normal));
        return;
    }
    const Vec3 fallback = finiteOrZero(negatedNormal(face));
    for (int i = 0; i < count; ++i) {
        const Vec3 stored = loadVec3(triangles.normals + static_cast<size_t>(i) * sizeof(Vec3));
        // Written so that what is not a number counts as too short.
        const float size = length(stored);
        const bool usable = size >= kShortestNormal && std::isfinite(size);
        normals[i] = usable ? stored : fallback;
        tangents[i] = tangentOf(normals[i]);
    }
}

void MeshBatchBuilder::writeTexCoords(const FACE& face, int vertexCount, Vec3* texCoords) const {
    const int first = face.texCoordIndex;
    const ItemRange stored = clippedRange(first, vertexCount, lists_.texCoords.size());
    for (int i = 0; i < stored.count; ++i) {
        const TEXCOORD& coord = lists_.texCoords[first + i];
        texCoords[i] = {coord.u, 1.0f - coord.v, 0.0f};
    }
    std::fill_n(texCoords + stored.count, vertexCount - stored.count, Vec3{});
}

void MeshBatchBuilder::reclaim(MeshBatches& uploaded) {
    for (const auto& batch : uploaded)
        spare_.push_back(
            {std::move(batch->normals), std::move(batch->tangents), std::move(batch->texCoords)});
}

} // namespace ogl
