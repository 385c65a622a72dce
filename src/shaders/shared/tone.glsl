// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// From light to the screen: saturation, exponential tone curve, monochrome.
uniform float saturation;
uniform float gamma;
uniform int drawMono;
uniform vec3 edgeColor;

const mat3 toYUV = mat3(0.299, -0.147, 0.615,
                        0.587, -0.289, -0.515,
                        0.114, 0.437, -0.100);
const mat3 toRGB = mat3(1.000, 1.000, 1.000,
                        0.000, -0.394, 2.028,
                        1.140, -0.581, 0.000);

vec3 saturated(vec3 c) {
    vec3 yuv = toYUV * c;
    yuv.gb *= saturation;
    return toRGB * yuv;
}

// exponent is negative: the brighter, the closer to 1. Saturated colours may have channels below 0.
vec3 toneCurve(vec3 c, float exponent) {
    return pow(max(1.0 - exp(c * exponent), 0.0), vec3(gamma));
}

// From the edge colour in the dark to white.
vec3 tinted(vec3 c) {
    if (drawMono != 1)
        return c;
    float lum = (c.r + c.g + c.b) * 0.333333;
    return edgeColor * (1.0 - lum) + lum;
}
