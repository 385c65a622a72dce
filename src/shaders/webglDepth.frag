/* SPDX-FileCopyrightText: The ogl authors
   SPDX-License-Identifier: MIT

   The shadow map of the viewer page: depth as a fraction in base 255, red first. A surface fainter
   than half (objColor is its colour) lets the light through. See webglObject.vert for what this
   text must not hold. */
precision highp float;

uniform vec4 objColor;

void main() {
    if (objColor.a < 0.5) {
        discard;
    }
    vec4 digits = fract(gl_FragCoord.z * vec4(1.0, 255.0, 65025.0, 16581375.0));
    gl_FragColor = digits - vec4(digits.yzw / 255.0, 0.0);
}
