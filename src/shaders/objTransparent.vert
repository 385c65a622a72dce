// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Translucent surfaces: scene coordinates to the fragment shader.
#version 120

centroid varying vec3 worldPos;
centroid varying vec3 worldNormal;

void main() {
    worldPos = gl_Vertex.xyz;
    worldNormal = gl_Normal;
    gl_TexCoord[0] = gl_MultiTexCoord0;
    gl_Position = ftransform();
}
