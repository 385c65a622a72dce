// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "gpu/mesh_vertex_array.h"
#include "ogl/host_records.h"

#include <memory>
#include <vector>

namespace ogl {

/// The surfaces of one object: one batch per material that it uses, in ascending material order.
/// Lives in memory32; a host's object cache owns it.
struct MeshBatchList {
    std::vector<std::unique_ptr<MeshVertexArray>> batches;
    std::shared_ptr<const void> build; ///< the same in all lists that were made together
};

/// Batches of other kinds that belong to one object. Lives in memory32; a host's object cache owns
/// it.
struct BatchSet {
    std::vector<std::unique_ptr<VertexArray>> first;
    std::vector<std::unique_ptr<VertexArray>> second;
};

/// Makes an empty list or set; null when there is no memory below 4 GiB.
MeshBatchList* makeMeshBatchList();
BatchSet* makeBatchSet();

/// The list or set at an address found in a host record, or null when none of ours lives there.
MeshBatchList* liveMeshBatches(MeshBatchList* address);
BatchSet* liveBatchSet(BatchSet* address);

/// Destroys the batches and the list or set, and sets the slot to null. An address that is none of
/// ours is not freed. Buffers are deleted when a GL context is current, else before the next frame.
void releaseMeshBatches(Ptr32<MeshBatchList>& slot);
void releaseBatchSet(Ptr32<BatchSet>& slot);

/// Releases everything that the entry holds. Its change marks stay.
void releaseBatchesOf(CACHEENTRY& entry);

/// The lists that one build has parked in a host's object cache.
class ParkedLists {
  public:
    /// Makes an empty list and parks it; null when there is no memory below 4 GiB.
    MeshBatchList* park(CACHEENTRY& entry);
    /// Whether the view's cache holds all of them, and no others.
    bool areIn(const VIEW* view) const;

  private:
    std::shared_ptr<const void> build_ = std::make_shared<char>();
    int count_ = 0;
};

} // namespace ogl
