// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// What lies under a pixel: from the scene record alone, without OpenGL.
#pragma once

#include "scene/picking/triangle_hit.h"

#include "ogl/host_records.h"

#include <vector>

namespace ogl {

/// A pixel of a view: counted from its top left corner, y downwards.
struct ViewPixel {
    int viewWidth; ///< size of the view, pixels
    int viewHeight;
    int x;
    int y;
};

/// The ray from the scene's camera through the top left corner of a pixel, as the renderers' camera
/// maps it, zoom window included. A view without pixels or a camera without a direction gives a ray
/// whose direction is no number: it meets nothing.
Ray pickRay(const SCENE& scene, const ViewPixel& pixel);

struct PickedObject {
    int object;     ///< number in geometry.objects
    float distance; ///< along the ray, in lengths of its direction; never more than 1e7
};

/// The visible objects that `ray` meets, nearest first; at equal distance, in ascending number. A
/// face counts at the distance of the first of its triangles that is hit, in stored order.
std::vector<PickedObject> pickObjects(const SCENE& scene, const Ray& ray,
                                      CandidateSearch search = candidateSearch());

} // namespace ogl
