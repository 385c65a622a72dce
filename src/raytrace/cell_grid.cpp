// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "raytrace/cell_grid.h"

#include <algorithm>
#include <cmath>

namespace ogl {

namespace {

constexpr double kTrianglesPerUnit = 0.03125;
constexpr double kThird = 0.3333333432674408; // as single precision has it
constexpr double kMostCells = 64.0;

using Triple = std::array<double, 3>;

Triple triple(Vec3 v) {
    return {v.x, v.y, v.z};
}

size_t longestAxis(const Triple& e) {
    if (e[0] > e[1] && e[0] > e[2])
        return 0;
    return e[1] > e[2] ? 1 : 2;
}

/// Written so that what is not a number, of a box without extent, gives one cell.
int cellsAlong(double extent, double cellsPerLength) {
    const double cells = std::floor(extent * cellsPerLength + 0.5);
    if (!(cells >= 2.0))
        return 1;
    return static_cast<int>(std::min(cells, kMostCells));
}

/// Cells that a triangle's box touches, along each axis.
struct CellRange {
    CellRange(const GridShape& shape, const Vec3* corners) {
        Box box{corners[0], corners[0]};
        box.grow(corners[1]);
        box.grow(corners[2]);
        const Triple low = triple(box.min);
        const Triple high = triple(box.max);
        const Triple origin = triple(shape.min);
        for (size_t axis = 0; axis < 3; ++axis) {
            const double last = shape.cells[axis] - 1;
            const auto cell = [&](double place) {
                const double scaled = (place - origin[axis]) * shape.inverseSizes[axis];
                return static_cast<int>(std::clamp(scaled, 0.0, last));
            };
            from[axis] = cell(low[axis]);
            to[axis] = cell(high[axis]);
        }
    }

    int64_t count() const {
        int64_t product = 1;
        for (size_t axis = 0; axis < 3; ++axis)
            product *= to[axis] - from[axis] + 1;
        return product;
    }
    template <class Visit> void forEachCell(const GridShape& shape, const Visit& visit) const {
        const auto width = static_cast<size_t>(shape.cells[0]);
        const auto depth = static_cast<size_t>(shape.cells[1]);
        for (int z = from[2]; z <= to[2]; ++z)
            for (int y = from[1]; y <= to[1]; ++y) {
                const size_t row =
                    (depth * static_cast<size_t>(z) + static_cast<size_t>(y)) * width;
                for (int x = from[0]; x <= to[0]; ++x)
                    visit(row + static_cast<size_t>(x));
            }
    }

    std::array<int, 3> from;
    std::array<int, 3> to;
};

} // namespace

GridShape::GridShape(const Box& box, int triangles)
    : min(box.min), cells{}, cellSizes{}, inverseSizes{} {
    const Triple low = triple(box.min);
    const Triple high = triple(box.max);
    const Triple extent{high[0] - low[0], high[1] - low[1], high[2] - low[2]};
    const double cellsPerLength =
        2.0 * std::pow(triangles * kTrianglesPerUnit, kThird) / extent[longestAxis(extent)];
    for (size_t axis = 0; axis < 3; ++axis) {
        cells[axis] = cellsAlong(extent[axis], cellsPerLength);
        cellSizes[axis] = extent[axis] / cells[axis];
        inverseSizes[axis] = cellSizes[axis] > 0.0 ? 1.0 / cellSizes[axis] : 0.0;
    }
}

size_t GridShape::cellCount() const {
    return static_cast<size_t>(cells[0]) * static_cast<size_t>(cells[1]) *
           static_cast<size_t>(cells[2]);
}

Box GridShape::cellBox(size_t cell) const {
    const auto width = static_cast<size_t>(cells[0]);
    const auto depth = static_cast<size_t>(cells[1]);
    const std::array<size_t, 3> place{cell % width, cell / width % depth, cell / width / depth};
    const Triple origin = triple(min);
    const auto border = [&](size_t axis, size_t step) {
        return static_cast<float>(origin[axis] +
                                  static_cast<double>(place[axis] + step) * cellSizes[axis]);
    };
    return {{border(0, 0), border(1, 0), border(2, 0)}, {border(0, 1), border(1, 1), border(2, 1)}};
}

bool CellGrid::sort(std::span<const Vec3> positions, int64_t mostListed) {
    starts_.assign(shape_.cellCount() + 1, 0);
    listed_.clear();
    int64_t listed = 0;
    for (size_t k = 0; k < positions.size(); k += 3) {
        const CellRange range(shape_, &positions[k]);
        listed += range.count();
        if (listed > mostListed) {
            starts_.assign(starts_.size(), 0);
            return false;
        }
        range.forEachCell(shape_, [this](size_t cell) { ++starts_[cell + 1]; });
    }
    for (size_t cell = 1; cell < starts_.size(); ++cell)
        starts_[cell] += starts_[cell - 1];
    listed_.assign(static_cast<size_t>(listed), 0);
    std::vector<size_t> next(starts_.begin(), starts_.end() - 1);
    for (size_t k = 0; k < positions.size(); k += 3) {
        const CellRange range(shape_, &positions[k]);
        range.forEachCell(
            shape_, [&](size_t cell) { listed_[next[cell]++] = static_cast<int32_t>(k / 3); });
    }
    return true;
}

} // namespace ogl
