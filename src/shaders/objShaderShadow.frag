// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Forward shading of a surface by one directional light with a shadow map.
#version 120

#include "shared/shadow_filter.glsl"

float sunVisibility() {
    return filteredShadow(gl_TexCoord[1]);
}

#include "shared/forward_shading.glsl"
