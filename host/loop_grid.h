// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "host/vector3.h"

#include <cstdint>
#include <limits>

namespace ogl::host {

/// A corner in loop units.
struct GridPoint {
    int32_t x = 0;
    int32_t y = 0;
    int32_t z = 0;
    bool operator==(const GridPoint&) const = default;
};

/// The integer grid of the loop points.
class LoopGrid {
  public:
    explicit LoopGrid(double unitScale) : step_(unitScale * 0.001) {}

    /// True when `p` (metres) has a place on the grid.
    bool holds(Vec3 p) const { return inRange(p.x) && inRange(p.y) && inRange(p.z); }

    /// The nearest grid point of `p`, which the grid must hold.
    GridPoint round(Vec3 p) const { return {toInteger(p.x), toInteger(p.y), toInteger(p.z)}; }

    /// The float that the renderers compute from a loop coordinate. The expression is theirs: the
    /// corners of edges and triangles agree to the last bit only because both use it.
    float coordinate(int32_t value) const { return static_cast<float>(value * step_); }

    Vec3 position(GridPoint p) const { return {p.x * step_, p.y * step_, p.z * step_}; }

    /// Distance of neighbouring grid points, metres.
    double step() const { return step_; }

  private:
    // One power of two of headroom keeps sums of grid coordinates within 32 bits.
    bool inRange(double v) const {
        return std::fabs(v / step_) < std::numeric_limits<int32_t>::max() * 0.5;
    }
    int32_t toInteger(double v) const { return static_cast<int32_t>(std::llround(v / step_)); }

    double step_;
};

} // namespace ogl::host
