// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "host/import/model.h"
#include "host/scene_builder.h"

namespace ogl::host {

/// Adds a model's materials and objects to a scene that is not built yet. `scale` multiplies the
/// coordinates; `bothSides` shows every surface from behind too, else only those whose material
/// says so. Returns what became of the triangles.
SoupReport addModel(SceneBuilder& builder, const Model& model, double scale = 1.0,
                    bool bothSides = false);

} // namespace ogl::host
