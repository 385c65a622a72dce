// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ogl/host_records.h"

namespace ogl {

/// Draws the scene's two symbols at their places, through whatever lies before them. Uses the
/// current camera.
void drawSymbols(const SCENE& scene);

} // namespace ogl
