// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// A full-screen quad for the sketch, its coordinates 0 .. 1.
#version 120

varying vec3 texCoordN;

void main() {
    texCoordN = gl_MultiTexCoord0.xyz;
    gl_Position = ftransform();
}
