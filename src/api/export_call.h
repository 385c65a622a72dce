// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ogl/host_records.h"

namespace ogl {

/// Writes the scene as a document for the viewer page. `width`, `height`: of the view, pixels.
/// 1 when it was written, 0 when there is none.
int exportDocument(const SCENE& scene, const char* path, int width, int height);

/// Lets go of what exporting keeps between documents.
void releaseExporter();

} // namespace ogl
