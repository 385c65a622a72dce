// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "host/scene_builder.h"

namespace ogl::host {

/// A built-in scene: the parts, not yet built, and the views to show it in.
struct SampleScene {
    std::string name;
    SceneBuilder builder;
    std::vector<NamedView> views; ///< the first one is the default
};

/// "flat": a furnished flat with window portals, lamps, textures, a site and a path. Views:
/// "outside" (the ceiling lifted off), "inside", "kitchen", "bedroom" and "plan".
SampleScene makeSampleFlat();

} // namespace ogl::host
