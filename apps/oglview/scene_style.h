// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "host/scene_builder.h"
#include "oglview/options.h"

namespace oglview {

/// The drawing flags that the style asks for.
uint32_t drawFlagsOf(const StyleOptions& style);

/// Light and tone of photo mode, with what suits the place where the options say nothing.
ogl::host::PhotoStyle photoStyleOf(const StyleOptions& style);

/// Sets how the scene is drawn. Throws UserError for a day that its record cannot hold.
void applyStyle(ogl::host::SceneBuilder& builder, const StyleOptions& style);

} // namespace oglview
