// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "host/import/import_options.h"
#include "host/import/model.h"

#include <string>

namespace ogl::host {

/// Reads a Wavefront OBJ file with its materials and textures, in this process. Returns an empty
/// string and fills `model`, or returns why not, in one line.
std::string readObj(const std::string& path, const ImportOptions& options, Model& model);

} // namespace ogl::host
