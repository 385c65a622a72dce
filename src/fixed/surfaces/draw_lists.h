// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "fixed/batches/batches.h"
#include "ogl/host_records.h"
#include "scene/record_views.h"

#include <span>
#include <vector>

namespace ogl {

/// One surface to draw: a batch, the list that it came from and that list's object.
struct MeshDraw {
    const MeshVertexArray* batch;
    const MeshBatchList* list;
    int object; ///< kPreviewObject for the preview record
};
inline constexpr int kPreviewObject = -1;

/// The surfaces of a scene by material: a frame walks a material's surfaces, never all objects for
/// each material. Made when the batches are.
class DrawLists {
  public:
    /// Lists the batches of all entries of the object cache, in cache order within a material.
    void collect(const VIEW& view, int materialCount);
    /// Lists the batches of the preview record.
    void collectPreview(const CACHEENTRY& record, int materialCount);
    void clear();

    /// The surfaces in material number `material`.
    std::span<const MeshDraw> of(int material) const;

  private:
    void sort(std::span<const MeshDraw> draws, int materialCount);

    std::vector<MeshDraw> draws_; ///< grouped by material
    std::vector<int> starts_;     ///< of each material's group, and the end
};

/// True when the surface is still its object's and the object is drawn: a host may hide an object,
/// or drop its batches, between frames.
bool isStillDrawn(const MeshDraw& draw, const SceneLists& lists, const VIEW* view);

} // namespace ogl
