// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Pictures by rays: the library's preview of what rays see, and the traced picture.
#pragma once

#include "oglview/dib_section.h"
#include "oglview/drawing_view.h"
#include "oglview/loaded_scene.h"

namespace oglview {

/// Draws the grey preview, which the library shows in windows alone, into the bitmap. Throws
/// UserError for a bitmap that is larger than the library's own window can be.
void drawRayPreview(const DrawingView& view, ogl::SCENE* scene, uint32_t drawFlags,
                    DibSection& bitmap);

/// Traces a picture of the scene with so many samples per pixel. There must be no view of the
/// library. Throws UserError when it cannot be had.
void drawTraced(const LoadedScene& scene, int samples, DibSection& bitmap,
                const Progress& progress);

} // namespace oglview
