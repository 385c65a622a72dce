// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "fixed/batches/mesh_batch_builder.h"

#include <span>
#include <vector>

namespace ogl {

/// Where a batch lies: number of the buffers, and the first vertex in them.
struct MeshPlace {
    int buffers = 0;
    int first = 0;
};

/// Vertices that one set of buffers takes at most, unless a single batch has more.
inline constexpr int kMostSharedVertices = 1 << 20;

/// Lays the batches of many objects out in buffers that they share. Buffers take batches in the
/// order in which they are added; in each set of buffers they lie by material and, within a
/// material, in that order. What a pass draws of a material then lies in few pieces, however many
/// objects it belongs to. Needs no GL.
class MeshLayout {
  public:
    /// The batches of an object.
    void add(int object, std::span<const BatchSize> sizes);
    /// Places everything added. `materialCount`: above every material added.
    void place(int materialCount);

    /// An object added, and its batches in the order in which they were added.
    struct ObjectPlaces {
        int object;
        std::span<const BatchSize> sizes;
        std::span<const MeshPlace> places;
    };
    size_t objectCount() const { return objects_.size(); }
    ObjectPlaces object(size_t number) const;
    /// Vertices of a set of buffers.
    int bufferSize(int buffers) const { return bufferSizes_[static_cast<size_t>(buffers)]; }

  private:
    struct Object {
        int number;
        size_t firstBatch, batchCount;
    };

    void placeRun(size_t first, size_t end, std::vector<int>& next);

    std::vector<Object> objects_;
    std::vector<BatchSize> sizes_;  ///< of all objects, one after the other
    std::vector<MeshPlace> places_; ///< parallel to sizes_
    std::vector<int> bufferSizes_;
};

} // namespace ogl
