// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "math/vector3.h"
#include "ogl/host_records.h"

namespace ogl {

/// The colour (red, green, blue, alpha) of surfaces of a material in the fixed-function renderers.
/// `textureMode`, `colorMode`: as in Renderer. `sharedSlot`: its images come from a shared slot;
/// `textured`: it has a colour image.
Vec4 materialColor(const MATERIAL& material, int textureMode, int colorMode, bool sharedSlot,
                   bool textured);

} // namespace ogl
