// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "host/scene_parts.h"

#include <optional>
#include <string>

namespace CLI {
class App;
}

namespace oglview {

/// Where to look from. What is not given is chosen.
struct ViewOptions {
    std::string view; ///< "outside", "inside", "plan", ... or a sample's own
    std::optional<ogl::host::Vec3> eye;
    std::optional<ogl::host::Vec3> target;
    std::optional<ogl::host::Vec3> up;        ///< has a direction
    std::optional<double> fieldOfViewDegrees; ///< vertical
    std::optional<ogl::host::ViewWindow> zoomWindow;
};

/// Adds the options, which are read into `view`; it must stay.
void addViewOptions(CLI::App& command, ViewOptions& view);

} // namespace oglview
