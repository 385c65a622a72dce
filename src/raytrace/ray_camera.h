// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "math/vector3.h"
#include "ogl/host_records.h"

namespace ogl {

/// Where rays start and how they spread over a picture: the ray through the place (x, y) of the
/// picture, both from -1 to 1, x to the right and y downwards, has the direction
/// direction - right * (x / scale) - up * (y / scale).
struct RayCamera {
    Vec3 position{};
    Vec3 right{}; ///< half the picture's width at distance 1; points to the left
    Vec3 up{};    ///< half its height
    Vec3 direction{};
    float scale = 1.0f; ///< zoom
};

/// The camera that the scene asks for, for a picture of `width` x `height` pixels.
RayCamera rayCamera(const SCENE& scene, int width, int height);

} // namespace ogl
