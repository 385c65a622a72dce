// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "raytrace/texture_sides.h"

#include <algorithm>
#include <cmath>

namespace ogl {

namespace {

constexpr double kLeastMaterialSide = 16.0;
constexpr int64_t kLargestExactFloat = int64_t{1} << 24;

int squareSide(size_t texels) {
    return static_cast<int>(std::sqrt(static_cast<double>(texels)) + 1.0);
}

int materialSide(size_t records) {
    const double side = std::sqrt(2.0 * static_cast<double>(records)) + 1.0;
    return static_cast<int>(std::max(kLeastMaterialSide, side));
}

/// Texels of the largest square that squareSide() still answers with `side`.
int64_t mostTexels(int side) {
    return side > 0 ? static_cast<int64_t>(side) * side - 1 : 0;
}

} // namespace

TextureSides textureSides(const PackedScene& packed) {
    return {squareSide(packed.vertices.size()), materialSide(packed.materialRecords.size()),
            2 * squareSide(packed.gridCells.size()), 2 * squareSide(packed.objectBounds.size())};
}

PackLimits::PackLimits(int largestSide)
    : triangles(std::min(mostTexels(largestSide) / 3, kLargestExactFloat)),
      materialRecords(std::min(mostTexels(largestSide) / 2, kLargestExactFloat)),
      cells(std::min(mostTexels(largestSide / 2), kLargestExactFloat)) {}

} // namespace ogl
