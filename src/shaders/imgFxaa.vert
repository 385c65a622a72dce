// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// A full-screen quad for the smoothing of edges.
#version 130

void main() {
    gl_Position = ftransform();
}
