// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Forward shading of a surface: scene coordinates to the fragment shader, without a shadow map.
#version 120

#include "shared/surface_vertex.glsl"

void main() {
    passSurface();
}
