// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "host/import/import_options.h"

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace oglview {

/// Which model, and what of it.
struct ModelOptions {
    std::string model; ///< file, or name of a built-in sample
    ogl::host::ImportOptions import;
    bool bothSides = false;
    std::vector<std::string> hide; ///< patterns of object names
    std::vector<std::string> only; ///< patterns; not empty = everything else is hidden
    bool progress = false;         ///< say what is going on wherever standard error leads
};

/// Adds MODEL and what goes with it. The options are read into `model`, which must stay.
void addModelOptions(CLI::App& command, ModelOptions& model);

} // namespace oglview
