// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ogl/host_records.h"
#include "raytrace/packed_scene.h"

namespace ogl {

/// Packs what rays see of a scene, for textures of at most `largestSide` texels a side. Pairs of a
/// material and an object are packed by material, then by object. Each face is visited once and a
/// pair's triangles are in memory twice, not all. False, and nothing is packed, when the scene does
/// not fit into such textures. Throws std::bad_alloc. Needs no GL.
bool packScene(const SCENE& scene, int largestSide, PackedScene& packed);

/// What rays know of a material.
MaterialRecord materialRecord(const MATERIAL& material);

} // namespace ogl
