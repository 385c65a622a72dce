// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace ogl::host {

/// What the user says about a model file.
struct ImportOptions {
    std::string lengthUnit;   ///< "m", "cm", "mm", "in" or "ft"; empty = found out
    char up = 0;              ///< 'y' or 'z'; 0 = found out
    bool keepHelpers = false; ///< keep spaces, openings and grids of a building model
};

} // namespace ogl::host
