// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// A full-screen quad with the place in the picture, 0 .. 1 from the lower left corner.
#version 330 compatibility

out vec2 TexCoord;

void main() {
    TexCoord = gl_MultiTexCoord0.xy;
    gl_Position = ftransform();
}
