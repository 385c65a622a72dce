// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "math/vector3.h"
#include "ogl/host_records.h"

#include <optional>

namespace ogl {

/// The sun as the host describes it.
struct SceneSun {
    Vec3 direction; ///< in which its light travels, unit length
    Vec3 color;
};

/// The first light of the scene; none without a light or when it has no direction.
std::optional<SceneSun> sunOf(const SCENE& scene);

/// Turns OpenGL's own lighting on: light 0 is the sun, surfaces take their colour from the current
/// one. The view's camera must be set. Without a sun only ambient light is left.
void turnSunLightingOn(const std::optional<SceneSun>& sun);
void turnSunLightingOff();

} // namespace ogl
