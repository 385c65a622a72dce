// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "host/scene_builder.h"
#include "oglview/options.h"

namespace oglview {

/// Sets how the scene is drawn.
void applyStyle(ogl::host::SceneBuilder& builder, const StyleOptions& style);

} // namespace oglview
