// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "deferred/composite_pass.h"
#include "ogl/host_records.h"

namespace ogl {

/// Light where nothing is occluded.
float ambientLight(const SCENE& scene);
/// Strength of the occlusion, 1 = 100 %.
float occlusionStrength(const SCENE& scene);
/// How far noise moves the lines of the sketch, pixels.
float sketchNoise(const SCENE& scene);
PictureStyle pictureStyle(const SCENE& scene);

} // namespace ogl
