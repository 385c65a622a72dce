// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Adds the light of the sun, with its shadows.
#version 150 compatibility

#include "shared/light_pass.glsl"
#include "shared/shadow_filter.glsl"
#include "shared/specular.glsl"

uniform vec3 lightDir;       // unit vector to the sun
uniform vec4 lightIntensity; // alpha: of highlights
uniform int useShadow;

vec4 lightOn(vec3 P, vec3 n, float gloss, float specular) {
    float LdotN = max(dot(lightDir, n), 0.0);
    float t = 1.0;
    if (LdotN > 0.0 && useShadow == 1)
        t = filteredShadow(gl_TextureMatrix[5] * vec4(P, 1.0));
    if (LdotN <= 0.0 || t == 0.0)
        return vec4(0.0);
    float highlight = specular > 0.0 ? specularAS(lightDir, n, P, gloss, LdotN) * t : 0.0;
    return vec4(lightIntensity.rgb * LdotN * t, lightIntensity.a * highlight);
}
