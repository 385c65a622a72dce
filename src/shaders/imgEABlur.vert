// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// A full-screen quad for the blur.
#version 120

void main() {
    gl_Position = ftransform();
}
