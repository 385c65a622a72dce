// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// The forward shading of a surface. What includes this file defines sunVisibility(), 0 .. 1.
#include "shared/linear_color.glsl"
#include "shared/surface_normal.glsl"
#include "shared/wrap_light.glsl"

uniform sampler2D diffuseMap;
uniform sampler2D opacityMap;
uniform int hasDiffTexture;
uniform int hasOpacityTexture;
uniform vec4 diffuseMat;
uniform vec3 lightDir; // unit vector to the light
uniform vec3 lightIntensity;
uniform float ambientFactor;
uniform int useLighting;
uniform int drawMono;

void main() {
    vec4 color = diffuseMat;
    if (hasDiffTexture == 1) {
        vec4 t = texture2D(diffuseMap, texCoord.xy);
        color *= vec4(t.rgb * 2.0, t.a);
    }
    if (hasOpacityTexture == 1)
        color.a = texture2D(opacityMap, texCoord.xy).r;
    if (drawMono == 1)
        color.rgb = vec3(dot(color.rgb, vec3(0.3, 0.6, 0.1)));
    if (useLighting == 1) {
        vec3 n = surfaceNormal();
        float cosa = dot(lightDir, n);
        float direct = max(cosa, 0.0);
        if (direct > 0.0)
            direct *= sunVisibility();
        float indirect = wrapLight(cosa, 1.0) * 0.125;
        float ambient = ((n.z + 1.0) * 0.5) * 0.5 + 0.25;
        color.rgb = ToSRGB(ToLinear(color.rgb) * (ambient * ambientFactor +
                                                  lightIntensity * indirect +
                                                  lightIntensity * direct));
    }
    gl_FragColor = color;
}
