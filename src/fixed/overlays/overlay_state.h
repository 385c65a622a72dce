// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "math/vector3.h"

namespace ogl {

/// The state that every overlay starts from and leaves: depth test and depth writes on; lighting,
/// texturing, culling, alpha test, blending, stipple, multisampling and client arrays off; filled
/// polygons, lines one pixel wide.
void setOverlayState();

/// Ends the overlays of a frame: the alpha test is on again, as renderers expect it.
void leaveOverlayState();

/// Turns blending by source alpha on.
void setAlphaBlending();

/// Sets GL's current colour, opaque.
void setColor(Vec3 color);

/// Window pixels as coordinates while it lives: the origin is the top left corner, y runs
/// downwards. Both matrices are kept. Width and height must be at least 1.
class PixelSpace {
  public:
    PixelSpace(int width, int height);
    ~PixelSpace();
    PixelSpace(const PixelSpace&) = delete;
    PixelSpace& operator=(const PixelSpace&) = delete;
};

} // namespace ogl
