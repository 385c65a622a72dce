// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "fixed/batches.h"
#include "fixed/draw_lists.h"
#include "gpu/vertex_array.h"
#include "ogl/host_records.h"
#include "scene/vector3.h"

#include <memory>

namespace ogl {

class Renderer;

/// What the bounds of drawings and photos always hold.
inline constexpr Box kUnitCube{{-1.0f, -1.0f, -1.0f}, {1.0f, 1.0f, 1.0f}};

/// What a renderer draws of a scene: its edges and silhouettes, which it holds itself, and the
/// surfaces, which live in the host's object cache. Built when the scene changes, not per frame.
class SceneBatches {
  public:
    /// Brings the batches up to date for a frame in a window: in preview mode the preview record,
    /// otherwise everything when the scene changed. A rebuild resets the renderer's scene bounds
    /// to `emptyBounds` and grows them, and updates its object count and model stamp. Returns true
    /// when it rebuilt everything.
    bool refresh(Renderer& renderer, const Box& emptyBounds);

    /// The same for a frame in a bitmap, where only change marks of objects and the process-wide
    /// mark make a rebuild due.
    bool refreshForBitmap(Renderer& renderer, const Box& emptyBounds);

    /// Builds everything of every object and shows it, during a preview too.
    void rebuildAll(Renderer& renderer, const Box& emptyBounds);

    /// From now on no edges and silhouettes are built: for renderers that draw none.
    void leaveEdgesOut() { withEdges_ = false; }

    /// Destroys the edges and silhouettes. The surfaces stay with the host.
    void release();

    /// Differs from an earlier value when meshes() may draw something else than then.
    int generation() const { return generation_; }

    /// Surfaces by material.
    const DrawLists& meshes() const { return preview_ ? previewMeshes_ : meshes_; }
    /// Null when there is nothing to draw.
    const ColorVertexArray* edges() const;
    const ColorVertexArray* silhouettes() const;

  private:
    bool isBuiltFrom(const Renderer& renderer) const;
    void setPreview(bool on);
    void refreshPreview(Renderer& renderer, VIEW& view);
    void rebuildEdges(const SCENE& scene, const VIEW& view, bool withSilhouettes);

    std::unique_ptr<ColorVertexArray> edgeBatch_;
    std::unique_ptr<ColorVertexArray> silhouetteBatch_;
    DrawLists meshes_;
    DrawLists previewMeshes_;
    const SCENE* builtScene_ = nullptr; ///< only compared, never read
    bool silhouettesBuilt_ = false;     ///< or all outlines are among the edges
    int generation_ = 0;
    bool withEdges_ = true;
    bool twoSided_ = false; ///< kGeometryTwoSided at the last build
    bool preview_ = false;  ///< the preview record is drawn instead of the scene
};

/// True when an entry of the object cache has any of the marks.
bool anyObjectChanged(const VIEW& view, uint32_t marks);

/// The single-record path of preview mode: builds the surfaces of all objects into `record` when
/// its mark 0x1 is set or `force` is; a preview has no edges. Returns true when it built.
bool refreshPreviewRecord(const SCENE& scene, CACHEENTRY& record, bool force, Box& bounds);

} // namespace ogl
