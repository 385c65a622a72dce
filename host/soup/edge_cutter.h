// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "host/soup/half_edges.h"

namespace ogl::host {

/// Cuts the half-edges without a mate at the end points of other such half-edges that lie on them
/// within `distance`. Mates of the rest are kept; true when something was cut.
bool cutOpenEdges(const std::vector<Vec3>& points, std::vector<HalfEdge>& edges, double distance);

} // namespace ogl::host
