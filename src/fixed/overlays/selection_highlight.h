// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "math/vector3.h"
#include "ogl/host_records.h"

namespace ogl {

/// The colour in which an object with these highlight bits is outlined: yellow with both, red with
/// kHighlightSelected, blue with kHighlightMarked alone.
Vec3 highlightColor(uint32_t highlight);

/// Outlines the drawn objects that have a highlight bit, through whatever lies before them, and
/// shows in the view's move mode where those that are selected would go. Uses the current camera.
void drawHighlights(const SCENE& scene, const VIEW& view);

} // namespace ogl
