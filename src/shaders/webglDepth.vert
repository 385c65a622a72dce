/* SPDX-FileCopyrightText: The ogl authors
   SPDX-License-Identifier: MIT

   The shadow map of the viewer page. See webglObject.vert for what this text must not hold. */
attribute vec3 vertPos;
uniform mat4 viewProjMat;

void main() {
    gl_Position = viewProjMat * vec4(vertPos, 1.0);
}
