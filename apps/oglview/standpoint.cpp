// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "oglview/standpoint.h"

#include "oglview/ray_caster.h"
#include "oglview/scene_triangles.h"

namespace oglview {

bool standsInside(const LoadedScene& scene, const ogl::host::Camera& camera) {
    if (!scene.hasPortals)
        return false;
    constexpr double kHighestCeiling = 20.0;
    const TriangleCorners corners = visibleTriangles(*scene.builder.scene());
    return RayCaster(corners).firstHit(camera.eye, {0.0, 0.0, 1.0}, kHighestCeiling) <
           kHighestCeiling;
}

} // namespace oglview
