// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "math/vector3.h"
#include "ogl/host_records.h"

namespace ogl {

/// The box of the site: (-X, -Y, 0) to (X, Y, Z), float units. Without a size when the scene's
/// unit gives none.
Box siteBox(const SCENE& scene);

/// Draws the twelve edges of the site's box, dashed in green. Uses the current camera.
void drawSiteBox(const SCENE& scene);

} // namespace ogl
