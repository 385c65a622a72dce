// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "oglview/loaded_scene.h"
#include "oglview/options.h"

#include <string>
#include <vector>

namespace oglview {

/// Names of the views that every model has.
std::vector<std::string> generalViews();

/// The camera for the options. For a sample's own view, also hides the objects that the view
/// leaves out. `aspect`: width / height of the picture. Throws UserError for a view that does not
/// exist or cannot be had.
ogl::host::Camera chooseCamera(LoadedScene& scene, const ViewOptions& options, double aspect);

} // namespace oglview
