// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// The normal of a surface in scene coordinates, bent by a normal map when there is one.
centroid varying vec3 worldNormal;
centroid varying vec3 worldTangent;
centroid varying vec3 worldBitangent;
varying vec3 texCoord;

uniform sampler2D normalMap;
uniform int hasNormalTexture;

vec3 surfaceNormal() {
    vec3 n = normalize(worldNormal);
    if (hasNormalTexture == 1) {
        vec3 m = normalize(texture2D(normalMap, texCoord.xy).rgb * 2.0 - 1.0);
        n = m.x * normalize(worldTangent) + m.y * normalize(worldBitangent) + m.z * n;
    }
    return n;
}
