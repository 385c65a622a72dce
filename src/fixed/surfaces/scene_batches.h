// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "fixed/batches/batches.h"
#include "fixed/surfaces/draw_lists.h"
#include "gpu/vertex_array.h"
#include "math/vector3.h"
#include "ogl/host_records.h"

#include <memory>

namespace ogl {

class Renderer;

/// What the bounds of drawings and photos always hold.
inline constexpr Box kUnitCube{{-1.0f, -1.0f, -1.0f}, {1.0f, 1.0f, 1.0f}};

/// What a renderer needs of a build.
struct BatchNeeds {
    Box emptyBounds{};     ///< from which the bounds grow
    bool withEdges = true; ///< and silhouettes
};

/// What a renderer draws of one scene: its edges and silhouettes, which are held here, and the
/// surfaces, which live in the host's object cache. Built when the scene changes, not per frame.
class SceneBatches {
  public:
    /// Brings the batches up to date for a frame in a window of the renderer's scene: in preview
    /// mode the preview record, otherwise everything when the scene changed. The renderer gets the
    /// scene's bounds and object count. Returns true when it rebuilt everything.
    bool refresh(Renderer& renderer, const BatchNeeds& needs);

    /// The same for a frame in a bitmap, where only change marks of objects and the process-wide
    /// mark make a rebuild due.
    bool refreshForBitmap(Renderer& renderer, const BatchNeeds& needs);

    /// Builds everything of every object and shows it, during a preview too.
    void rebuildAll(Renderer& renderer, const BatchNeeds& needs);

    /// False when the record cannot be the one that this was built from, or others have built from
    /// it since: the surfaces in its cache are not those of this build.
    bool belongsTo(const SCENE& scene) const { return parked_.areIn(viewOf(scene)); }

    /// Differs from an earlier value when meshes() may draw something else than then.
    int generation() const { return generation_; }

    /// Surfaces by material.
    const DrawLists& meshes() const { return preview_ ? previewMeshes_ : meshes_; }
    /// Null when there is nothing to draw.
    const ColorVertexArray* edges() const;
    const ColorVertexArray* silhouettes() const;

  private:
    bool isBuiltFor(const Renderer& renderer) const;
    void setPreview(bool on);
    void refreshPreview(Renderer& renderer, VIEW& view);
    void buildMeshes(const SCENE& scene, const VIEW& view);
    void buildEdges(const SCENE& scene, const VIEW& view, bool withSilhouettes);
    void tell(Renderer& renderer) const;

    std::unique_ptr<ColorVertexArray> edgeBatch_;
    std::unique_ptr<ColorVertexArray> silhouetteBatch_;
    ParkedLists parked_;
    DrawLists meshes_;
    DrawLists previewMeshes_;
    Box bounds_;
    bool boundsKnown_ = false;      ///< there was a build, or a preview
    int objectCount_ = -1;          ///< cache entries at the last build
    int64_t modelStamp_ = -1;       ///< of the last build
    bool silhouettesBuilt_ = false; ///< or all outlines are among the edges
    int generation_ = 0;
    bool twoSided_ = false; ///< kGeometryTwoSided at the last build
    bool preview_ = false;  ///< the preview record is drawn instead of the scene
};

/// True when an entry of the object cache has any of the marks.
bool anyObjectChanged(const VIEW& view, uint32_t marks);

/// The single-record path of preview mode: builds the surfaces of all drawn objects into `record`
/// when its mark 0x1 is set or `force` is; a preview has no edges. Returns true when it built.
bool refreshPreviewRecord(const SCENE& scene, CACHEENTRY& record, bool force, Box& bounds);

} // namespace ogl
