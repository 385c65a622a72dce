// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "host/face_store.h"
#include "host/scene_parts.h"

namespace ogl::host {

/// Appends the faces of a triangle soup to `store`; see SceneBuilder::addTriangleSoup. Materials
/// are valid from -1 to `materialCount` - 1.
SoupReport addSoupFaces(FaceStore& store, const LoopGrid& grid, const TriangleSoup& soup,
                        const SoupOptions& options, int materialCount);

} // namespace ogl::host
