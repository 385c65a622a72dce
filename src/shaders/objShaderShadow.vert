// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Forward shading of a surface: scene coordinates to the fragment shader, and the place in the
// shadow map of unit 4.
#version 120

#include "shared/surface_vertex.glsl"

void main() {
    passSurface();
    gl_TexCoord[1] = gl_TextureMatrix[4] * gl_Vertex;
}
