// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "math/vector3.h"
#include "scene/record_views.h"

#include <cstdint>
#include <span>
#include <vector>

namespace ogl {

/// The faces that an export writes: those of the objects that are drawn, with a material in use and
/// at least one triangle, sorted by material. A face with a coordinate that is no finite number is
/// left out.
class ExportFaces {
  public:
    struct Entry {
        int32_t object;
        int32_t face; ///< its global number
    };

    ExportFaces(const SCENE& scene, const SceneLists& lists);

    /// The faces of a material; by object, and in the object's order.
    std::span<const Entry> ofMaterial(int material) const {
        const size_t first = starts_[static_cast<size_t>(material)];
        return {entries_.data() + first, starts_[static_cast<size_t>(material) + 1] - first};
    }
    /// The box of all vertices; as a new Box without any.
    const Box& bounds() const { return bounds_; }

  private:
    std::vector<size_t> starts_;
    std::vector<Entry> entries_;
    Box bounds_;
};

/// Three floats of a host's array, number `k` of its vectors.
Vec3 storedVector(const uint8_t* vectors, int k);

} // namespace ogl
