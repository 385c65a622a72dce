// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "gpu/gl_objects.h"
#include "math/vector3.h"

#include <vector>

namespace ogl {

/// Sketch noise of a picture, row by row: the direction in which the noise rises, -1 .. 1 mapped to
/// 0 .. 1, and the noise, 0.05 .. 1.
std::vector<Vec3> noiseGradients(int width, int height);

/// The same as a texture. Leaves no texture bound.
GLTexture createNoiseTexture(int width, int height);

} // namespace ogl
