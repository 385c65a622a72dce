// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Blurs the lighting over the pixels around, but not on edges. Samples between texels take in more
// of them.
#version 120
#extension GL_ARB_texture_rectangle : enable

uniform sampler2DRect lightTex; // linear
uniform sampler2D tmpTex;       // alpha: where edges are
uniform vec2 rcpFrame;

const float kReach = 1.7; // pixels

void main() {
    vec4 center = texture2DRect(lightTex, gl_FragCoord.xy);
    float flatness = 1.0 - texture2D(tmpTex, gl_FragCoord.xy * rcpFrame).a;
    vec3 sum = center.rgb;
    float weight = 1.0;
    for (int y = -1; y <= 1; ++y)
        for (int x = -1; x <= 1; ++x) {
            if (x == 0 && y == 0)
                continue;
            vec2 offset = vec2(float(x), float(y)) * kReach;
            float w = flatness / ((abs(offset.x) + 1.0) * (abs(offset.y) + 1.0));
            sum += texture2DRect(lightTex, gl_FragCoord.xy + offset).rgb * w;
            weight += w;
        }
    gl_FragColor = vec4(sum / weight, center.a);
}
