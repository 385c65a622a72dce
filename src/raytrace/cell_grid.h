// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "math/vector3.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace ogl {

/// How a box is cut into cells: about 32 triangles to a cube of two cells a side, at most 64 cells
/// along an axis. In double precision: no box of finite floats is too large or too flat.
struct GridShape {
    /// `triangles`: at least 1.
    GridShape(const Box& box, int triangles);

    size_t cellCount() const;
    /// The cell's box. x runs fastest in the numbers, then y.
    Box cellBox(size_t cell) const;

    Vec3 min;
    std::array<int, 3> cells;           ///< along x, y, z
    std::array<double, 3> cellSizes;    ///< 0 in a flat box
    std::array<double, 3> inverseSizes; ///< 0 where the size is
};

/// The triangles of a box sorted into the cells that their own boxes touch. A triangle is listed in
/// each of these cells; a cell's list is in the order of the triangles.
class CellGrid {
  public:
    explicit CellGrid(const GridShape& shape) : shape_(shape) {}

    /// Sorts the triangles of `positions`, three corners each. False when the lists together would
    /// be longer than `mostListed`; they are empty then.
    bool sort(std::span<const Vec3> positions, int64_t mostListed);

    const GridShape& shape() const { return shape_; }
    /// The triangles of a cell.
    std::span<const int32_t> list(size_t cell) const {
        return {listed_.data() + starts_[cell], starts_[cell + 1] - starts_[cell]};
    }
    size_t listedCount() const { return listed_.size(); }

  private:
    GridShape shape_;
    std::vector<size_t> starts_;
    std::vector<int32_t> listed_;
};

} // namespace ogl
