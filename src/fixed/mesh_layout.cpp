// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/mesh_layout.h"

namespace ogl {

namespace {

/// Numbers of the batches by material, and in their order within a material: a counting sort.
std::vector<size_t> orderByMaterial(std::span<const BatchSize> sizes, int materialCount) {
    std::vector<size_t> next(static_cast<size_t>(materialCount) + 1, 0);
    for (const BatchSize& size : sizes)
        ++next[static_cast<size_t>(size.material) + 1];
    for (size_t m = 1; m < next.size(); ++m)
        next[m] += next[m - 1];
    std::vector<size_t> order(sizes.size());
    for (size_t i = 0; i < sizes.size(); ++i)
        order[next[static_cast<size_t>(sizes[i].material)]++] = i;
    return order;
}

} // namespace

void MeshLayout::add(int object, std::span<const BatchSize> sizes) {
    objects_.push_back({object, sizes_.size(), sizes.size()});
    sizes_.insert(sizes_.end(), sizes.begin(), sizes.end());
}

void MeshLayout::place(int materialCount) {
    places_.assign(sizes_.size(), {});
    bufferSizes_.clear();
    for (const size_t i : orderByMaterial(sizes_, materialCount)) {
        const int count = sizes_[i].vertexCount;
        if (bufferSizes_.empty() || count > kMostSharedVertices - bufferSizes_.back())
            bufferSizes_.push_back(0);
        places_[i] = {static_cast<int>(bufferSizes_.size()) - 1, bufferSizes_.back()};
        bufferSizes_.back() += count;
    }
}

MeshLayout::ObjectPlaces MeshLayout::object(size_t number) const {
    const Object& object = objects_[number];
    return {object.number, std::span(sizes_).subspan(object.firstBatch, object.batchCount),
            std::span(places_).subspan(object.firstBatch, object.batchCount)};
}

} // namespace ogl
