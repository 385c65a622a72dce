// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "raytrace/pair_list.h"

namespace ogl {

namespace {

bool isSeen(const MATERIAL& material) {
    const bool hasNoTexture = material.textureIndex == -1;
    return material.useCount != 0 &&
           !(hasNoTexture && (material.flags & kMaterialOnlyTextured) != 0) &&
           !(hasNoTexture && material.opacity == 0.0f);
}

bool isSeen(const SceneLists& lists, int object) {
    if (!lists.isDrawn(object) || object >= lists.faces.size())
        return false;
    const ItemRange range = lists.faces.cluster(object);
    return range.count == 0 || (lists.faces.items()[range.first].flags & kFaceNotRayTraced) == 0;
}

} // namespace

PairList::PairList(const SCENE& scene, const SceneLists& lists, const PackLimits& limits) {
    collectMaterials(lists.materials);
    collectFaces(scene, lists, limits.triangles);
    if (!tooLong_)
        sortByMaterial(limits.materialRecords);
    entries_ = {};
}

void PairList::collectMaterials(const ListView<MATERIAL>& materials) {
    ranks_.assign(static_cast<size_t>(materials.size()), -1);
    for (int m = 0; m < materials.size(); ++m)
        if (isSeen(materials[m])) {
            ranks_[static_cast<size_t>(m)] = static_cast<int32_t>(materials_.size());
            materials_.push_back(m);
        }
}

void PairList::collectFaces(const SCENE& scene, const SceneLists& lists, int64_t most) {
    const auto limit = static_cast<size_t>(most);
    const int objects = visitedObjectCount(scene, lists);
    for (int object = 0; object < objects; ++object) {
        if (!isSeen(lists, object))
            continue;
        const ItemRange range = lists.faces.cluster(object);
        for (int f = range.first; f < range.end(); ++f) {
            addFace(lists, f);
            tooLong_ = entries_.size() > limit || triangles_ > limit;
            if (tooLong_)
                return;
        }
        ++objects_;
    }
}

/// Of object number objects_.
void PairList::addFace(const SceneLists& lists, int face) {
    const FACE& record = lists.faces.items()[face];
    const int material = record.material;
    if (material < 0 || material >= lists.materials.size())
        return;
    const int32_t rank = ranks_[static_cast<size_t>(material)];
    if (rank < 0)
        return;
    entries_.push_back({rank, objects_, face});
    triangles_ += static_cast<size_t>(faceTriangles(lists, face, record.flags).triangleCount);
}

void PairList::sortByMaterial(int64_t mostRecords) {
    std::vector<size_t> next(materials_.size() + 1, 0);
    for (const Entry& entry : entries_)
        ++next[static_cast<size_t>(entry.material) + 1];
    for (size_t m = 1; m < next.size(); ++m)
        next[m] += next[m - 1];
    std::vector<const Entry*> sorted(entries_.size());
    for (const Entry& entry : entries_)
        sorted[next[static_cast<size_t>(entry.material)]++] = &entry;

    const bool allRecords = static_cast<int64_t>(materials_.size()) * objects_ <= mostRecords;
    if (allRecords)
        for (const int32_t material : materials_)
            records_.push_back({material, objects_});
    faces_.reserve(sorted.size());
    for (const Entry* entry : sorted)
        faces_.push_back(entry->face);
    size_t first = 0;
    for (size_t k = 1; k <= sorted.size(); ++k) {
        const Entry& start = *sorted[first];
        if (k < sorted.size() && sorted[k]->material == start.material &&
            sorted[k]->object == start.object)
            continue;
        listPair(start, {faces_.data() + first, k - first}, allRecords);
        first = k;
    }
    tooLong_ = !allRecords && static_cast<int64_t>(pairs_.size()) > mostRecords;
}

void PairList::listPair(const Entry& entry, std::span<const int32_t> faces, bool allRecords) {
    auto record = static_cast<int32_t>(pairs_.size());
    if (allRecords)
        record = entry.material * objects_ + entry.object;
    else
        records_.push_back({materials_[static_cast<size_t>(entry.material)], 1});
    pairs_.push_back({record, faces});
}

} // namespace ogl
