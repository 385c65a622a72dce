// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Surfaces into the G-buffer: scene coordinates to the fragment shader.
#version 120

#include "shared/surface_vertex.glsl"

void main() {
    passSurface();
}
