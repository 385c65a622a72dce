// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// One light path a pixel through a scene packed into textures: boxes of objects, in each a grid of
// cells, in each cell triangles. Sums up the diffuse colours that the path meets, each darkened by
// what is near; reflections and glass carry the path on. Alpha is -1 beside the scene, else 1.
#version 330

#include "shared/ray_scene.glsl"
#include "shared/ray_surface.glsl"

uniform vec3 camPos;
uniform vec3 camDir;
uniform vec3 camRight;
uniform vec3 camUp;
uniform vec3 sceneBBoxMin;
uniform vec3 sceneBBoxMax;
uniform float fScale;
uniform int actIteration;
uniform vec2 aaPos; // shift of this iteration's rays, in parts of the picture

in vec2 TexCoord;
out vec4 FragColor;

const float kStart = 0.1; // from the eye
const float kFarthest = 1000000.0;
const float kLift = 0.001; // off a surface, so that a ray does not meet it again
const int kDeepest = 3;    // a path ends at the next hit

// A number from above 0 to 1, the same for a pixel in the same iteration.
float pathNumber(vec2 pixel) {
    vec2 seed = vec2(pixel.y * 1024.0 + pixel.x, float(actIteration) * 10.0);
    uint n = floatBitsToUint(seed.y * 214013.0 + seed.x * 2531011.0);
    n = n * (n * n * 15731u + 789221u);
    n = (n >> 9u) | 0x3f800000u;
    return 2.0 - uintBitsToFloat(n);
}

// The ray that goes on from a hit, and what its light counts; false when the path ends.
bool carryOn(Surface s, bool reflects, inout vec3 origin, inout vec3 dir, inout float throughput) {
    if (reflects) {
        if (s.reflectivity <= 0.0)
            return false;
        throughput *= 2.0 * s.reflectivity;
        origin = s.place + s.normal * kLift;
        dir = normalize(reflect(dir, normalize(s.normal)));
        return true;
    }
    if (s.transparency <= 0.0)
        return false;
    throughput *= 2.0 * s.transparency;
    origin = s.place - s.normal * kLift;
    return true;
}

void main() {
    vec2 p = vec2(TexCoord.x + aaPos.x, 1.0 - TexCoord.y + aaPos.y);
    vec2 q = (2.0 * p - 1.0) / fScale;
    vec3 dir = normalize(camDir - camRight * q.x - camUp * q.y);
    vec3 origin = camPos + dir * kStart;
    if (!meetsBox(sceneBBoxMin, sceneBBoxMax, origin, inverseOf(dir), kFarthest)) {
        FragColor = vec4(0.0, 0.0, 0.0, -1.0);
        return;
    }

    vec2 pixel = floor(gl_FragCoord.xy);
    bool reflects = pathNumber(pixel) > 0.5;
    vec3 color = vec3(0.0);
    float throughput = 1.0;
    for (int depth = 0;; ++depth) {
        Hit hit = firstHit(origin, dir, kFarthest);
        if (hit.triangle < 0)
            break;
        Surface s = surfaceAt(hit, origin, dir);
        color += openness(s.place + s.normal * kLift, s.normal, pixel) * s.diffuse;
        if (depth > kDeepest || !carryOn(s, reflects, origin, dir, throughput))
            break;
    }
    FragColor = vec4(color * throughput, 1.0);
}
