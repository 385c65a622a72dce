// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "oglview/dib_section.h"
#include "oglview/drawing_view.h"
#include "oglview/loaded_scene.h"

namespace oglview {

/// Draws the scene as the style says. With `progress` shown, says how much of the bitmap is filled.
void drawPicture(const DrawingView& view, LoadedScene& scene, const StyleOptions& style,
                 DibSection& bitmap, const Progress& progress);

/// What the options leave open and the scene and its camera decide: where the sun of a moment
/// stands and whether its light comes through windows alone.
void completeStyle(StyleOptions& style, const LoadedScene& scene, const ogl::host::Camera& camera);

} // namespace oglview
