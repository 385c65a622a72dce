// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "oglview/loaded_scene.h"

namespace oglview {

/// Whether the camera stands in a room whose windows are known: something visible is above it.
bool standsInside(const LoadedScene& scene, const ogl::host::Camera& camera);

} // namespace oglview
