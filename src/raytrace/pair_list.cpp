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

std::vector<bool> seenMaterials(const ListView<MATERIAL>& materials) {
    std::vector<bool> seen(static_cast<size_t>(materials.size()), false);
    for (int m = 0; m < materials.size(); ++m)
        seen[static_cast<size_t>(m)] = isSeen(materials[m]);
    return seen;
}

/// The faces of the object; none when rays don't see it.
ItemRange seenFaces(const SceneLists& lists, int object) {
    const ItemRange range = lists.isDrawn(object) ? lists.faces.cluster(object) : ItemRange{};
    const bool keptOut =
        range.count != 0 && (lists.faces.items()[range.first].flags & kFaceNotRayTraced) != 0;
    return keptOut ? ItemRange{} : range;
}

} // namespace

PairList::PairList(const SCENE& scene, const SceneLists& lists, int64_t most) {
    collect(scene, lists, static_cast<size_t>(most));
    if (!tooLong_)
        sortByMaterial(lists.materials.size());
    entries_ = {};
}

void PairList::collect(const SCENE& scene, const SceneLists& lists, size_t most) {
    const std::vector<bool> seen = seenMaterials(lists.materials);
    const int objects = visitedObjectCount(scene, lists);
    for (int object = 0; object < objects && !tooLong_; ++object) {
        const ItemRange range = seenFaces(lists, object);
        for (int f = range.first; f < range.end(); ++f) {
            const FACE& face = lists.faces.items()[f];
            const int material = face.material;
            if (material < 0 || material >= lists.materials.size() ||
                !seen[static_cast<size_t>(material)])
                continue;
            entries_.push_back({material, object, f});
            triangles_ += static_cast<size_t>(faceTriangles(lists, f, face.flags).triangleCount);
            tooLong_ = entries_.size() > most || triangles_ > most;
            if (tooLong_)
                break;
        }
    }
}

void PairList::sortByMaterial(int materials) {
    std::vector<size_t> next(static_cast<size_t>(materials) + 1, 0);
    for (const Entry& entry : entries_)
        ++next[static_cast<size_t>(entry.material) + 1];
    for (size_t m = 1; m < next.size(); ++m)
        next[m] += next[m - 1];
    std::vector<const Entry*> sorted(entries_.size());
    for (const Entry& entry : entries_)
        sorted[next[static_cast<size_t>(entry.material)]++] = &entry;

    faces_.reserve(sorted.size());
    for (const Entry* entry : sorted)
        faces_.push_back(entry->face);
    size_t first = 0;
    for (size_t k = 1; k <= sorted.size(); ++k) {
        const Entry& start = *sorted[first];
        if (k < sorted.size() && sorted[k]->material == start.material &&
            sorted[k]->object == start.object)
            continue;
        pairs_.push_back({start.material, start.object, {faces_.data() + first, k - first}});
        first = k;
    }
}

} // namespace ogl
