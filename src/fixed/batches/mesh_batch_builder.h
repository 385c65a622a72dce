// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "gpu/mesh_vertex_array.h"
#include "math/vector3.h"
#include "ogl/host_records.h"
#include "scene/record_views.h"

#include <memory>
#include <span>
#include <vector>

namespace ogl {

using MeshBatches = std::vector<std::unique_ptr<MeshVertexArray>>;

/// Object number that stands for all drawn objects together.
inline constexpr int kAllObjects = -1;

/// Vertices that an object has in a material.
struct BatchSize {
    int material;
    int vertexCount;
};

/// Sorts the faces of objects into one batch per material. Each face is visited twice, once to
/// count and once to write, however many materials there are. Needs no GL.
class MeshBatchBuilder {
  public:
    explicit MeshBatchBuilder(const SCENE& scene);

    /// Triangles of one object, drawn or not, or of all drawn objects.
    int64_t countTriangles(int object) const;

    /// The sizes of the batches of one object, or of all drawn objects, in ascending material
    /// order. Empty without triangles. Faces with no material, or an unused one, are left out.
    std::vector<BatchSize> batchSizes(int object);

    /// The batches of these sizes with filled arrays; within a batch the faces keep their order and
    /// their triangles theirs. `bounds` grows by every vertex.
    MeshBatches build(int object, std::span<const BatchSize> sizes, Box& bounds);

    /// Takes back the memory of arrays that an upload has emptied, for the next build().
    void reclaim(MeshBatches& uploaded);

  private:
    struct Bucket {
        int vertexCount = 0;
        int written = 0;
        MeshVertexArray* batch = nullptr;
    };
    struct SpareArrays {
        Vec3Array normals;
        Vec3Array tangents;
        Vec3Array texCoords;
    };

    template <class Visitor> void forEachFace(int object, const Visitor& visit) const;
    template <class Visitor> void forEachFaceOf(int cluster, const Visitor& visit) const;
    Bucket* bucketOf(const FACE& face);
    MeshBatches makeBatches(std::span<const BatchSize> sizes, uint32_t flags);
    std::unique_ptr<MeshVertexArray> makeBatch(int material, int vertexCount, uint32_t flags);
    uint32_t clusterFlags(int object) const;
    uint32_t materialFlags(const MATERIAL& material) const;
    void writeFace(const FACE& face, const FaceTriangles& triangles, Bucket& bucket, Box& bounds);
    void writeNormals(const FACE& face, const FaceTriangles& triangles, Vec3* normals,
                      Vec3* tangents) const;
    void writeTexCoords(const FACE& face, int vertexCount, Vec3* texCoords) const;

    SceneLists lists_;
    bool ignoreTwoSided_;
    std::vector<Bucket> buckets_; ///< one per material; all empty between builds
    std::vector<SpareArrays> spare_;
};

/// The unit normal of the face's visible side; zero when the host stores none.
Vec3 visibleNormal(const FACE& face);

/// A unit vector across `normal` (unit length): the tangent that shading uses.
Vec3 tangentOf(Vec3 normal);

} // namespace ogl
