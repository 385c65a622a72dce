// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/surfaces/draw_lists.h"

namespace ogl {

namespace {

void appendBatches(std::vector<MeshDraw>& draws, const CACHEENTRY& entry, int object) {
    const MeshBatchList* list = liveMeshBatches(entry.meshBatches.get());
    if (list == nullptr)
        return;
    for (const auto& batch : list->batches)
        draws.push_back({batch.get(), list, object});
}

} // namespace

void DrawLists::collect(const VIEW& view, int materialCount) {
    std::vector<MeshDraw> draws;
    for (int k = 0; k < cacheEntryCount(view); ++k)
        appendBatches(draws, *cacheEntry(view, k), k);
    sort(draws, materialCount);
}

void DrawLists::collectPreview(const CACHEENTRY& record, int materialCount) {
    std::vector<MeshDraw> draws;
    appendBatches(draws, record, kPreviewObject);
    sort(draws, materialCount);
}

void DrawLists::clear() {
    draws_.clear();
    starts_.clear();
}

/// A counting sort, which keeps the order within a material.
void DrawLists::sort(std::span<const MeshDraw> draws, int materialCount) {
    const auto isListed = [materialCount](const MeshDraw& draw) {
        return draw.batch->material >= 0 && draw.batch->material < materialCount;
    };
    starts_.assign(static_cast<size_t>(materialCount) + 1, 0);
    for (const MeshDraw& draw : draws)
        if (isListed(draw))
            ++starts_[static_cast<size_t>(draw.batch->material) + 1];
    for (size_t m = 1; m < starts_.size(); ++m)
        starts_[m] += starts_[m - 1];
    std::vector<int> next = starts_;
    draws_.assign(static_cast<size_t>(starts_.back()), MeshDraw{});
    for (const MeshDraw& draw : draws)
        if (isListed(draw))
            draws_[static_cast<size_t>(next[static_cast<size_t>(draw.batch->material)]++)] = draw;
}

std::span<const MeshDraw> DrawLists::of(int material) const {
    if (material < 0 || static_cast<size_t>(material) + 1 >= starts_.size())
        return {};
    const auto first = static_cast<size_t>(starts_[static_cast<size_t>(material)]);
    const auto end = static_cast<size_t>(starts_[static_cast<size_t>(material) + 1]);
    return std::span(draws_).subspan(first, end - first);
}

bool isStillDrawn(const MeshDraw& draw, const SceneLists& lists, const VIEW* view) {
    if (view == nullptr)
        return false;
    if (draw.object == kPreviewObject)
        return view->preview.meshBatches.get() == draw.list;
    const CACHEENTRY* entry = cacheEntry(*view, draw.object);
    return entry != nullptr && entry->meshBatches.get() == draw.list && lists.isDrawn(draw.object);
}

} // namespace ogl
