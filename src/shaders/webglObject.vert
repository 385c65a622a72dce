/* SPDX-FileCopyrightText: The ogl authors
   SPDX-License-Identifier: MIT

   Surfaces in the viewer page. An exported document holds this text without its line ends, in double
   quotes: so no line comments, no preprocessor lines, no double quotes, and no line may rely on its
   end to part two words. */
attribute vec3 vertPos;
attribute vec3 vertNormal;
attribute vec2 vertUV;
uniform mat4 viewProjMat;
uniform mat4 lightViewProjMat;
varying vec3 position;
varying vec3 normal;
varying vec2 texCoord;
varying vec3 shadowCoord;

const float shadowMapSize = 2048.0;

void main() {
    position = vertPos;
    normal = vertNormal;
    texCoord = vertUV;
    /* The point moves off its surface by one and a half texels of the shadow map, so that the
       surface does not shade itself. */
    vec3 lightRow = vec3(lightViewProjMat[0][0], lightViewProjMat[1][0], lightViewProjMat[2][0]);
    float texel = 2.0 / (shadowMapSize * max(length(lightRow), 1.0e-6));
    vec4 inLight = lightViewProjMat * vec4(vertPos + vertNormal * (1.5 * texel), 1.0);
    shadowCoord = inLight.xyz * 0.5 + 0.5;
    gl_Position = viewProjMat * vec4(vertPos, 1.0);
}
