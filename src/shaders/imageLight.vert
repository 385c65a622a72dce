// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// A full-screen quad for the light passes.
#version 150 compatibility

void main() {
    gl_TexCoord[0] = gl_MultiTexCoord0;
    gl_Position = ftransform();
}
