// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "raytrace/texture_sides.h"
#include "scene/record_views.h"

#include <cstdint>
#include <span>
#include <vector>

namespace ogl {

/// What rays see of one object in one material.
struct MaterialPair {
    int32_t record;                 ///< number of its material record
    std::span<const int32_t> faces; ///< global numbers, in the object's order
};

/// Material records that follow each other and are alike.
struct RecordRun {
    int32_t material;
    int32_t count;
};

/// The pairs of a material and an object that rays see, by material, then by object. A pair is
/// listed when the object has a face in the material; the faces are visited once, however many
/// materials there are.
///
/// There is a material record for every material with every object that rays see, faces or not: 32
/// bytes for each, 80 MB for 500 materials and 5000 objects. When they are more than the textures
/// hold, only the listed pairs have one.
///
/// Rays do not see materials that are unused, lack the texture without which they aren't drawn, or
/// are invisible; nor objects that are not drawn, not in the object cache, without a cluster of
/// faces, or kept out by the first face.
class PairList {
  public:
    PairList(const SCENE& scene, const SceneLists& lists, const PackLimits& limits);

    /// True when there are more faces, triangles or pairs than the limits allow.
    bool isTooLong() const { return tooLong_; }
    /// Triangles of all faces, before any is left out or copied.
    size_t triangleCount() const { return triangles_; }
    const std::vector<MaterialPair>& pairs() const { return pairs_; }
    /// The material records in their order.
    const std::vector<RecordRun>& records() const { return records_; }

  private:
    struct Entry {
        int32_t material; ///< numbers among those that rays see
        int32_t object;
        int32_t face;
    };
    void collectMaterials(const ListView<MATERIAL>& materials);
    void collectFaces(const SCENE& scene, const SceneLists& lists, int64_t most);
    void addFace(const SceneLists& lists, int face);
    void sortByMaterial(int64_t mostRecords);
    void listPair(const Entry& entry, std::span<const int32_t> faces, bool allRecords);

    std::vector<int32_t> materials_; ///< numbers of those that rays see
    std::vector<int32_t> ranks_;     ///< of every material among them, or -1
    int32_t objects_ = 0;            ///< that rays see
    std::vector<Entry> entries_;     ///< empty once sorted
    std::vector<int32_t> faces_;     ///< of all pairs
    std::vector<MaterialPair> pairs_;
    std::vector<RecordRun> records_;
    size_t triangles_ = 0;
    bool tooLong_ = false;
};

} // namespace ogl
