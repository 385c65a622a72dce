// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/batches/mesh_layout.h"

#include <algorithm>
#include <utility>

namespace ogl {

void MeshLayout::add(int object, std::span<const BatchSize> sizes) {
    objects_.push_back({object, sizes_.size(), sizes.size()});
    sizes_.insert(sizes_.end(), sizes.begin(), sizes.end());
}

void MeshLayout::place(int materialCount) {
    places_.assign(sizes_.size(), {});
    bufferSizes_.clear();
    std::vector<int> next(static_cast<size_t>(materialCount));
    size_t first = 0;
    while (first < sizes_.size()) {
        int size = 0;
        size_t end = first;
        while (end < sizes_.size() &&
               (end == first || sizes_[end].vertexCount <= kMostSharedVertices - size))
            size += sizes_[end++].vertexCount;
        bufferSizes_.push_back(size);
        placeRun(first, end, next);
        first = end;
    }
}

/// Places batches `first` to `end - 1` in the newest buffers. `next`: scratch, one per material.
void MeshLayout::placeRun(size_t first, size_t end, std::vector<int>& next) {
    std::ranges::fill(next, 0);
    const auto nextOf = [&](size_t batch) -> int& {
        return next[static_cast<size_t>(sizes_[batch].material)];
    };
    for (size_t i = first; i < end; ++i)
        nextOf(i) += sizes_[i].vertexCount;
    int start = 0;
    for (int& count : next)
        start += std::exchange(count, start);
    for (size_t i = first; i < end; ++i) {
        places_[i] = {static_cast<int>(bufferSizes_.size()) - 1, nextOf(i)};
        nextOf(i) += sizes_[i].vertexCount;
    }
}

MeshLayout::ObjectPlaces MeshLayout::object(size_t number) const {
    const Object& object = objects_[number];
    return {object.number, std::span(sizes_).subspan(object.firstBatch, object.batchCount),
            std::span(places_).subspan(object.firstBatch, object.batchCount)};
}

} // namespace ogl
