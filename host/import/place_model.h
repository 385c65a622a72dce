// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "host/import/import_options.h"
#include "host/import/model.h"

#include <optional>

namespace ogl::host {

/// What a file itself says about its coordinates.
struct FileAxes {
    char up = 0; ///< 'y' or 'z'; 0 = nothing
    std::optional<double> metresPerUnit;
};

/// Brings a model from the importer's axes and the file's unit to z up and metres, and one that
/// lies farther than 5 km from its origin near to it: floats and records hold metres to the
/// millimetre only so far.
void placeModel(const std::string& path, const ImportOptions& options, const FileAxes& axes,
                Model& model);

} // namespace ogl::host
