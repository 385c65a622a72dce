// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "host/vector3.h"

#include <cstdint>
#include <span>
#include <vector>

namespace ogl::host {

inline constexpr uint32_t kNoVertex = UINT32_MAX;

/// Points of which those closer than a distance became one.
struct WeldedPoints {
    std::vector<Vec3> points;
    std::vector<uint32_t> numbers; ///< per input point; kNoVertex for one that is not usable
};

/// Welds `positions` in one pass: a point takes the number of the first point within `distance`.
/// Points that are not finite, or further than `limit` from the origin along an axis, get no
/// number.
WeldedPoints weldPoints(std::span<const Vec3> positions, double distance, double limit);

} // namespace ogl::host
