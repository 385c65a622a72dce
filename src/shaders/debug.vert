// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// A full-screen quad that shows a target, its coordinates 0 .. 1.
#version 150 compatibility

out vec3 texCoordN;

void main() {
    texCoordN = gl_MultiTexCoord0.xyz;
    gl_Position = ftransform();
}
