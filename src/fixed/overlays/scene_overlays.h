// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ogl/host_records.h"

namespace ogl {

/// Draws what a host's tools show in the scene: highlights and the move preview, the gizmo, the
/// view's box, the symbols. Uses the current camera; starts from and leaves the overlay state.
void drawSceneOverlays(const SCENE& scene, const VIEW& view);

} // namespace ogl
