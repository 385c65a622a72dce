// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Shows a target for looking at: its colour (which = 0) or its alpha as grey (which = 1).
#version 150 compatibility

in vec3 texCoordN;

uniform sampler2DRect lightTex;
uniform vec2 res; // pixels
uniform int which;

void main() {
    vec4 texel = texture(lightTex, texCoordN.xy * res);
    gl_FragColor = vec4(which == 1 ? texel.aaa : texel.rgb, 1.0);
}
