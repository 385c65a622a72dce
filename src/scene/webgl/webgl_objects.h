// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "scene/webgl/document_path.h"
#include "scene/webgl/document_writer.h"
#include "scene/webgl/export_faces.h"

namespace ogl {

/// Writes the visible objects: for every material one block per object that has faces of it.
void writeWebGLObjects(DocumentWriter& out, const SceneLists& lists, const ExportFaces& faces,
                       const DocumentPath& path);

} // namespace ogl
