// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Ambient light, darkened where surfaces around take it away: samples in the hemisphere over the
// pixel's surface are looked up in the picture, and what lies above the surface there occludes.
#version 150 compatibility

#include "shared/multisample_surface.glsl"

uniform sampler2DRect seedTexture; // a row of unit directions for each place in the pattern
uniform sampler2D tmpTex;          // alpha: where edges are
uniform mat4 modviewprojMat;
uniform float sampleRadius;
uniform float strength;
uniform int sampleCount;
uniform int numAASamples;
uniform float patternSize;
uniform float ambientFac;
uniform vec2 posTexSize;

float occlusion(vec3 N, vec3 Q, int i, int pattern) {
    vec3 tangent = normalize(cross(vec3(0.01, 0.99, 0.0), N));
    mat3 frame = mat3(tangent, cross(N, tangent), N);
    float a = 0.0;
    float count = 0.0;
    for (int k = 0; k < sampleCount; ++k) {
        vec3 d = frame * texelFetch(seedTexture, ivec2(k, pattern)).rgb;
        float part = float(k) / float(sampleCount);
        float radius = part * part * sampleRadius + 0.01;
        vec4 q = modviewprojMat * vec4(Q + radius * d, 1.0);
        vec2 screen = (q.xy / q.w + 1.0) * 0.5 * posTexSize;
        vec4 occluder = texelFetch(posTex, texelAt(ivec2(screen)), i);
        if (occluder.a >= 1.0) {
            vec3 delta = occluder.xyz - Q;
            float L = length(delta);
            if (L > 0.0) // the surface does not occlude itself
                a += 1.0 / (L + 1.0) * max(dot(delta / L, N), 0.0) * strength;
            count += 1.0;
        }
    }
    return count > 0.0 ? a / count : 1.0;
}

void main() {
    if (strength < 0.01) {
        gl_FragColor = vec4(vec3(ambientFac), 0.0);
        return;
    }
    ivec2 texel = texelAt(ivec2(gl_FragCoord.xy));
    ivec2 cell = ivec2(mod(gl_FragCoord.xy, patternSize));
    int pattern = cell.x + cell.y * int(patternSize);
    float ao = occlusion(decodeNormal(texelFetch(normTex, texel, 0).xy),
                         texelFetch(posTex, texel, 0).xyz, 0, pattern);
    float n = 1.0;
    if (texture2D(tmpTex, gl_FragCoord.xy / posTexSize).a > 0.0) {
        for (int i = 1; i < numAASamples; ++i) {
            vec4 surface = texelFetch(normTex, texel, i);
            if (surface.z > kCovered) {
                ao += occlusion(decodeNormal(surface.xy), texelFetch(posTex, texel, i).xyz, i,
                                pattern);
                n += 1.0;
            }
        }
    }
    gl_FragColor = vec4(vec3((1.0 - ao / n) * ambientFac), 0.0);
}
