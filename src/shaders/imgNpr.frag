// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// A sketch: white paper with outlines in the edge colour, drawn four times at places that a noise
// shifts, and fainter where the noise is low.
#version 120

varying vec3 texCoordN;

uniform sampler2D tmpTex;   // alpha: where edges are
uniform sampler2D noiseTex; // direction of the noise's slope, the noise
uniform vec2 rcpFrame;
uniform float noiseStrength; // pixels
uniform vec3 edgeColor;

float edge = 0.0;
float strength = 0.0;

void draw(vec2 place, float scale) {
    vec3 q = texture2D(noiseTex, place).rgb;
    vec2 offset = (q.xy - 0.5) * 2.0 * scale * noiseStrength;
    edge += 1.0 - texture2D(tmpTex, (gl_FragCoord.xy + offset) * rcpFrame).a;
    strength += q.z * (1.0 + noiseStrength * 0.25);
}

void main() {
    vec2 t = texCoordN.xy;
    draw(t.xy, 1.0);
    draw(t.yx, 2.0);
    draw(1.0 - t.yx, 3.0);
    draw(1.0 - t.xy, 4.0);
    edge *= 0.25;
    strength = max(strength * 0.25 - 0.5, 0.0);
    vec3 color = edgeColor * (1.0 - edge) + edge;
    gl_FragColor = vec4(min(color + strength * 0.5, 1.0), 1.0);
}
