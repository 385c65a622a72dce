// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// What the fragment shaders of surfaces read, in scene coordinates. The tangent arrives as the
// secondary colour. Centroid: where a pixel's middle lies beside a narrow surface, places and normals
// beyond its edge would be lit from where the surface never looks.
centroid varying vec3 worldVertex;
centroid varying vec3 worldNormal;
centroid varying vec3 worldTangent;
centroid varying vec3 worldBitangent;
varying vec3 texCoord;

void passSurface() {
    worldVertex = gl_Vertex.xyz;
    worldNormal = gl_Normal;
    worldTangent = gl_SecondaryColor.rgb;
    worldBitangent = -cross(worldNormal, worldTangent);
    texCoord = gl_MultiTexCoord0.xyz;
    gl_Position = ftransform();
}
