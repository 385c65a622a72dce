// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "fixed/drawing/fixed_renderer.h"
#include "gpu/vertex_array.h"
#include "hidden_view.h"

#include <memory>

namespace ogl::bench {

/// A renderer with the per-call fields of render mode 10 for a view of this size.
std::unique_ptr<FixedRenderer> makeDrawingRenderer(HiddenView& view, int width, int height,
                                                   SCENE& scene);

/// The edges that it builds. It keeps them to itself: bare programs get the same ones again.
void buildDrawingEdges(const SCENE& scene, int objects, ColorVertexArray& edges);

} // namespace ogl::bench
