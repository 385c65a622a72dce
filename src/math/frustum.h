// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32.h"

#include <cmath>

namespace ogl {

/// What a projection shows: the bounds of the picture on the near plane, and the planes' distances
/// from the eye.
struct Frustum {
    double left = 0.0;
    double right = 0.0;
    double bottom = 0.0;
    double top = 0.0;
    double near = 0.0;
    double far = 0.0;

    /// False when it shows nothing at all; OpenGL refuses such a projection.
    bool hasExtent() const {
        return std::isfinite(left) && std::isfinite(right) && std::isfinite(bottom) &&
               std::isfinite(top) && left != right && bottom != top && near != far;
    }
    /// The part of a picture of `width` x `height` pixels between the pixel borders x0 and x1, and
    /// y0 and y1, which count from the lower left and may lie outside.
    Frustum part(double x0, double y0, double x1, double y1, double width, double height) const {
        const double perX = (right - left) / width;
        const double perY = (top - bottom) / height;
        return {
            left + perX * x0, left + perX * x1, bottom + perY * y0, bottom + perY * y1, near, far};
    }
};

/// Loads GL's projection matrix with the perspective projection, or the identity when it shows
/// nothing. Leaves the matrix mode at GL_PROJECTION.
inline void loadFrustum(const Frustum& f) {
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    if (f.hasExtent() && f.near > 0.0 && f.far > 0.0)
        glFrustum(f.left, f.right, f.bottom, f.top, f.near, f.far);
}

/// The same with the orthographic projection of these bounds.
inline void loadOrtho(const Frustum& f) {
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    if (f.hasExtent())
        glOrtho(f.left, f.right, f.bottom, f.top, f.near, f.far);
}

} // namespace ogl
