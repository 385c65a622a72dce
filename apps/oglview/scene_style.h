// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "host/scene_builder.h"
#include "oglview/loaded_scene.h"
#include "oglview/style_options.h"

namespace oglview {

/// The drawing flags that the style asks for.
uint32_t drawFlagsOf(const StyleOptions& style);

/// Light and tone of photo mode, with what suits the place where the options say nothing.
ogl::host::PhotoStyle photoStyleOf(const StyleOptions& style);

/// What the options leave open and the scene and its camera decide: where the sun of a moment
/// stands and whether its light comes through windows alone.
void completeStyle(StyleOptions& style, const LoadedScene& scene, const ogl::host::Camera& camera);

/// Sets how the scene is drawn. Throws UserError for a day that its record cannot hold.
void applyStyle(ogl::host::SceneBuilder& builder, const StyleOptions& style);

} // namespace oglview
