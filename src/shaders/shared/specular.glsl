// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// The highlight of a surface at P with normal N, lit along L (unit vector to the light).
uniform vec3 camPos;

float specularAS(vec3 L, vec3 N, vec3 P, float gloss, float LdotN) {
    vec3 V = normalize(camPos - P);
    vec3 sum = L + V;
    vec3 H = sum / max(length(sum), 1.0e-6); // none when the light shines into the eye
    float HdotN = max(dot(H, N), 0.0);
    float e = HdotN < 1.0 ? gloss : 1.0;
    float mul = max(pow(HdotN, e), 0.00001);
    float num = sqrt((gloss + 1.0) * (gloss + 1.0)) * mul;
    float den = 25.13274122 * dot(H, L) * max(LdotN, dot(V, N)); // 8 pi
    return min(num / max(den, 1.0e-6), 6.0);
}
