// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ogl/host_records.h"

namespace ogl {

/// Draws the gizmo's three axes in their colours and its point as a black square of 8 pixels, both
/// behind what lies before them. Uses the current camera.
void drawGizmo(const GIZMO& gizmo);

} // namespace ogl
