// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "fixed/forward/portals.h"
#include "platform/win32.h"

#include <span>

namespace ogl {

/// Draws the portals as quads, each moved a little along its normal, with the current state.
void drawPortalQuads(std::span<const PortalRecord> portals);

/// A sphere's shape with texture coordinates, for drawSkyThroughPortals().
GLUquadric* createSkyQuadric();

/// Shows the background image in the portals and nowhere else, with the camera that is set. Needs
/// a stencil buffer, which it clears; depth stays as it is. Leaves stencil test and texturing off,
/// culling and depth writes on, the depth test off.
void drawSkyThroughPortals(std::span<const PortalRecord> portals, unsigned backgroundTexture,
                           GLUquadric* quadric);

} // namespace ogl
