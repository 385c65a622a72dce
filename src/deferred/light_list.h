// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "fixed/forward/portals.h"
#include "ogl/host_records.h"
#include "render/light.h"

#include <span>

namespace ogl {

/// Spot lights that throw shadows: their maps take a GiB together.
inline constexpr int kMostSpotShadows = 64;

/// The lamps of a scene, then a light for each portal. Of the scene's light records the first two
/// are no lamps, and kinds but spot and point lights are none; a record that describes no light (no
/// number in it, a cone outside 0 .. 90 degrees, a target at its place) is left out. Spot lights
/// after the first kMostSpotShadows throw no shadows.
LightList lightsOf(const SCENE& scene, std::span<const PortalRecord> portals);

} // namespace ogl
