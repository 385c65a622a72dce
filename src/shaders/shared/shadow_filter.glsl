// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// How much of a light reaches a place, from the light's shadow map: five comparisons, and sixteen
// jittered ones more where those disagree.
uniform sampler2DShadow shadowMap;
uniform sampler2D jitterMap; // 32 x 32 texels
uniform float shadowBlurFactor;
uniform mat4 shadowSamplesX;
uniform mat4 shadowSamplesY;

// 1 = lit. Beside the map its outermost texels go on: a spot light shines wider than its map. The
// texture's wrap clamps the place, and GL the depth.
float litAt(vec3 c) {
    return shadow2D(shadowMap, c).r;
}

// 0 = in the shadow, 1 = lit. q: projective coordinates of the place in the map.
float filteredShadow(vec4 q) {
    vec3 c = q.xyz / q.w;
    float o = shadowBlurFactor * q.w;
    float sum = litAt(c + vec3(-o, 0.0, 0.0)) + litAt(c) + litAt(c + vec3(o, 0.0, 0.0)) +
                litAt(c + vec3(0.0, -o, 0.0)) + litAt(c + vec3(0.0, o, 0.0));
    float t = sum / 5.0;
    if (t == 0.0 || t == 1.0)
        return t;
    vec2 jitter = texture2D(jitterMap, mod(gl_FragCoord.xy, 32.0) / 32.0).rg;
    for (int col = 0; col < 4; ++col)
        for (int row = 0; row < 4; ++row)
            sum += litAt(c + vec3(shadowSamplesX[col][row] + jitter.r,
                                  shadowSamplesY[col][row] + jitter.g, 0.0));
    return sum / 21.0;
}
