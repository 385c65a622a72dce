// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Adds the light that comes in through a window opening, a quad: its form factor seen from the
// surface, as a sum over the quad's edges (Lambert's formula).
#version 150 compatibility

#include "shared/emission.glsl"
#include "shared/multisample_surface.glsl"

uniform sampler2DRect lightingTex;
uniform vec4 lightIntensity;
uniform vec3 lightQuad0;
uniform vec3 lightQuad1;
uniform vec3 lightQuad2;
uniform vec3 lightQuad3;
uniform int numAASamples;

// The share of the edge from s to t, unit vectors from the surface.
float edgeFactor(vec3 s, vec3 t, vec3 n) {
    vec3 across = cross(s, t);
    float size = length(across);
    if (!(size >= 1.0e-6)) // seen end on, or a corner lies in the surface
        return 0.0;
    return acos(clamp(dot(s, t), -1.0, 1.0)) * dot(across / size, n);
}

vec3 lightOnSample(int i) {
    ivec2 texel = texelAt(ivec2(gl_FragCoord.xy));
    vec3 P = texelFetch(posTex, texel, i).xyz;
    vec3 n = decodeNormal(texelFetch(normTex, texel, i).xy);
    vec3 q0 = normalize(lightQuad0 - P);
    vec3 q1 = normalize(lightQuad1 - P);
    vec3 q2 = normalize(lightQuad2 - P);
    vec3 q3 = normalize(lightQuad3 - P);
    float f = edgeFactor(q3, q0, n) + edgeFactor(q0, q1, n) + edgeFactor(q1, q2, n) +
              edgeFactor(q2, q3, n);
    float F = max(f * 0.1591549431, 0.0); // 1 / (2 pi)
    vec3 light = lightIntensity.rgb * F;
    return vec3(pretonemap(light.r), pretonemap(light.g), pretonemap(light.b));
}

void main() {
    vec4 lighting = texture(lightingTex, gl_FragCoord.xy);
    vec3 light = lightOnSample(0);
    if (lighting.a > 0.0) {
        for (int i = 1; i < numAASamples; ++i)
            light += lightOnSample(i);
        light /= float(numAASamples);
    }
    gl_FragColor = vec4(lighting.rgb + light, lighting.a);
}
