// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Finds edges between surfaces: alpha says how much of an edge the pixel is, 0 .. 1. The mean over
// the pixel's samples of three signs: other objects around, other normals, a leap in distance.
#version 150 compatibility

#include "shared/multisample_surface.glsl"

uniform vec3 camPos;
uniform int numAASamples;

const float kSameNormal = 0.80; // cosine
const float kLeap = 0.05;
const float kFaintest = 0.01;

const ivec2 kDiagonals[4] = ivec2[4](ivec2(-1, -1), ivec2(1, -1), ivec2(1, 1), ivec2(-1, 1));
const ivec2 kSides[4] = ivec2[4](ivec2(-1, 0), ivec2(1, 0), ivec2(0, -1), ivec2(0, 1));

vec4 placeAt(ivec2 offset, int i) {
    return texelFetch(posTex, texelAt(ivec2(gl_FragCoord.xy) + offset), i);
}

vec4 surfaceAt(ivec2 offset, int i) {
    return texelFetch(normTex, texelAt(ivec2(gl_FragCoord.xy) + offset), i);
}

float edge(int i, vec3 viewVec) {
    vec4 center = surfaceAt(ivec2(0), i);
    vec3 n = decodeNormal(center.xy);
    vec3 left = placeAt(kSides[0], i).xyz;
    float otherIds = 0.0;
    float otherNormals = 0.0;
    float leap = 0.0;
    for (int k = 0; k < 4; ++k) {
        vec4 diagonal = surfaceAt(kDiagonals[k], i);
        vec4 side = surfaceAt(kSides[k], i);
        otherIds += (diagonal.z != center.z ? 0.125 : 0.0) + (side.z != center.z ? 0.125 : 0.0);
        otherNormals += abs(dot(n, decodeNormal(diagonal.xy))) <= kSameNormal ? 0.25 : 0.0;
        leap = max(leap, length(left - placeAt(kSides[k], i).xyz));
    }
    float facing = dot(viewVec, n);
    float distant = leap * facing * facing > kLeap ? 1.0 : 0.0;
    return (otherIds + otherNormals + distant) * 0.33333;
}

void main() {
    vec3 viewVec = normalize(placeAt(ivec2(0), 0).xyz - camPos);
    float e = 0.0;
    for (int i = 0; i < numAASamples; ++i)
        e += edge(i, viewVec);
    e /= float(numAASamples);
    gl_FragColor = vec4(0.0, 0.0, 0.0, e < kFaintest ? 0.0 : pow(e, 0.2));
}
