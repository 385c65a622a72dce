// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ogl/host_records.h"

namespace ogl {

/// Writes the scene as a document for the viewer page. `width`, `height`: of the view, pixels.
/// 0 when the file cannot be opened, else 1.
int exportDocument(const SCENE& scene, const char* path, int width, int height);

/// Lets go of what exporting keeps between documents.
void releaseExporter();

} // namespace ogl
