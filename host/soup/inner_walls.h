// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "host/soup/surfaces.h"

#include <cstdint>
#include <vector>

namespace ogl::host {

/// Per patch, whether it lies between two solids of one material that touch there: nobody sees it,
/// but its rim would be drawn as an edge and throw shadows through the crack. Sheets with two sides
/// and the walls between rooms that are modelled from inside are none.
std::vector<uint8_t> findInnerWalls(const SoupMesh& mesh, const std::vector<HalfEdge>& edges,
                                    const Surfaces& surfaces);

} // namespace ogl::host
