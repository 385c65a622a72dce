// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Forward shading of a surface by one directional light that nothing blocks.
#version 120

float sunVisibility() {
    return 1.0;
}

#include "shared/forward_shading.glsl"
