// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Takes one more picture into the mean of those before: the new mean, and the mean as it is shown.
#version 140
#extension GL_ARB_explicit_attrib_location : require

uniform sampler2DRect accumTex; // the mean so far
uniform sampler2DRect actTex;
uniform float iterFac; // 1 / pictures

layout(location = 0) out vec4 mean;
layout(location = 1) out vec4 shown;

const float kBrighten = 0.6;

void main() {
    ivec2 texel = ivec2(gl_FragCoord.xy);
    vec4 before = texelFetch(accumTex, texel);
    vec4 now = before + (texelFetch(actTex, texel) - before) * iterFac;
    mean = vec4(now.rgb, 1.0);
    shown = vec4(pow(max(now.rgb, 0.0), vec3(kBrighten)), 1.0);
}
