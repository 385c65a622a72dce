// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "math/frustum.h"
#include "math/vector3.h"

namespace ogl {

/// The space that a projection shows, bounded by six planes.
class ViewVolume {
  public:
    /// `view` is GL's model-view matrix: 16 numbers in column-major order.
    ViewVolume(const Frustum& frustum, const double* view);

    /// False when nothing inside the box can show. May be true for boxes that just miss.
    bool meets(const Box& box) const;

  private:
    /// Points with x a + y b + z c + d below 0 are outside.
    struct Plane {
        double a, b, c, d;
    };
    Plane planes_[6];
};

} // namespace ogl
