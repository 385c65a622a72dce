// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Reading a model file, in this process. A damaged file may crash the reader: programs use
// importModel(), which runs it in a process of its own.
#pragma once

#include "host/import/import_options.h"
#include "host/import/model.h"

namespace ogl::host {

/// Whether this build reads model files with an extension (lower case, without the dot).
bool canReadModels(const std::string& extension);

/// Reads `path`. Returns an empty string and fills `model`, or returns why not, in one line.
std::string readModel(const std::string& path, const ImportOptions& options, Model& model);

} // namespace ogl::host
