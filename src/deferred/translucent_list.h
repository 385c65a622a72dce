// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "fixed/surfaces/draw_lists.h"
#include "render/renderer.h"

#include <vector>

namespace ogl {

/// A translucent surface of one object.
struct TranslucentSurface {
    float distance; ///< of the object's reference point from the eye
    int material;
    const MeshDraw* draw;
};

/// The surfaces in materials that are neither opaque nor invisible, the farthest object first;
/// within an object in material order. The view's camera must be set.
std::vector<TranslucentSurface> translucentSurfaces(const Renderer& renderer,
                                                    const DrawLists& meshes);

} // namespace ogl
