// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Reading the surfaces that objGBuffer wrote. Sample i of a pixel:
//   posTex: place in the scene, shininess; normTex: encoded normal, object id, specular factor.
uniform sampler2DMS posTex;
uniform sampler2DMS normTex;

// Id of a sample where a surface was drawn; the clear value is below.
const float kCovered = 0.5;

// The pixel's texel. Places beyond the border read the border.
ivec2 texelAt(ivec2 place) {
    return clamp(place, ivec2(0), textureSize(posTex) - 1);
}

vec3 decodeNormal(vec2 enc) {
    vec2 f = enc * 4.0 - 2.0;
    float d = dot(f, f);
    float g = sqrt(max(1.0 - d * 0.25, 0.0));
    return vec3(f * g, 1.0 - d * 0.5);
}
