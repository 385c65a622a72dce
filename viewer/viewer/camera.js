// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// The camera: it stands at eyeVec and turns around sceneCenter, z up. Documents set both, and the
// view that they were exported from: viewFov, viewAspect, homeExt.
"use strict";

// gl-matrix with one repair: a view along its own up direction gets another one, so that a sun in
// the zenith still casts shadows.
const vec3 = glMatrix.vec3;
const mat4 = Object.assign({}, glMatrix.mat4, {
    lookAt(out, eye, center, up) {
        const sight = vec3.normalize(vec3.create(), vec3.subtract(vec3.create(), center, eye));
        const side = vec3.cross(vec3.create(), sight, up);
        const usable = vec3.length(side) > 1e-5 * vec3.length(up);
        return glMatrix.mat4.lookAt(out, eye, center, usable ? up : [0, 1, 0]);
    },
});

// What documents set or copy into.
var sceneCenter = vec3.create();
var eyeVec = vec3.create();
var homeSceneCenter = vec3.create();
var homeEyeVec = vec3.create();
var dOrg = vec3.create();
var dExt = vec3.create();
var homeOrg = [0, 0, 0];
var homeExt = [0, 0, 0];
var viewFov = 0.8;
var viewAspect = 1;
var viewWidth = 1;
var viewHeight = 1;
var viewZoom = 0;

const kSteepest = Math.PI / 2;
const kNearestPlane = 0.02; // metres

const Camera = {
    viewProjection: mat4.create(),

    /** Direction of sight, to the right and upwards, from how the eye stands to the centre. */
    get axes() {
        const back = vec3.subtract(vec3.create(), eyeVec, sceneCenter);
        const level = Math.hypot(back[0], back[1]);
        // Straight down or up: the picture's upper side is +y, as on a plan.
        const yaw = level > 1e-6 * vec3.length(back) ? Math.atan2(back[1], back[0]) : -Math.PI / 2;
        const pitch = Math.atan2(back[2], level);
        const right = vec3.fromValues(-Math.sin(yaw), Math.cos(yaw), 0);
        const forward = vec3.fromValues(
            -Math.cos(pitch) * Math.cos(yaw), -Math.cos(pitch) * Math.sin(yaw), -Math.sin(pitch));
        return { yaw, pitch, forward, right, up: vec3.cross(vec3.create(), right, forward) };
    },
    get distance() {
        return vec3.distance(eyeVec, sceneCenter);
    },

    /** How many times a zoom window magnifies the view that was exported. */
    get zoom() {
        const zoom = (0.2 * Math.tan(viewFov)) / (1.45 * homeExt[1]);
        return Number.isFinite(zoom) && zoom > 0 ? zoom : 1;
    },

    /** Tangent of half the vertical field of view. The exported view is always wholly in sight. */
    get halfHeight() {
        const fov = Math.min(Math.max(viewFov || 0.8, 0.001), 3);
        const home = Math.tan(fov / 2) / this.zoom;
        return home * Math.max(1, viewAspect / canvasAspect());
    },

    /** Metres that a pixel of the page spans at the centre's distance. */
    get metresPerPixel() {
        return (2 * this.halfHeight * this.distance) / Math.max(canvas.clientHeight, 1);
    },

    orbit(yawBy, pitchBy) {
        const { yaw, pitch } = this.axes;
        const distance = this.distance;
        const newPitch = Math.min(Math.max(pitch + pitchBy, -kSteepest), kSteepest);
        // Never exactly overhead, where there is no yaw to remember.
        const level = Math.max(Math.cos(newPitch), 2e-6) * distance;
        vec3.set(eyeVec, sceneCenter[0] + level * Math.cos(yaw + yawBy),
                 sceneCenter[1] + level * Math.sin(yaw + yawBy),
                 sceneCenter[2] + distance * Math.sin(newPitch));
    },

    /** Moves eye and centre, so that what was at the centre moves by so many pixels. */
    pan(rightPixels, downPixels) {
        const { right, up } = this.axes;
        const scale = this.metresPerPixel;
        for (const point of [eyeVec, sceneCenter]) {
            vec3.scaleAndAdd(point, point, right, -rightPixels * scale);
            vec3.scaleAndAdd(point, point, up, downPixels * scale);
        }
    },

    /** Comes `factor` times as near to what lies at (x, y), both from -1 to 1, y upwards. */
    approach(factor, x = 0, y = 0) {
        const { forward, right, up } = this.axes;
        const half = this.halfHeight;
        const ray = vec3.clone(forward);
        vec3.scaleAndAdd(ray, ray, right, x * half * canvasAspect());
        vec3.scaleAndAdd(ray, ray, up, y * half);
        const distance = this.distance;
        vec3.scaleAndAdd(eyeVec, eyeVec, ray, distance * (1 - 1 / factor));
        // The centre stays where it is in depth, until the eye would reach it: then it goes ahead.
        const nearest = Math.max(Scene.box.size, 1) * 0.02;
        vec3.scaleAndAdd(sceneCenter, eyeVec, forward, Math.max(distance / factor, nearest));
    },

    goHome() {
        vec3.copy(eyeVec, homeEyeVec);
        vec3.copy(sceneCenter, homeSceneCenter);
    },

    /** A camera without a direction looks at the middle of the scene. */
    repair() {
        if (this.distance > 1e-6) return;
        vec3.copy(sceneCenter, Scene.box.center);
        if (this.distance > 1e-6) return;
        vec3.add(eyeVec, sceneCenter, [0, -Math.max(Scene.box.size, 1), 0]);
    },

    /** Distances of the nearest and the farthest plane that hold what is in sight. */
    get planes() {
        const box = Scene.box;
        const toMiddle = vec3.distance(eyeVec, box.center);
        const far = Math.max(toMiddle + box.size * 3, 1);
        const near = Math.max(toMiddle - box.size * 3, kNearestPlane, far / 50000);
        return { near, far };
    },
};

function canvasAspect() {
    return canvas.clientWidth > 0 && canvas.clientHeight > 0
        ? canvas.clientWidth / canvas.clientHeight : viewAspect;
}

/** Turns the camera by angles in radians and computes its matrix. Called by documents, too. */
function updateCamera(yawBy, pitchBy) {
    Camera.repair();
    if (yawBy !== 0 || pitchBy !== 0) Camera.orbit(yawBy, pitchBy);
    const { forward, up } = Camera.axes;
    const target = vec3.add(vec3.create(), eyeVec, forward);
    const view = mat4.lookAt(mat4.create(), eyeVec, target, up);
    const { near, far } = Camera.planes;
    const fov = 2 * Math.atan(Camera.halfHeight);
    const projection = mat4.perspective(mat4.create(), fov, canvasAspect(), near, far);
    mat4.multiply(Camera.viewProjection, projection, view);
}
