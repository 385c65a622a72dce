// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Adds the light of one spot light, with its shadows.
#version 150 compatibility

#include "shared/light_pass.glsl"
#include "shared/shadow_filter.glsl"
#include "shared/specular.glsl"

uniform vec3 lightPos;
uniform vec3 lightDir;       // unit vector along the beam
uniform vec4 lightIntensity; // alpha: of highlights
uniform int lightAttenuation;
uniform float lightCosCutoff;
uniform int useShadow;

vec4 lightOn(vec3 P, vec3 n, float gloss, float specular) {
    vec3 L = lightPos - P;
    float dist = length(L);
    L /= max(dist, 1.0e-6); // the lamp may lie in the surface
    float LdotN = max(dot(L, n), 0.0);
    float k = LdotN * smoothstep(lightCosCutoff, lightCosCutoff + 0.08,
                                 max(0.0, dot(-L, lightDir)));
    if (k > 0.0001 && useShadow == 1)
        k *= filteredShadow(gl_TextureMatrix[5] * vec4(P, 1.0));
    else if (k <= 0.0001)
        k = 0.0;
    if (k == 0.0)
        return vec4(0.0);
    float highlight = specular > 0.0 ? specularAS(L, n, P, gloss, LdotN) * k : 0.0;
    if (lightAttenuation == 1)
        k /= dist * dist + 0.02;
    return vec4(lightIntensity.rgb * k, lightIntensity.a * highlight);
}
