// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// What a ray finds where it meets a triangle: needs ray_scene.glsl before it.

uniform sampler2DRect normalsTex;
uniform sampler2DRect uvsTex;
uniform sampler2DRect materialsTex;
uniform int materialsTexRes;
uniform vec3 aoSample[4]; // directions around (0, 0, 1)

struct Surface {
    vec3 place;
    vec3 normal; // to the side that the ray comes from; as the corners' normals make it
    vec3 diffuse;
    float transparency;
    float reflectivity;
};

// What is farther than 1 does not darken. The next number: hits are nearer than their limit.
const float kBeyondNearby = 1.0000001;

Surface surfaceAt(Hit hit, vec3 origin, vec3 dir) {
    float w = 1.0 - hit.u - hit.v;
    int vertex = 3 * hit.triangle;
    vec3 normal = w * texelOf(normalsTex, vertTexRes, vertex).xyz +
                  hit.u * texelOf(normalsTex, vertTexRes, vertex + 1).xyz +
                  hit.v * texelOf(normalsTex, vertTexRes, vertex + 2).xyz;
    int record = int(texelOf(uvsTex, vertTexRes, vertex).z);
    vec4 paint = texelOf(materialsTex, materialsTexRes, 2 * record);
    vec4 finish = texelOf(materialsTex, materialsTexRes, 2 * record + 1);

    Surface s;
    s.place = origin + dir * hit.t;
    s.normal = dot(normal, dir) > 0.0 ? -normal : normal;
    s.transparency = 1.0 - paint.a;
    s.reflectivity = (1.0 - s.transparency) * finish.x;
    s.diffuse = paint.rgb * max(1.0 - s.transparency - s.reflectivity, 0.0);
    return s;
}

// How much of the four directions is open at a place with a normal: 0 .. 1. Neighbouring pixels
// look in mirrored directions.
float openness(vec3 place, vec3 normal, vec2 pixel) {
    const vec3 mirrors[4] =
        vec3[4](vec3(1, 1, 1), vec3(-1, 1, 1), vec3(-1, -1, 1), vec3(1, -1, 1));
    vec3 mirror = mirrors[int(mod(pixel.x, 2.0)) + 2 * int(mod(pixel.y, 2.0))];
    vec3 tangent = normalize(cross(vec3(0.01, 0.99, 0.0), normal));
    vec3 cotangent = normalize(cross(normal, tangent));
    float open = 0.0;
    for (int i = 0; i < 4; ++i) {
        vec3 s = aoSample[i] * mirror;
        vec3 dir = tangent * s.x + cotangent * s.y + normal * s.z;
        open += meetsAnything(place, dir, kBeyondNearby) ? 0.0 : 0.25;
    }
    return open;
}
