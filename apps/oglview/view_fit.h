// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Cameras from which all of a scene is in view.
#pragma once

#include "host/scene_parts.h"

#include <span>

namespace oglview {

/// The library's fixed depth range, metres.
inline constexpr double kNearPlane = 0.4;
inline constexpr double kFarPlane = 1000.0;

/// How to look at a scene.
struct ViewDirection {
    ogl::host::Vec3 forward{0.0, 1.0, 0.0}; ///< of any length
    ogl::host::Vec3 up{0.0, 0.0, 1.0};      ///< not parallel to `forward`
    double fieldOfViewDegrees = 40.0;       ///< vertical
};

/// The camera that looks along `view.forward`, has all `points` in view and is as near to them as
/// that allows, with at least `margin` (0 .. 1) of the picture's half size left free and the same
/// on opposite sides. `aspect` is width / height.
/// Nothing comes nearer than the near plane. Without points: a camera at the origin.
ogl::host::Camera fitView(std::span<const ogl::host::Vec3> points, const ViewDirection& view,
                          double aspect, double margin);

/// A field of view so narrow that the picture looks like a parallel projection of a scene with the
/// diagonal `size`, and yet so wide that all of it stays before the far plane. Degrees.
double nearlyParallelFieldOfView(double size, double aspect);

/// The factor by which a scene with the diagonal `size` is drawn larger or smaller so that it can
/// be seen within the depth range: 1 or a power of ten.
double drawingScale(double size);

} // namespace oglview
