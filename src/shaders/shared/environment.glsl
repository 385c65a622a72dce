// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Where the environment map shows what lies in direction d (unit vector).
vec2 spherCoord(vec3 d) {
    vec2 r = d.xy / max(length(d.xy), 1.0e-6);
    return vec2((dot(r, vec2(0.0, 1.0)) + 1.0) * 0.25, 1.0 - (d.z + 1.0) * 0.5);
}
