// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// A full-screen quad for fragment shaders that go by gl_FragCoord.
#version 150 compatibility

void main() {
    gl_Position = ftransform();
}
