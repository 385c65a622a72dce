// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

namespace ogl {

/// Where a full-screen quad lies, in parts of the viewport from its lower left corner.
struct ScreenQuad {
    float scale = 1.0f;
    float offsetX = 0.0f;
    float offsetY = 0.0f;
    /// Texture coordinates of the lower left corner, and what is added for the upper right one.
    float textureX = 0.0f;
    float textureY = 0.0f;
    float textureWidth = 1.0f;
    float textureHeight = 1.0f;
};

/// Matrices that make the viewport the unit square, until the object goes.
class ScreenMatrices {
  public:
    ScreenMatrices();
    ~ScreenMatrices();
    ScreenMatrices(const ScreenMatrices&) = delete;
    ScreenMatrices& operator=(const ScreenMatrices&) = delete;
};

/// Draws a quad in white over the viewport, with the program and textures in use. Turns depth
/// test, alpha test, blending and lighting off and polygon filling on; leaves the matrices as they
/// are and depth writes on.
void drawScreenQuad(const ScreenQuad& quad = {});

} // namespace ogl
