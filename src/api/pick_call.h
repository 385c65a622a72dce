// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "scene/picking/picking.h"

namespace ogl {

/// Writes the objects under a pixel into a global-memory block of i32 numbers that becomes the
/// host's, nearest first. Without a scene nothing is hit; a hit-less pick has a block of no bytes.
/// When there is no memory for the block, the count is 0 and the block null.
void handOverPicked(const SCENE* scene, const ViewPixel& pixel, int** result, int* hitCount);

} // namespace ogl
