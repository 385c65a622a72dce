// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Frames: the shadow map once per document, then surfaces, the shadow on the ground, and what can
// be seen through.
"use strict";

// What documents read before they set it.
var objPrg = null;
var uiPrg = null;
var depthPrg = null;
var arrowTex = null;
var homeTex = null;

const kShadowMapSize = 2048;
const kTextureUnit = 0;
const kShadowUnit = 1;

/** Compiles and links a program. Throws an Error with the compiler's words. */
function initProgram(vertexSource, fragmentSource) {
    const program = gl.createProgram();
    for (const [type, source] of [[gl.VERTEX_SHADER, vertexSource], [gl.FRAGMENT_SHADER, fragmentSource]]) {
        const shader = gl.createShader(type);
        gl.shaderSource(shader, source);
        gl.compileShader(shader);
        if (!gl.getShaderParameter(shader, gl.COMPILE_STATUS) && !gl.isContextLost())
            throw new Error("a shader does not compile: " + gl.getShaderInfoLog(shader));
        gl.attachShader(program, shader);
        gl.deleteShader(shader);
    }
    gl.linkProgram(program);
    if (!gl.getProgramParameter(program, gl.LINK_STATUS) && !gl.isContextLost())
        throw new Error("a shader program does not link: " + gl.getProgramInfoLog(program));
    return program;
}

/** The depth of the scene as its sun sees it, in the colours of a texture. */
const ShadowMap = {
    texture: null,
    target: null,
    depth: null,
    isCurrent: false,

    create() {
        this.texture = gl.createTexture();
        gl.bindTexture(gl.TEXTURE_2D, this.texture);
        gl.texImage2D(gl.TEXTURE_2D, 0, gl.RGBA, kShadowMapSize, kShadowMapSize, 0, gl.RGBA,
                      gl.UNSIGNED_BYTE, null);
        for (const name of [gl.TEXTURE_MIN_FILTER, gl.TEXTURE_MAG_FILTER])
            gl.texParameteri(gl.TEXTURE_2D, name, gl.NEAREST);
        for (const name of [gl.TEXTURE_WRAP_S, gl.TEXTURE_WRAP_T])
            gl.texParameteri(gl.TEXTURE_2D, name, gl.CLAMP_TO_EDGE);
        this.depth = gl.createRenderbuffer();
        gl.bindRenderbuffer(gl.RENDERBUFFER, this.depth);
        gl.renderbufferStorage(gl.RENDERBUFFER, gl.DEPTH_COMPONENT16, kShadowMapSize, kShadowMapSize);
        this.target = gl.createFramebuffer();
        gl.bindFramebuffer(gl.FRAMEBUFFER, this.target);
        gl.framebufferTexture2D(gl.FRAMEBUFFER, gl.COLOR_ATTACHMENT0, gl.TEXTURE_2D, this.texture, 0);
        gl.framebufferRenderbuffer(gl.FRAMEBUFFER, gl.DEPTH_ATTACHMENT, gl.RENDERBUFFER, this.depth);
        gl.bindTexture(gl.TEXTURE_2D, null);
    },

    render() {
        if (!this.target) this.create();
        const background = gl.getParameter(gl.COLOR_CLEAR_VALUE);
        gl.bindFramebuffer(gl.FRAMEBUFFER, this.target);
        gl.viewport(0, 0, kShadowMapSize, kShadowMapSize);
        gl.clearColor(1, 1, 1, 1);
        gl.clear(gl.COLOR_BUFFER_BIT | gl.DEPTH_BUFFER_BIT);
        gl.disable(gl.BLEND);
        gl.enable(gl.DEPTH_TEST);
        gl.disable(gl.CULL_FACE); // a single sheet casts its shadow whichever side it shows
        gl.useProgram(depthPrg);
        gl.enableVertexAttribArray(depthPrg.vertPos);
        for (const object of Scene.surfaces) {
            gl.uniform4fv(depthPrg.objColor, object.diffuseMat);
            gl.bindBuffer(gl.ARRAY_BUFFER, object.vertexBuffer);
            gl.vertexAttribPointer(depthPrg.vertPos, 3, gl.FLOAT, false, 0, 0);
            gl.drawArrays(gl.TRIANGLES, 0, object.numVertices);
        }
        gl.disableVertexAttribArray(depthPrg.vertPos);
        gl.enable(gl.CULL_FACE);
        gl.bindFramebuffer(gl.FRAMEBUFFER, null);
        gl.clearColor(...background);
        this.isCurrent = true;
    },
};

/** The shadow that the scene casts on the plane under it. */
const Ground = {
    isShown: true,
    program: null,
    corners: null,

    create() {
        this.program = initProgram(
            `attribute vec2 corner; uniform vec3 middle; uniform float reach;
             uniform mat4 viewProjMat; uniform mat4 lightViewProjMat;
             varying vec3 shadowCoord; varying vec2 place;
             void main() {
                 vec4 at = vec4(middle + vec3(corner * reach, 0.0), 1.0);
                 shadowCoord = (lightViewProjMat * at).xyz * 0.5 + 0.5;
                 place = corner;
                 gl_Position = viewProjMat * at;
             }`,
            `precision highp float; uniform sampler2D shadowMap;
             varying vec3 shadowCoord; varying vec2 place;
             float shade(vec2 offset) {
                 vec4 digits = texture2D(shadowMap, shadowCoord.xy + offset / 1024.0);
                 float depth = dot(digits, vec4(1.0, 1.0 / 255.0, 1.0 / 65025.0, 0.0));
                 return step(depth, shadowCoord.z - 0.001);
             }
             void main() {
                 vec3 inside = step(vec3(0.0), shadowCoord) * step(shadowCoord, vec3(1.0));
                 float sum = 0.0;
                 for (int x = -1; x <= 1; ++x)
                     for (int y = -1; y <= 1; ++y)
                         sum += shade(vec2(float(x), float(y)));
                 float fade = 1.0 - smoothstep(0.5, 1.0, length(place));
                 gl_FragColor = vec4(0.04, 0.06, 0.1, 0.3 * fade * inside.x * inside.y * inside.z * sum / 9.0);
             }`);
        for (const name of ["middle", "reach", "viewProjMat", "lightViewProjMat", "shadowMap"])
            this.program[name] = gl.getUniformLocation(this.program, name);
        this.program.corner = gl.getAttribLocation(this.program, "corner");
        this.corners = newBuffer([-1, -1, -1, 1, 1, -1, 1, -1, -1, 1, 1, 1]);
    },

    draw() {
        const box = Scene.box;
        const light = gl.getUniform(objPrg, objPrg.lightDir);
        if (!this.isShown || box.isEmpty || light[2] <= 0.05) return;
        if (!this.program) this.create();
        gl.useProgram(this.program);
        const [x, y] = box.center;
        gl.uniform3f(this.program.middle, x, y, box.min[2] - box.size * 0.0005);
        gl.uniform1f(this.program.reach, box.size * 2);
        gl.uniformMatrix4fv(this.program.viewProjMat, false, Camera.viewProjection);
        gl.uniformMatrix4fv(this.program.lightViewProjMat, false,
                            gl.getUniform(objPrg, objPrg.lightViewProjMat));
        gl.uniform1i(this.program.shadowMap, kShadowUnit);
        gl.enable(gl.BLEND);
        gl.depthMask(false);
        gl.enableVertexAttribArray(this.program.corner);
        gl.bindBuffer(gl.ARRAY_BUFFER, this.corners);
        gl.vertexAttribPointer(this.program.corner, 2, gl.FLOAT, false, 0, 0);
        gl.drawArrays(gl.TRIANGLES, 0, 6);
        gl.disableVertexAttribArray(this.program.corner);
        gl.depthMask(true);
        gl.disable(gl.BLEND);
    },
};

function drawSurface(object) {
    const texture = object.hasDiffuseTex === 1 ? object.renderTexture.diffuseTex : null;
    gl.activeTexture(gl.TEXTURE0 + kTextureUnit);
    gl.bindTexture(gl.TEXTURE_2D, texture);
    gl.uniform1i(objPrg.hasDiffuseTex, texture ? 1 : 0);
    gl.uniform4fv(objPrg.diffuseMat, object.diffuseMat);
    gl.uniform4fv(objPrg.specularMat, object.specularMat);
    for (const [place, buffer, size] of [[objPrg.vertPos, object.vertexBuffer, 3],
                                         [objPrg.vertNormal, object.normalBuffer, 3],
                                         [objPrg.vertUV, object.texcoordBuffer, 2]]) {
        gl.bindBuffer(gl.ARRAY_BUFFER, buffer);
        gl.vertexAttribPointer(place, size, gl.FLOAT, false, 0, 0);
    }
    gl.drawArrays(gl.TRIANGLES, 0, object.numVertices);
}

function drawSurfaces(objects) {
    const places = [objPrg.vertPos, objPrg.vertNormal, objPrg.vertUV];
    gl.useProgram(objPrg);
    gl.uniformMatrix4fv(objPrg.viewProjMat, false, Camera.viewProjection);
    gl.uniform3fv(objPrg.eyePos, eyeVec);
    gl.uniform1i(objPrg.diffuseTex, kTextureUnit);
    gl.uniform1i(objPrg.shadowMap, kShadowUnit);
    places.forEach((place) => gl.enableVertexAttribArray(place));
    objects.forEach(drawSurface);
    places.forEach((place) => gl.disableVertexAttribArray(place));
}

/** Farthest first, by the middle of their boxes. */
function sortedByDistance(objects) {
    const distance = new Map(objects.map((o) => [o, vec3.distance(eyeVec, o.box.center)]));
    return objects.slice().sort((a, b) => distance.get(b) - distance.get(a));
}

/** Draws the scene now. Called by documents, too. */
function drawFrame() {
    if (gl.isContextLost()) return;
    if (!ShadowMap.isCurrent) ShadowMap.render();
    fitCanvas();
    updateCamera(0, 0);
    gl.viewport(0, 0, canvas.width, canvas.height);
    gl.enable(gl.DEPTH_TEST);
    gl.disable(gl.BLEND);
    gl.clear(gl.COLOR_BUFFER_BIT | gl.DEPTH_BUFFER_BIT);
    gl.activeTexture(gl.TEXTURE0 + kShadowUnit);
    gl.bindTexture(gl.TEXTURE_2D, ShadowMap.texture);
    const surfaces = Scene.surfaces;
    drawSurfaces(surfaces.filter((object) => !object.isTranslucent));
    gl.blendFunc(gl.SRC_ALPHA, gl.ONE_MINUS_SRC_ALPHA);
    Ground.draw();
    gl.enable(gl.BLEND);
    gl.depthMask(false);
    drawSurfaces(sortedByDistance(surfaces.filter((object) => object.isTranslucent)));
    gl.depthMask(true);
    gl.disable(gl.BLEND);
    gl.activeTexture(gl.TEXTURE0 + kTextureUnit);
}

/** Gives the canvas as many pixels as its place on the page has. */
function fitCanvas() {
    const density = Math.min(window.devicePixelRatio || 1, 2);
    const width = Math.max(Math.round(canvas.clientWidth * density), 1);
    const height = Math.max(Math.round(canvas.clientHeight * density), 1);
    if (canvas.width !== width || canvas.height !== height) {
        canvas.width = width;
        canvas.height = height;
    }
}

let frameAsked = false;

/** Draws before the browser next shows the page. */
function requestDraw() {
    if (frameAsked || !Page.isShown) return;
    frameAsked = true;
    requestAnimationFrame(() => {
        frameAsked = false;
        drawFrame();
    });
}
