// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Surfaces into the G-buffer. Writes three targets:
//   0: place in the scene, shininess
//   1: encoded normal, object id, specular factor
//   2: diffuse colour, reflection factor; above 3: 3 + emission
#version 120

#include "shared/surface_normal.glsl"

centroid varying vec3 worldVertex;

uniform sampler2D diffuseMap;
uniform sampler2D specularMap;
uniform sampler2D opacityMap;
uniform int hasDiffTexture;
uniform int hasOpacityTexture;
uniform int hasSpecularTexture;
uniform vec3 camPos;
uniform int useLighting;
uniform vec4 diffuseMat;
uniform float specularMat;
uniform float shininessMat;
uniform float fresnelFacMat;
uniform float reflFacMat;
uniform float faceID;

const float kCutOut = 0.92;      // less of a texture's alpha is a hole
const float kLargestFactor = 3.0; // of reflection; above are emission marks
const float kUnlit = 8.0;        // emission mark of surfaces that take no light

vec2 encodeNormal(vec3 n) {
    if (n.z < -0.999)
        return vec2(0.853553390);
    return n.xy / sqrt(8.0 * n.z + 8.0) + 0.5;
}

float reflection(float specular, float dotVN) {
    float r = useLighting == 0 ? kUnlit : reflFacMat;
    if (r > kLargestFactor)
        return r;
    r *= specular;
    if (r > 0.0)
        r *= fresnelFacMat + (1.0 - fresnelFacMat) * pow(max(1.0 - dotVN, 0.0), 5.0);
    return r;
}

void main() {
    vec4 diffuse = diffuseMat;
    if (hasDiffTexture == 1) {
        vec4 t = texture2D(diffuseMap, texCoord.xy);
        if (t.a < kCutOut)
            discard;
        diffuse.rgb *= t.rgb * 2.0;
    }
    if (hasOpacityTexture == 1 && texture2D(opacityMap, texCoord.xy).r < kCutOut)
        discard;
    float specular = hasSpecularTexture == 1 ? texture2D(specularMap, texCoord.xy).r : 1.0;
    vec3 toEye = normalize(camPos - worldVertex);
    float dotVN = dot(toEye, normalize(worldNormal)); // the map's bumps do not change it
    gl_FragData[0] = vec4(worldVertex, shininessMat);
    gl_FragData[1] = vec4(encodeNormal(surfaceNormal()), faceID + 1.0, specularMat * specular);
    gl_FragData[2] = vec4(diffuse.rgb, reflection(specular, dotVN));
}
