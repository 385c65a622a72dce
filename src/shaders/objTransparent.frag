// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Translucent surfaces over the picture, shaded to go with it: one light, reflections, and the tone
// curve of the picture.
#version 120

#include "shared/environment.glsl"
#include "shared/specular.glsl"
#include "shared/tone.glsl"
#include "shared/wrap_light.glsl"

centroid varying vec3 worldPos;
centroid varying vec3 worldNormal;

uniform sampler2D diffuseMap;
uniform sampler2D opacityMap;
uniform sampler2D enviroMap;
uniform int hasDiffTexture;
uniform int hasOpacityTexture;
uniform vec4 diffuseMat;
uniform float specularMat;
uniform float shininessMat;
uniform float fresnelFacMat;
uniform float reflFacMat;
uniform vec3 lightDir; // unit vector to the light
uniform vec3 lightIntensity;
uniform float reflectionLevel;
uniform float exposure; // positive

void main() {
    vec4 color = diffuseMat;
    if (hasDiffTexture == 1) {
        vec4 t = texture2D(diffuseMap, gl_TexCoord[0].st);
        color *= vec4(t.rgb * 2.0, t.a);
    }
    if (hasOpacityTexture == 1)
        color.a = texture2D(opacityMap, gl_TexCoord[0].st).r;
    vec3 n = normalize(worldNormal);
    vec3 V = normalize(camPos - worldPos);

    float r = 0.0;
    vec3 reflection = vec3(0.0);
    if (reflFacMat > 0.0) {
        float cosa = pow(clamp(1.0 - abs(dot(V, n)), 0.00001, 1.0), 4.0);
        r = reflFacMat * (fresnelFacMat + (1.0 - fresnelFacMat) * cosa);
        vec3 mirrored = texture2D(enviroMap, spherCoord(normalize(reflect(-V, n)))).rgb;
        reflection = pow(mirrored, vec3(1.5)) * 4.0 * r;
    }

    float LdotN = dot(lightDir, n);
    float direct = max(LdotN, 0.0);
    float highlight = 0.0;
    if (direct > 0.0)
        highlight = specularAS(lightDir, n, worldPos, shininessMat, LdotN) * specularMat;
    float indirect = max(wrapLight(LdotN, 1.0), 0.25) * 0.5;

    vec3 c = color.rgb * lightIntensity * (direct + indirect) * (1.0 - r) +
             lightIntensity * highlight + reflection * reflectionLevel;
    c = toneCurve(clamp(saturated(c), 0.0, 1.0), -exposure);
    gl_FragColor = vec4(tinted(c), min(color.a + r, 1.0));
}
