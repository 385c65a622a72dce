// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// The texts of an exported document that are the same for every scene, in their order; what stands
// between them is written by WebGLExporter. Pages rely on them byte for byte.
#pragma once

#include <array>
#include <string_view>

namespace ogl::webgl {

/// A sign of 9 x 9 texels, by rows: '.' for its ground, '#' for its ink.
using Icon = std::array<std::string_view, 9>;

// Starts initObjects(): takes away what an earlier document made.
inline constexpr std::string_view kInitObjects =
    "function initObjects()\n"
    "{\n"
    "for (var i = 0; i < Scene.objects.length; i++)\n"
    "{\n"
    "\tvar object=Scene.objects[i];\n"
    "\tgl.deleteBuffer(object.vertexBuffer);\n"
    "\tgl.deleteBuffer(object.normalBuffer);\n"
    "\tgl.deleteBuffer(object.texcoordBuffer);\n"
    "   if (object.hasDiffuseTex==1)\n"
    "\t\tgl.deleteTexture(object.renderTexture.diffuseTex);\n"
    "}\n"
    "Scene.objects.length=0;\n"
    "var object=null;\n";

// A fixed object, the last one.
inline constexpr std::string_view kGroundObject =
    "object=new RenderObject();\n"
    "var height=-0.1;\n"
    "object.vertices=[\t -0.5,-0.5, height,  -0.5,1.5, height,  2.5,-0.5, height,     "
    "2.5,-0.5, height,  -0.5,1.5, height,  2.5,1.5, height];\n"
    "object.normals=[0.0,0.0,1.0,   0.0,0.0,1.0,    0.0,0.0,1.0,    0.0,0.0,1.0,    "
    "0.0,0.0,1.0,    0.0,0.0,1.0];\n"
    "object.texuvs=[0.0,0.0,  1.0,0.0,  0.0,1.0,  1.0,0.0,    0.0,1.0,   1.0,1.0];\n"
    "object.numVertices=6;\n"
    "object.diffuseMat=[1.0,0.0,0.0,1.0];\n"
    "object.specularMat=[1.0,1.0,1.0,1.0];\n"
    "object.hasDiffuseTex=0;\n"
    "object.diffuseTexFN=null;\n"
    "Scene.addObject(object);\n"
    "gl.bindBuffer(gl.ARRAY_BUFFER, null);\n";

inline constexpr std::string_view kInitTextures =
    "function initTextures()\n"
    "{\n"
    "\tfor (var i = 0; i < Scene.objects.length; i++)\n"
    "\t{\n"
    "\t\tvar object = Scene.objects[i];\n"
    "\t\tif (object.hasDiffuseTex==1)\n"
    "\t\t\tobject.renderTexture.setImage(object.diffuseTexFN);\n"
    "\t}\n"
    "}\n\n";

// Up to the background colour.
inline constexpr std::string_view kInitRenderer =
    "function initRenderer()\n"
    "{\n"
    "var canvas = document.getElementById(\"imageScript_canvas\");\n"
    "canvas.onmousedown = handleMouseDown;\n"
    "document.onmouseup = handleMouseUp;\n"
    "document.onmousemove = handleMouseMove;\n"
    "document.onmousewheel = handleMouseWheel;\n"
    "gl.frontFace(gl.CW);\n"
    "gl.enable(gl.CULL_FACE);\n"
    "gl.clearColor(";

// Up to the shaders of surfaces.
inline constexpr std::string_view kObjectProgram = ",1.0);\n"
                                                   "if (objPrg!=null)\n"
                                                   "\tgl.deleteProgram(objPrg);\n"
                                                   "objPrg=initProgram(\"";

// Up to the eye of the light's camera.
inline constexpr std::string_view kObjectLocations =
    "\"); \n"
    "gl.useProgram(objPrg);\n"
    "objPrg.vertPos\t\t    = gl.getAttribLocation(objPrg, \"vertPos\");\n"
    "objPrg.vertNormal\t\t= gl.getAttribLocation(objPrg, \"vertNormal\");\n"
    "objPrg.vertUV\t\t\t= gl.getAttribLocation(objPrg, \"vertUV\");\n"
    "objPrg.eyePos\t\t\t= gl.getUniformLocation(objPrg, \"eyePos\");\n"
    "objPrg.viewProjMat\t\t\t= gl.getUniformLocation(objPrg, \"viewProjMat\");\n"
    "objPrg.lightViewProjMat\t= gl.getUniformLocation(objPrg, \"lightViewProjMat\");\n"
    "objPrg.shadowMap\t\t= gl.getUniformLocation(objPrg, \"shadowMap\");\n"
    "objPrg.diffuseTex      = gl.getUniformLocation(objPrg, \"diffuseTex\");\n"
    "objPrg.diffuseMat      = gl.getUniformLocation(objPrg, \"diffuseMat\");\n"
    "objPrg.specularMat     = gl.getUniformLocation(objPrg, \"specularMat\");\n"
    "objPrg.hasDiffuseTex\t= gl.getUniformLocation(objPrg, \"hasDiffuseTex\");\n"
    "objPrg.lightDir\t\t= gl.getUniformLocation(objPrg, \"lightDir\");\n"
    "objPrg.lightIntensity\t= gl.getUniformLocation(objPrg, \"lightIntensity\");\n"
    "objPrg.ambientFactor\t= gl.getUniformLocation(objPrg, \"ambientFactor\");\n"
    "var lightViewMatrix=mat4.create();\n"
    "mat4.lookAt(lightViewMatrix, [";

inline constexpr std::string_view kLightProjection =
    "], [0.0,0.0,1.0]);var lightProjMatrix=mat4.create();\n"
    "mat4.ortho(lightProjMatrix, ";

// Up to the direction of the light.
inline constexpr std::string_view kLightUniforms =
    ");\n"
    "var lightViewProjMatrix=mat4.create();\n"
    "mat4.multiply(lightViewProjMatrix, lightProjMatrix, lightViewMatrix );\n"
    "gl.uniformMatrix4fv(objPrg.lightViewProjMat, false, lightViewProjMatrix);\n"
    "gl.uniform3f(objPrg.lightDir, ";

// Up to the width of the view.
inline constexpr std::string_view kUiProgram =
    ");\n"
    "gl.useProgram(null);\n"
    "if (uiPrg!=null)\n"
    "\tgl.deleteProgram(uiPrg);\n"
    "uiPrg=initProgram(\"attribute vec3\tvertPos; attribute vec2\tvertUV; uniform "
    "mat4\tviewProjMat;  varying vec2\ttexcoord; void main() { texcoord\t\t= vertUV; "
    "gl_Position\t\t= viewProjMat*vec4(vertPos, 1.0);}\", \"precision mediump float; "
    "varying vec2\t\ttexcoord; uniform vec4 color; uniform sampler2D\tdiffuseTex; void "
    "main(){ vec4 diffTex=texture2D(diffuseTex, texcoord); gl_FragColor = "
    "vec4(diffTex*color);/*gl_FragColor = vec4(0.05,0.05,0.1,0.4);*/ }\");\n"
    "gl.useProgram(uiPrg);\n"
    "uiPrg.vertPos\t\t    = gl.getAttribLocation(uiPrg, \"vertPos\");\n"
    "uiPrg.vertUV\t\t\t= gl.getAttribLocation(uiPrg, \"vertUV\");\n"
    "uiPrg.viewProjMat\t\t\t= gl.getUniformLocation(uiPrg, \"viewProjMat\");\n"
    "uiPrg.color\t\t\t= gl.getUniformLocation(uiPrg, \"color\");\n"
    "var uiViewMatrix=mat4.create();\n"
    "mat4.identity(uiViewMatrix);\n"
    "var uiProjMatrix=mat4.create();\n"
    "mat4.ortho(uiProjMatrix, 0,";

// Up to the texels of the arrow.
inline constexpr std::string_view kArrowTexels =
    ", 1,-1);\n"
    "var uiViewProjMatrix=mat4.create();\n"
    "mat4.multiply(uiViewProjMatrix, uiViewMatrix, uiProjMatrix);\n"
    "gl.uniformMatrix4fv(uiPrg.viewProjMat, false, uiViewProjMatrix);\n"
    "gl.useProgram(null);\n"
    "arrowTex = gl.createTexture();\n"
    "var greyTex = new Uint8Array(81);\n"
    "var aL=200;\n"
    "var aD=50;\n"
    "var II=50;\n"
    "var oo=80;\n"
    "greyTex=[";

// Between the texels of the arrow and of the home sign.
inline constexpr std::string_view kHomeTexels =
    "];\n"
    "gl.bindTexture(gl.TEXTURE_2D, arrowTex);\n"
    "gl.pixelStorei(gl.UNPACK_FLIP_Y_WEBGL, 1);\n"
    "gl.texParameteri(gl.TEXTURE_2D, gl.TEXTURE_MAG_FILTER, gl.LINEAR);\n"
    "gl.texParameteri(gl.TEXTURE_2D, gl.TEXTURE_MIN_FILTER, gl.LINEAR);\n"
    "gl.texParameteri(gl.TEXTURE_2D, gl.TEXTURE_WRAP_S, gl.CLAMP_TO_EDGE);\n"
    "gl.texParameteri(gl.TEXTURE_2D, gl.TEXTURE_WRAP_T, gl.CLAMP_TO_EDGE);\n"
    "gl.texImage2D(gl.TEXTURE_2D, 0, gl.RGBA, 9, 9, 0, gl.RGBA, gl.UNSIGNED_BYTE,  new "
    "Uint8Array(greyTex) );\n"
    "gl.bindTexture(gl.TEXTURE_2D, null);\n"
    "homeTex = gl.createTexture();\n"
    "var greyTex2 = new Uint8Array(81);\n"
    "var aL=200;\n"
    "var aD=50;\n"
    "var II=50;\n"
    "var oo=80;\n"
    "greyTex2=[";

// From the end of the texels up to the shaders of the shadow map.
inline constexpr std::string_view kDepthProgram =
    "];\n"
    "gl.bindTexture(gl.TEXTURE_2D, homeTex);\n"
    "gl.pixelStorei(gl.UNPACK_FLIP_Y_WEBGL, 1);\n"
    "gl.texParameteri(gl.TEXTURE_2D, gl.TEXTURE_MAG_FILTER, gl.LINEAR);\n"
    "gl.texParameteri(gl.TEXTURE_2D, gl.TEXTURE_MIN_FILTER, gl.LINEAR);\n"
    "gl.texParameteri(gl.TEXTURE_2D, gl.TEXTURE_WRAP_S, gl.CLAMP_TO_EDGE);\n"
    "gl.texParameteri(gl.TEXTURE_2D, gl.TEXTURE_WRAP_T, gl.CLAMP_TO_EDGE);\n"
    "gl.texImage2D(gl.TEXTURE_2D, 0, gl.RGBA, 9, 9, 0, gl.RGBA, gl.UNSIGNED_BYTE,  new "
    "Uint8Array(greyTex2) );\n"
    "gl.bindTexture(gl.TEXTURE_2D, null);\n"
    "if (depthPrg!=null)\n"
    "\tgl.deleteProgram(depthPrg);\n"
    "depthPrg=initProgram(\"";

// Up to the field of view.
inline constexpr std::string_view kDepthLocations =
    "\"); \n"
    "gl.useProgram(depthPrg);\n"
    "depthPrg.vertPos\t\t    = gl.getAttribLocation(depthPrg, \"vertPos\");\n"
    "depthPrg.objColor\t\t    = gl.getUniformLocation(depthPrg, \"objColor\");\n"
    "depthPrg.viewProjMat\t\t\t= gl.getUniformLocation(depthPrg, \"viewProjMat\");\n"
    "gl.uniformMatrix4fv(depthPrg.viewProjMat, false, lightViewProjMatrix);\n"
    "gl.useProgram(null);\n"
    "viewFov=";

// From the extent of the view up to the size of the scene.
inline constexpr std::string_view kStart = ",0.0]; \n"
                                           "vec3.copy(dOrg, homeOrg );\n"
                                           "vec3.copy(dExt, homeExt );\n"
                                           "console.log(\"dOrg:\", dOrg);\n"
                                           "console.log(\"dExt:\", dExt);\n"
                                           "initUI();\n"
                                           "initObjects();\n"
                                           "updateCamera(0.0,0.0);\n"
                                           "initTextures();\n"
                                           "console.log(\"bboxDiag:\", ";

inline constexpr Icon kArrowIcon = {
    ".........", "....#....", "...###...", "..#.#.#..", "....#....",
    "....#....", "....#....", "....#....", ".........",
};

inline constexpr Icon kHomeIcon = {
    ".........", "....#....", "...###...", "..#####..", ".#######.",
    "..#####..", "...###...", "....#....", ".........",
};

} // namespace ogl::webgl
