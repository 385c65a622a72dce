// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Where a ray meets the triangles of a packed scene. Texel k of a texture lies in column k mod side
// and row k / side. A box takes two texels: its corner and the number of the first thing in it, its
// other corner and how many there are.

uniform sampler2DRect vertsTex;
uniform sampler2DRect boundsTex;
uniform sampler2DRect gridsTex;
uniform int vertTexRes;
uniform int boundsTexRes;
uniform int gridsTexRes;
uniform int numBounds;
uniform int numAllTris;

struct Hit {
    float t;
    int triangle; // -1 = none
    float u;      // weight of the second corner
    float v;      // weight of the third
};

// Column and row of texel k. Processors divide floats much faster than integers; what rounding
// puts into the wrong row is put right.
ivec2 placeOf(int k, int side) {
    int row = int(float(k) / float(side));
    int column = k - row * side;
    int off = column < 0 ? -1 : column >= side ? 1 : 0;
    return ivec2(column - off * side, row + off);
}

ivec2 placeAfter(ivec2 place, int side) {
    return place.x + 1 < side ? place + ivec2(1, 0) : ivec2(0, place.y + 1);
}

vec4 texelOf(sampler2DRect tex, int side, int k) {
    return texelFetch(tex, placeOf(k, side));
}

// 1 / dir without dividing by zero.
vec3 inverseOf(vec3 dir) {
    vec3 tiny = vec3(lessThan(abs(dir), vec3(1e-20)));
    return 1.0 / mix(dir, vec3(1e-20), tiny);
}

// Where the ray's line enters and leaves the box; it misses the box when the second is less.
vec2 spanOf(vec3 low, vec3 high, vec3 origin, vec3 inverseDir) {
    vec3 a = (low - origin) * inverseDir;
    vec3 b = (high - origin) * inverseDir;
    vec3 enter = min(a, b);
    vec3 leave = max(a, b);
    return vec2(max(max(enter.x, enter.y), enter.z), min(min(leave.x, leave.y), leave.z));
}

bool meetsBox(vec3 low, vec3 high, vec3 origin, vec3 inverseDir, float farthest) {
    vec2 span = spanOf(low, high, origin, inverseDir);
    return span.x <= span.y && span.x <= farthest;
}

// The same for a box that is not all behind the ray's start, where there is nothing to find.
bool meetsBoxAhead(vec3 low, vec3 high, vec3 origin, vec3 inverseDir, float farthest) {
    vec2 span = spanOf(low, high, origin, inverseDir);
    return span.x <= span.y && span.x <= farthest && span.y >= 0.0;
}

// Lowers hit to the triangle if the ray meets it before hit.t. Both sides count. The method of
// Moeller and Trumbore.
void meetTriangle(int triangle, vec3 origin, vec3 dir, inout Hit hit) {
    ivec2 place = placeOf(3 * triangle, vertTexRes);
    vec3 corner = texelFetch(vertsTex, place).xyz;
    place = placeAfter(place, vertTexRes);
    vec3 side1 = texelFetch(vertsTex, place).xyz - corner;
    vec3 side2 = texelFetch(vertsTex, placeAfter(place, vertTexRes)).xyz - corner;
    vec3 p = cross(dir, side2);
    float det = dot(side1, p);
    if (det == 0.0)
        return;
    vec3 fromCorner = origin - corner;
    float u = dot(fromCorner, p) / det;
    vec3 q = cross(fromCorner, side1);
    float v = dot(dir, q) / det;
    float t = dot(side2, q) / det;
    if (u >= 0.0 && v >= 0.0 && u + v <= 1.0 && t > 0.0 && t < hit.t)
        hit = Hit(t, triangle, u, v);
}

void meetCells(int first, int count, vec3 origin, vec3 dir, vec3 inverseDir, inout Hit hit) {
    for (int c = first; c < first + count; ++c) {
        ivec2 place = placeOf(2 * c, gridsTexRes); // an even side: the other texel is beside it
        vec4 low = texelFetch(gridsTex, place);
        vec4 high = texelFetch(gridsTex, place + ivec2(1, 0));
        if (!meetsBoxAhead(low.xyz, high.xyz, origin, inverseDir, hit.t))
            continue;
        int triangles = min(int(low.w) + int(high.w), numAllTris);
        for (int k = int(low.w); k < triangles; ++k)
            meetTriangle(k, origin, dir, hit);
    }
}

// The first triangle that the ray meets before farthest; or any such triangle.
Hit findHit(vec3 origin, vec3 dir, float farthest, bool any) {
    Hit hit = Hit(farthest, -1, 0.0, 0.0);
    vec3 inverseDir = inverseOf(dir);
    for (int b = 0; b < numBounds && !(any && hit.triangle >= 0); ++b) {
        ivec2 place = placeOf(2 * b, boundsTexRes);
        vec4 low = texelFetch(boundsTex, place);
        vec4 high = texelFetch(boundsTex, place + ivec2(1, 0));
        if (meetsBoxAhead(low.xyz, high.xyz, origin, inverseDir, hit.t))
            meetCells(int(low.w), int(high.w), origin, dir, inverseDir, hit);
    }
    return hit;
}

Hit firstHit(vec3 origin, vec3 dir, float farthest) {
    return findHit(origin, dir, farthest, false);
}

bool meetsAnything(vec3 origin, vec3 dir, float farthest) {
    return findHit(origin, dir, farthest, true).triangle >= 0;
}
