// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ogl/host_records.h"

namespace ogl {

class RenderContext;
class Renderer;

/// First step of a frame: makes the view's primary OpenGL context current, or its second window's
/// where the first is gone; keeps, creates or replaces the process's renderer as `scene.renderMode`
/// asks, and sets its per-call fields. Returns the renderer that draws, or null when there is none
/// or nothing to draw into. A mode that selects no renderer keeps the current one, which gets the
/// call's scene and flags and keeps its other fields.
Renderer* selectRenderer(RenderContext& context, SCENE& scene, uint32_t drawFlags);

/// The same for a frame in a file, which always takes the shadowed renderer.
Renderer* selectFileRenderer(RenderContext& context, SCENE& scene, uint32_t drawFlags);

/// Destroys the process's renderer, if there is one.
void destroyCurrentRenderer();

} // namespace ogl
