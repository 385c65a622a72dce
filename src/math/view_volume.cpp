// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "math/view_volume.h"

#include <algorithm>

namespace ogl {

// In eye coordinates the view goes along -z, and a side plane passes through the eye: a point at
// depth -z lies right of the left border when x >= left * -z / near.
ViewVolume::ViewVolume(const Frustum& frustum, const double* view) {
    const auto [left, right] = std::minmax(frustum.left, frustum.right);
    const auto [bottom, top] = std::minmax(frustum.bottom, frustum.top);
    const Plane inEyeSpace[6] = {
        {frustum.near, 0.0, left, 0.0},   {-frustum.near, 0.0, -right, 0.0},
        {0.0, frustum.near, bottom, 0.0}, {0.0, -frustum.near, -top, 0.0},
        {0.0, 0.0, -1.0, -frustum.near},  {0.0, 0.0, 1.0, frustum.far},
    };
    for (int i = 0; i < 6; ++i) {
        const Plane& p = inEyeSpace[i];
        const auto along = [&](int column) {
            const double* m = view + 4 * column;
            return p.a * m[0] + p.b * m[1] + p.c * m[2] + p.d * m[3];
        };
        planes_[i] = {along(0), along(1), along(2), along(3)};
    }
}

bool ViewVolume::meets(const Box& box) const {
    for (const Plane& plane : planes_) {
        // The corner that lies furthest inside.
        const double x = static_cast<double>(plane.a >= 0.0 ? box.max.x : box.min.x);
        const double y = static_cast<double>(plane.b >= 0.0 ? box.max.y : box.min.y);
        const double z = static_cast<double>(plane.c >= 0.0 ? box.max.z : box.min.z);
        if (plane.a * x + plane.b * y + plane.c * z + plane.d < 0.0)
            return false;
    }
    return true;
}

} // namespace ogl
