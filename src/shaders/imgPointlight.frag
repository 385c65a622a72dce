// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Adds the light of one point light, which throws no shadows.
#version 150 compatibility

#include "shared/light_pass.glsl"
#include "shared/specular.glsl"

uniform vec3 lightPos;
uniform vec4 lightIntensity; // alpha: of highlights

vec4 lightOn(vec3 P, vec3 n, float gloss, float specular) {
    vec3 L = lightPos - P;
    float dist = length(L);
    L /= max(dist, 1.0e-6); // the lamp may lie in the surface
    float LdotN = max(dot(L, n), 0.0);
    if (LdotN <= 0.0)
        return vec4(0.0);
    float attenuated = LdotN / (dist * dist + 0.02);
    float highlight = specular > 0.0 ? specularAS(L, n, P, gloss, LdotN) : 0.0;
    return vec4(lightIntensity.rgb * attenuated, lightIntensity.a * highlight);
}
