// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "gpu/gl_objects.h"
#include "raytrace/packed_scene.h"
#include "raytrace/texture_sides.h"

namespace ogl {

/// Largest side of a rectangle texture that the driver takes, texels.
int largestTextureSide();

/// A packed scene in six rectangle textures of four floats a texel. Texel k lies in column
/// k mod side and row k / side; texels past the data are zero.
struct SceneTextures {
    GLTexture vertsTex;
    GLTexture normalsTex;
    GLTexture uvsTex;
    GLTexture materialsTex;
    GLTexture gridsTex;  ///< min and first triangle, max and number of triangles
    GLTexture boundsTex; ///< min and first cell, max and number of cells
    TextureSides sides{1, 16, 2, 2};

    /// Fills new textures. False, and there are none, when the driver has no memory for them.
    /// Leaves no texture bound, unit 0 active and off.
    bool upload(const PackedScene& packed);
    void release();
};

} // namespace ogl
