/* SPDX-FileCopyrightText: The ogl authors
   SPDX-License-Identifier: MIT

   Surfaces in the viewer page: diffuse colour or texture under a sky, and a sun with a shadow map
   and a highlight. See webglObject.vert for what this text must not hold. */
precision highp float;

uniform vec3 eyePos;
uniform vec4 diffuseMat;
uniform vec4 specularMat;
uniform bool hasDiffuseTex;
uniform sampler2D diffuseTex;
uniform sampler2D shadowMap;
uniform vec3 lightDir;
uniform vec3 lightIntensity;
uniform float ambientFactor;
varying vec3 position;
varying vec3 normal;
varying vec2 texCoord;
varying vec3 shadowCoord;

const float shadowMapSize = 2048.0;
const float depthBias = 0.0004;
const float exposure = 0.8;
const float skyShare = 1.2;
const float sunShare = 0.6;
const float highlightShare = 0.2;
const vec3 skyColor = vec3(0.86, 0.93, 1.0);

/* 1 where the light reaches past texel (x, y), 0 where something nearer is in its way. */
float litAt(vec2 texel) {
    vec4 stored = texture2D(shadowMap, (texel + 0.5) / shadowMapSize);
    float depth = dot(stored, vec4(1.0, 1.0 / 255.0, 1.0 / 65025.0, 1.0 / 16581375.0));
    return step(shadowCoord.z - depthBias, depth);
}

/* Mean over a square three texels wide around the point, wherever in a texel that lies. */
float litShare() {
    if (any(lessThan(shadowCoord, vec3(0.0))) || any(greaterThan(shadowCoord, vec3(1.0)))) {
        return 1.0;
    }
    vec2 place = shadowCoord.xy * shadowMapSize - 0.5;
    vec2 corner = floor(place);
    vec2 share = place - corner;
    float sum = 0.0;
    for (int y = -1; y <= 2; ++y) {
        float rowWeight = y == -1 ? 1.0 - share.y : (y == 2 ? share.y : 1.0);
        float row = litAt(corner + vec2(-1.0, float(y))) * (1.0 - share.x);
        row += litAt(corner + vec2(0.0, float(y))) + litAt(corner + vec2(1.0, float(y)));
        row += litAt(corner + vec2(2.0, float(y))) * share.x;
        sum += row * rowWeight;
    }
    return sum / 9.0;
}

void main() {
    vec4 surface = diffuseMat;
    if (hasDiffuseTex) {
        vec4 texel = texture2D(diffuseTex, texCoord);
        if (texel.a < 0.5) {
            discard;
        }
        surface.rgb = texel.rgb;
    }
    vec3 n = normalize(normal);
    vec3 toEye = normalize(eyePos - position);
    float facing = max(dot(n, lightDir), 0.0);
    float sun = facing > 0.0 ? facing * litShare() : 0.0;
    float sky = skyShare * ambientFactor * (0.5 + 0.25 * n.z);
    float bounced = 0.0625 * (dot(n, lightDir) + 1.0);
    vec3 light = sky + lightIntensity * (sunShare * (bounced + sun));
    vec3 color = pow(surface.rgb, vec3(2.2)) * light;

    vec3 between = normalize(lightDir + toEye);
    float highlight = facing > 0.0 ? pow(max(dot(n, between), 0.0), max(specularMat.y, 1.0)) : 0.0;
    float reached = sun / max(facing, 0.001);
    color += lightIntensity * (highlightShare * specularMat.x * highlight * reached);
    float grazing = pow(1.0 - clamp(dot(n, toEye), 0.0, 1.0), 5.0);
    float mirror = clamp(specularMat.z, 0.0, 1.0) * grazing;
    color = mix(color, skyColor * ambientFactor, mirror);

    color = pow(vec3(1.0) - exp(-exposure * color), vec3(1.0 / 2.2));
    gl_FragColor = vec4(color, clamp(surface.a + mirror, 0.0, 1.0));
}
