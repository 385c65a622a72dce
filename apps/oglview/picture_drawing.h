// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "oglview/dib_section.h"
#include "oglview/drawing_view.h"
#include "oglview/loaded_scene.h"
#include "oglview/style_options.h"

namespace oglview {

/// Draws the scene as the style says. With `progress` shown, says how much of the bitmap is filled.
void drawPicture(const DrawingView& view, LoadedScene& scene, const StyleOptions& style,
                 DibSection& bitmap, const Progress& progress);

} // namespace oglview
