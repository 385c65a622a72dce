// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Adds one light to the lighting so far: diffuse light in rgb, highlights in alpha. What includes
// this file defines lightOn().
#include "shared/multisample_surface.glsl"

uniform sampler2DRect lightingTex;
uniform sampler2D tmpTex; // alpha: where edges are
uniform vec2 rcpFrame;
uniform int numAASamples;

// The light that a surface at P gets. specular: the surface's specular factor.
vec4 lightOn(vec3 P, vec3 n, float gloss, float specular);

vec4 lightOnSample(int i) {
    ivec2 texel = texelAt(ivec2(gl_FragCoord.xy));
    vec4 place = texelFetch(posTex, texel, i);
    vec4 surface = texelFetch(normTex, texel, i);
    return lightOn(place.xyz, decodeNormal(surface.xy), place.a, surface.a);
}

void main() {
    vec4 light = lightOnSample(0);
    if (texture2D(tmpTex, gl_FragCoord.xy * rcpFrame).a > 0.0) {
        for (int i = 1; i < numAASamples; ++i)
            light += lightOnSample(i);
        light /= float(numAASamples);
    }
    gl_FragColor = texture(lightingTex, gl_FragCoord.xy) + light;
}
