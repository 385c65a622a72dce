// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "scene/record_helpers.h"

#include "scene/record_views.h"

namespace ogl {

void createList(LIST& list, int growBy, int elementSize) {
    list.count = 0;
    list.reserved04 = 0;
    list.growBy = static_cast<int16_t>(growBy);
    list.reserved08 = 0;
    list.elementSize = static_cast<int16_t>(elementSize);
    list.reserved0e = 0;
    list.data = nullptr;
}

void createClusterList(VLIST& list, int growBy, int itemSize, int itemsPerCluster) {
    createList(list.index, growBy, static_cast<int>(sizeof(INDEX)));
    const auto product = static_cast<uint32_t>(growBy) * static_cast<uint32_t>(itemsPerCluster);
    createList(list.items, static_cast<int>(product), itemSize);
}

void* useCluster(const VLIST& list, INDEX* out, int32_t k) {
    const ListView<INDEX> clusters(list.index);
    const INDEX* index = clusters.at(k);
    if (index == nullptr)
        return nullptr;
    const INDEX found = *index;
    if (out != nullptr)
        *out = found;
    auto* items = static_cast<uint8_t*>(list.items.data.get());
    // The address is the host's own arithmetic, carried out as the list says.
    return items != nullptr ? items + static_cast<ptrdiff_t>(found.first) * list.items.elementSize
                            : nullptr;
}

void* useCluster(const VLIST& list, int32_t k, int32_t* count) {
    INDEX index{};
    void* first = useCluster(list, &index, k);
    if (count != nullptr)
        *count = index.count;
    return first;
}

void* usePath(const SCENE& scene, int32_t path, int32_t* count) {
    const int32_t number = path == kCurrentPath ? scene.currentPath : path;
    if (number < 0 || number >= scene.paths.count) {
        if (count != nullptr)
            *count = 0;
        return nullptr;
    }
    const VLIST points = scene.pathPoints;
    return useCluster(points, number, count);
}

} // namespace ogl
