// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "math/vector3.h"
#include "ogl/host_records.h"

#include <cstdint>
#include <vector>

namespace ogl {

/// A window opening found in the geometry: a rectangle with a normal.
struct PortalRecord {
    int32_t firstTriangle; ///< among the triangles of all portal faces
    int32_t triangleCount;
    Vec3 center;
    Vec3 normal; ///< unit length
    Vec3 halfU;  ///< from the centre to the middle of an edge
    Vec3 halfV;
};
static_assert(sizeof(PortalRecord) == 56);

/// The portals of a scene. A pane is modelled as two portal faces, and the second one is taken: of
/// all portal faces in object and face order every second, from the second on.
std::vector<PortalRecord> findPortals(const SCENE& scene);

} // namespace ogl
