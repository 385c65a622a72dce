// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "oglview/loaded_scene.h"
#include "oglview/parse_values.h"
#include "oglview/view_options.h"

#include <string>
#include <vector>

namespace oglview {

/// Names of the scene's own views and of those that every model has.
std::vector<std::string> viewsOf(const LoadedScene& scene);

/// Sets camera and zoom window for a picture of this size; for a sample's own view, also hides the
/// objects that the view leaves out. Returns the camera. Throws UserError for a view that does not
/// exist or cannot be had.
ogl::host::Camera setView(LoadedScene& scene, const ViewOptions& options, const Size& size);

} // namespace oglview
