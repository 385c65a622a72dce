// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Importing a model file safely: the reader runs in a process of its own.
#pragma once

#include "host/import/import_options.h"
#include "host/import/model.h"

#include <string>
#include <vector>

namespace ogl::host {

/// First argument that makes a program call importWorker() with the rest of its arguments.
inline constexpr const char* kImportWorkerCommand = "import-worker";

/// Reads the model file `path`. `program` is the running program's own file, which is started once
/// more as the reader. Returns an empty string and fills `model`, or returns what is wrong, in one
/// line.
std::string importModel(const std::string& program, const std::string& path,
                        const ImportOptions& options, Model& model);

/// The reading process: `arguments` are those that importModel() gave after the command. The exit
/// status is 0 when the output file was written.
int importWorker(const std::vector<std::string>& arguments);

} // namespace ogl::host
