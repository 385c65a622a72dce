// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// The picture: surface colours in their light, highlights, reflections and emission, the tone
// curve, outlines of the sketch, and the background behind.
#version 150 compatibility

#include "shared/emission.glsl"
#include "shared/environment.glsl"
#include "shared/linear_color.glsl"
#include "shared/multisample_surface.glsl"
#include "shared/tone.glsl"

uniform sampler2DMS gBuffer2Tex; // diffuse colour, reflection factor
uniform sampler2DRect lightingTex;
uniform sampler2D enviroMap;
uniform sampler2DRect edgeTex; // the sketch
uniform vec3 camPos;
uniform int numAASamples;
uniform int drawLumaToAlpha;
uniform float reflectionLevel;
uniform float exposure; // negative
uniform float edgeStrength;

const float kLargestFactor = 3.0; // of reflection; above are emission marks

// Sums over the pixel's samples.
struct Surfaces {
    float alpha;
    vec3 diffuse;
    vec3 reflection;
    float highlight;
};

void addSample(int i, inout Surfaces sum, inout vec3 light) {
    ivec2 texel = texelAt(ivec2(gl_FragCoord.xy));
    vec4 surface = texelFetch(normTex, texel, i);
    vec4 d = texelFetch(gBuffer2Tex, texel, i);
    vec3 V = normalize(camPos - texelFetch(posTex, texel, i).xyz);
    vec3 R = normalize(reflect(-V, decodeNormal(surface.xy)));
    // Sampled for every pixel, since mipmaps need the pixels around.
    vec3 mirrored = texture2D(enviroMap, spherCoord(R)).rgb;
    if (surface.z <= kCovered)
        return;
    float r = clamp(d.a, 0.0, 1.0);
    if (d.a > kLargestFactor) {
        light = vec3(pretonemap(d.a - 3.0));
        r = 0.0;
    }
    if (r > 0.0)
        sum.reflection += mirrored * r;
    sum.alpha += 1.0;
    sum.diffuse += d.rgb * (1.0 - r);
    sum.highlight += surface.a;
}

void main() {
    vec4 lighting = texture(lightingTex, gl_FragCoord.xy);
    vec3 light = lighting.rgb;
    Surfaces sum = Surfaces(0.0, vec3(0.0), vec3(0.0), 0.0);
    for (int i = 0; i < numAASamples; ++i)
        addSample(i, sum, light);
    float share = 1.0 / float(numAASamples);
    float alpha = sum.alpha * share;
    vec3 reflection = pow(sum.reflection * share, vec3(1.5)) * 2.0;

    vec3 c = light * ToLinear(sum.diffuse * share) + lighting.a * (sum.highlight * share) +
             reflection * reflectionLevel;
    c = tinted(toneCurve(saturated(c), exposure));
    c -= (1.0 - texture(edgeTex, gl_FragCoord.xy).rgb) * edgeStrength;
    vec3 background = texelFetch(gBuffer2Tex, texelAt(ivec2(gl_FragCoord.xy)), 0).rgb;
    c = background * (1.0 - alpha) + c * alpha;
    gl_FragColor = vec4(c, drawLumaToAlpha == 1 ? dot(c, vec3(0.299, 0.587, 0.114)) : 1.0);
}
