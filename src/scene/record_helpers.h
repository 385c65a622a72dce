// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ogl/host_records.h"

#include <cstdint>

namespace ogl {

/// Initialises an empty list for elements of `elementSize` bytes. Both arguments are truncated to
/// 16 bits. No memory is allocated.
void createList(LIST& list, int growBy, int elementSize);

/// Initialises an empty list of clusters for items of `itemSize` bytes.
void createClusterList(VLIST& list, int growBy, int itemSize, int itemsPerCluster);

/// First item of cluster `k`, or null when there is no such cluster or the list has no items. `out`
/// (may be null) receives the cluster's INDEX and stays untouched when there is no such cluster.
void* useCluster(const VLIST& list, INDEX* out, int32_t k);

/// First item of cluster `k`, or null as above. `count` (may be null) receives the number of its
/// items as the record has it, 0 when there is no such cluster.
void* useCluster(const VLIST& list, int32_t k, int32_t* count);

/// Number that stands for the scene's current path.
inline constexpr int32_t kCurrentPath = -2;

/// First point of path `path`, or null when there is none. `count` (may be null) receives the
/// number of its points, 0 when there is no such path.
void* usePath(const SCENE& scene, int32_t path, int32_t* count);

} // namespace ogl
