// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/surfaces/scene_batches.h"

#include "fixed/batches/edge_builder.h"
#include "fixed/batches/mesh_upload.h"
#include "fixed/textures/texture_preparation.h"
#include "render/process_state.h"
#include "render/renderer.h"

#include <utility>

namespace ogl {

namespace {

/// Change marks that the bitmap path looks at.
constexpr uint32_t kChangedForBitmap = 0x1 | 0x4;
constexpr uint32_t kPreviewChanged = 0x1;
constexpr uint32_t kPreviewMeshesBuilt = 0x2;
constexpr uint32_t kPreviewEdgesDue = 0x4;

/// Objects without triangles get no list of surfaces, those whose materials are all unused an empty
/// one.
bool getsList(const MeshBatchBuilder& builder, int object, const std::vector<BatchSize>& sizes) {
    return !sizes.empty() || builder.countTriangles(object) != 0;
}

/// Builds and parks the surfaces of all objects together in the host's preview record.
void buildPreviewMeshes(const SCENE& scene, Ptr32<MeshBatchList>& slot, Box& bounds) {
    MeshBatchBuilder builder(scene);
    const std::vector<BatchSize> sizes = builder.batchSizes(kAllObjects);
    MeshBatchList* list = getsList(builder, kAllObjects, sizes) ? makeMeshBatchList() : nullptr;
    if (list == nullptr)
        return;
    slot = list;
    list->batches = builder.build(kAllObjects, sizes, bounds);
    for (const auto& batch : list->batches)
        batch->upload(GL_TRIANGLES);
}

void buildEdgesOf(const EdgeBuilder& builder, int object, CACHEENTRY& entry,
                  ColorVertexArray& edges, ColorVertexArray& silhouettes) {
    const int count = builder.append(object, edges, &silhouettes);
    if (count == 0)
        return;
    entry.edgeRecord = makeBatchSet();
    entry.edgeCount = static_cast<uint32_t>(count);
}

bool isTwoSided(const SCENE& scene) {
    return (scene.geometry.flags & kGeometryTwoSided) != 0;
}

int materialCount(const SCENE& scene) {
    return ListView<MATERIAL>(scene.geometry.materials).size();
}

} // namespace

bool anyObjectChanged(const VIEW& view, uint32_t marks) {
    const int count = cacheEntryCount(view);
    for (int k = 0; k < count; ++k)
        if ((cacheEntry(view, k)->changeFlags & marks) != 0)
            return true;
    return false;
}

bool refreshPreviewRecord(const SCENE& scene, CACHEENTRY& record, bool force, Box& bounds) {
    const bool rebuild = force || (record.changeFlags & kPreviewChanged) != 0;
    if (rebuild) {
        releaseBatchesOf(record);
        buildPreviewMeshes(scene, record.meshBatches, bounds);
        record.changeFlags =
            (record.changeFlags & ~kPreviewChanged) | kPreviewMeshesBuilt | kPreviewEdgesDue;
    }
    // All objects together name no cluster of faces, so that a preview has no edges.
    if ((record.changeFlags & kPreviewEdgesDue) != 0) {
        releaseBatchSet(record.edgeRecord);
        record.edgeCount = 0;
        record.changeFlags &= ~kPreviewEdgesDue;
    }
    return rebuild;
}

void SceneBatches::refreshPreview(Renderer& renderer, VIEW& view) {
    prepareTextures(renderer);
    setPreview(true);
    // Another renderer's record: what it found on the way is not known here.
    const bool unknown = !std::exchange(boundsKnown_, true) && view.preview.meshBatches;
    if (refreshPreviewRecord(*renderer.scene, view.preview, unknown, bounds_))
        ++generation_;
    previewMeshes_.collectPreview(view.preview, materialCount(*renderer.scene));
    tell(renderer);
}

void SceneBatches::setPreview(bool on) {
    if (on != preview_)
        ++generation_;
    preview_ = on;
}

bool SceneBatches::isBuiltFor(const Renderer& renderer) const {
    return edgeBatch_ != nullptr && silhouettesBuilt_ == renderer.choices.drawFaces;
}

bool SceneBatches::refresh(Renderer& renderer, const BatchNeeds& needs) {
    const SCENE& scene = *renderer.scene;
    VIEW* view = viewOf(scene);
    if (view != nullptr && view->previewMode != 0) {
        refreshPreview(renderer, *view);
        return false;
    }
    setPreview(false);
    bool due = processState().sceneChanged != 0 || !isBuiltFor(renderer);
    due = due || modelStamp_ != static_cast<int64_t>(modelStamp(scene));
    due = due || twoSided_ != isTwoSided(scene);
    due = due || (view != nullptr && anyObjectChanged(*view, kObjectChanged));
    if (due)
        rebuildAll(renderer, needs);
    tell(renderer);
    return due;
}

bool SceneBatches::refreshForBitmap(Renderer& renderer, const BatchNeeds& needs) {
    const SCENE& scene = *renderer.scene;
    VIEW* view = viewOf(scene);
    if (view != nullptr && view->previewMode != 0) {
        refreshPreview(renderer, *view);
        return false;
    }
    setPreview(false);
    const bool due = processState().sceneChanged != 0 || !isBuiltFor(renderer) ||
                     (view != nullptr && anyObjectChanged(*view, kChangedForBitmap));
    if (due)
        rebuildAll(renderer, needs);
    else
        prepareTextures(renderer);
    tell(renderer);
    return due;
}

void SceneBatches::rebuildAll(Renderer& renderer, const BatchNeeds& needs) {
    const SCENE& scene = *renderer.scene;
    VIEW* view = viewOf(scene);
    processState().sceneChanged = 1; // until all is built: memory may run out on the way
    objectCount_ = view != nullptr ? cacheEntryCount(*view) : 0;
    preview_ = false;
    boundsKnown_ = true;
    bounds_ = needs.emptyBounds;
    prepareTextures(renderer);
    meshes_.clear();
    parked_ = {};
    edgeBatch_ = std::make_unique<ColorVertexArray>();
    silhouetteBatch_ = std::make_unique<ColorVertexArray>();

    for (int k = 0; k < objectCount_; ++k) {
        CACHEENTRY& entry = *cacheEntry(*view, k);
        if (needs.withEdges)
            releaseBatchesOf(entry);
        else
            releaseMeshBatches(entry.meshBatches);
        entry.changeFlags &= ~kObjectChanged;
    }
    if (view != nullptr) {
        buildMeshes(scene, *view);
        meshes_.collect(*view, materialCount(scene));
        if (needs.withEdges)
            buildEdges(scene, *view, renderer.choices.drawFaces);
    }
    silhouettesBuilt_ = renderer.choices.drawFaces;
    ++generation_;
    twoSided_ = isTwoSided(scene);
    modelStamp_ = static_cast<int64_t>(modelStamp(scene));
    processState().sceneChanged = 0;
    tell(renderer);
}

/// Builds the surfaces of the drawn objects into buffers that they share, and parks those of each
/// object in its entry of the host's cache.
void SceneBatches::buildMeshes(const SCENE& scene, const VIEW& view) {
    const SceneLists lists(scene);
    MeshBatchBuilder builder(scene);
    MeshLayout layout;
    for (int k = 0; k < cacheEntryCount(view); ++k)
        if (lists.isDrawn(k))
            if (const auto sizes = builder.batchSizes(k); getsList(builder, k, sizes))
                layout.add(k, sizes);
    layout.place(lists.materials.size());
    MeshUpload upload(layout);
    for (size_t i = 0; i < layout.objectCount(); ++i) {
        const MeshLayout::ObjectPlaces placed = layout.object(i);
        MeshBatchList* list = parked_.park(*cacheEntry(view, placed.object));
        if (list == nullptr)
            continue;
        list->batches = builder.build(placed.object, placed.sizes, bounds_);
        for (size_t b = 0; b < placed.places.size(); ++b)
            upload.add(*list->batches[b], placed.places[b]);
        builder.reclaim(list->batches);
    }
    upload.finish();
}

void SceneBatches::buildEdges(const SCENE& scene, const VIEW& view, bool withSilhouettes) {
    const SceneLists lists(scene);
    const EdgeBuilder builder(scene, {.silhouettes = withSilhouettes});
    builder.reserve(objectCount_, *edgeBatch_, silhouetteBatch_.get());
    for (int k = 0; k < objectCount_; ++k)
        if (lists.isDrawn(k))
            buildEdgesOf(builder, k, *cacheEntry(view, k), *edgeBatch_, *silhouetteBatch_);
    if (!edgeBatch_->positions.empty())
        edgeBatch_->upload(GL_LINES);
    if (!silhouetteBatch_->positions.empty())
        silhouetteBatch_->upload(GL_TRIANGLES);
}

void SceneBatches::tell(Renderer& renderer) const {
    renderer.sceneBounds = bounds_;
    renderer.objectCount = objectCount_;
}

const ColorVertexArray* SceneBatches::edges() const {
    return preview_ ? nullptr : edgeBatch_.get();
}

const ColorVertexArray* SceneBatches::silhouettes() const {
    return preview_ ? nullptr : silhouetteBatch_.get();
}

} // namespace ogl
