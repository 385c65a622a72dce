// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "scene/record_views.h"

#include <cstdint>
#include <span>
#include <vector>

namespace ogl {

/// What rays see of one object in one material.
struct MaterialPair {
    int32_t material;
    int32_t object;
    std::span<const int32_t> faces; ///< global numbers, in the object's order
};

/// The pairs of a material and an object that rays see, by material, then by object. A pair is
/// listed when the object has a face in the material; the faces are visited once, however many
/// materials there are.
///
/// Rays do not see materials that are unused, lack the texture without which they aren't drawn, or
/// are invisible; nor objects that are not drawn, not in the object cache, or kept out by the first
/// face.
class PairList {
  public:
    /// `most`: isTooLong() when there are more faces, or more triangles.
    PairList(const SCENE& scene, const SceneLists& lists, int64_t most);

    bool isTooLong() const { return tooLong_; }
    /// Triangles of all faces, before any is left out or copied.
    size_t triangleCount() const { return triangles_; }
    const std::vector<MaterialPair>& pairs() const { return pairs_; }

  private:
    struct Entry {
        int32_t material;
        int32_t object;
        int32_t face;
    };
    void collect(const SCENE& scene, const SceneLists& lists, size_t most);
    void sortByMaterial(int materials);

    std::vector<Entry> entries_; ///< empty once sorted
    std::vector<int32_t> faces_; ///< of all pairs
    std::vector<MaterialPair> pairs_;
    size_t triangles_ = 0;
    bool tooLong_ = false;
};

} // namespace ogl
