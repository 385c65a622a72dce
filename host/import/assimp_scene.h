// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "host/import/import_options.h"
#include "host/import/model.h"
#include "host/import/place_model.h"

struct aiScene;

namespace ogl::host {

/// Takes over the triangles of an imported scene with its node transforms applied, still in the
/// importer's axes and the file's unit. One object per node with meshes; for building models one
/// per building element. Equal materials become one; what no triangle uses is left out.
void readScene(const aiScene& scene, const ImportOptions& options, Model& model);

/// What the file says about its coordinates and the importer left to do: FBX files name an up axis
/// and a unit.
FileAxes readAxes(const aiScene& scene);

} // namespace ogl::host
