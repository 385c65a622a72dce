// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "math/vector3.h"
#include "ogl/host_records.h"
#include "render/draw_choices.h"

namespace ogl {

/// The colour (red, green, blue, alpha) of surfaces of a material in the fixed-function renderers.
/// `sharedSlot`: its images come from a shared slot;
/// `textured`: it has a colour image.
Vec4 materialColor(const MATERIAL& material, TextureMode textureMode, ColorMode colorMode,
                   bool sharedSlot, bool textured);

} // namespace ogl
