// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Colours as materials and screens have them, and colours that light can be multiplied with.
const float psGamma = 1.8;

vec3 ToLinear(vec3 c) {
    return pow(max(c, 0.0), vec3(psGamma));
}

vec3 ToSRGB(vec3 c) {
    return pow(max(c, 0.0), vec3(1.0 / psGamma));
}
