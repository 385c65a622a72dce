// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "gpu/vertex_array.h"
#include "ogl/host_records.h"
#include "scene/record_views.h"

namespace ogl {

/// Factor from the integer coordinates of loop points, boxes and symbols to those of the scene.
inline double loopPointScale(const SCENE& scene) {
    return scene.geometry.unitScale * 0.001;
}

/// The point in the coordinates of the scene; `scale` is loopPointScale().
inline Vec3 scaledPoint(VEC3I point, double scale) {
    return {static_cast<float>(point.x * scale), static_cast<float>(point.y * scale),
            static_cast<float>(point.z * scale)};
}

/// Appends both ends of every segment of the polyline through `points`, all of which must exist.
/// A closed one starts with the segment from its last point to its first.
void appendSegments(const ListView<LOOPPOINT>& list, ItemRange points, bool closed, double scale,
                    Vec3Array& ends);

} // namespace ogl
