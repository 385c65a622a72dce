// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Documents, evaluated: every array and call is what the model and the view say.
import assert from "node:assert/strict";
import fs from "node:fs";
import path from "node:path";
import { test } from "node:test";

import { evaluateDocument } from "./fakes.mjs";
import { makeFolder, run } from "./setup.mjs";

const folder = makeFolder();

/** Two boards of one material and one of another, z up in metres. */
const model = `mtllib boards.mtl
v 0 0 0
v 2 0 0
v 2 1 0
v 0 1 0
v 0 0 3
v 2 0 3
v 2 1 3
v 0 1 3
v 5 0 1
v 6 0 1
v 6 1 1
v 5 1 1
o low
usemtl red
f 1 2 3 4
o high
usemtl red
f 5 6 7 8
o side
usemtl blue
f 9 10 11 12
`;

function exported(name, ...more) {
    const place = path.join(folder, "Sessions", name, "scene.js");
    fs.writeFileSync(path.join(folder, "boards.obj"), model);
    fs.writeFileSync(path.join(folder, "boards.mtl"),
                     "newmtl red\nKd 0.8 0.2 0.1\nnewmtl blue\nKd 0.1 0.2 0.6\n");
    run("export", path.join(folder, "boards.obj"), place, "--up", "z", "--unit", "m", ...more);
    return evaluateDocument(fs.readFileSync(place, "latin1"));
}

const close = (actual, expected, message) =>
    assert.deepEqual([...actual].map((x) => Number(x.toFixed(4)) + 0),
                     [...expected].map((x) => Number(x.toFixed(4)) + 0), message);

/** The corners of a board's two triangles, sorted: which corner is first is the importer's choice. */
const corners = (object) => {
    const points = [];
    for (let k = 0; k < object.vertices.length; k += 3) points.push(object.vertices.slice(k, k + 3).join(" "));
    return [...new Set(points)].sort();
};

test("objects hold the model's faces, by material", () => {
    const { page } = exported("objects");
    const surfaces = page.Scene.objects.slice(0, -1);
    assert.deepEqual(surfaces.map(corners), [
        ["0 0 0", "0 1 0", "2 0 0", "2 1 0"],
        ["0 0 3", "0 1 3", "2 0 3", "2 1 3"],
        ["5 0 1", "5 1 1", "6 0 1", "6 1 1"],
    ]);
    for (const object of surfaces) {
        assert.equal(object.numVertices, 6);
        assert.equal(object.texuvs.length, 12);
        for (let k = 0; k < 18; k += 3) close(object.normals.slice(k, k + 3), [0, 0, 1]);
        assert.equal(object.hasDiffuseTex, 0);
        assert.equal(object.diffuseTexFN, "");
        // Clockwise seen from the side that shows.
        const [ax, ay, , bx, by, , cx, cy] = object.vertices;
        assert.ok((bx - ax) * (cy - ay) - (by - ay) * (cx - ax) < 0);
    }
    const bytes = surfaces.map(({ diffuseMat }) => Array.from(diffuseMat, (x) => Math.round(x * 255)));
    assert.deepEqual(bytes, [[204, 51, 26, 255], [204, 51, 26, 255], [26, 51, 153, 255]]);
    const ground = page.Scene.objects.at(-1);
    assert.deepEqual([ground.numVertices, ground.diffuseTexFN], [6, null]);
    close(ground.vertices.slice(0, 3), [-0.5, -0.5, -0.1]);
});

test("the view and the light are the scene's", () => {
    const { page, calls } = exported("view", "--camera", "3,-8,4,3,0,1", "--fov", "40", "--size",
                                     "800x500", "--background", "336699");
    close(page.eyeVec, [3, -8, 4]);
    close(page.homeEyeVec, [3, -8, 4]);
    // The middle of the box is (3, 0.5, 1.5), as far away as the point on the line of sight.
    const distance = Math.hypot(0, 8.5, 2.5);
    const sight = [0, 8 / Math.hypot(8, 3), -3 / Math.hypot(8, 3)];
    close(page.sceneCenter, [3, -8 + sight[1] * distance, 4 + sight[2] * distance]);
    close([page.viewFov, page.viewAspect, page.viewWidth, page.viewHeight],
          [(40 * Math.PI) / 180, 1.6, 800, 500]);
    const half = (0.2 * Math.tan((40 * Math.PI) / 180)) / 1.45;
    close(page.homeExt, [1.6 * half, half, 0]);
    close(page.dExt, page.homeExt);
    const called = (name) => calls.find(([one]) => one === name).slice(1);
    close(called("gl.clearColor"), [0.2, 0.4, 0.6, 1]);
    const uniform = (n) => calls.filter(([one]) => one === "gl.uniform3f")[n].slice(2);
    const [azimuth, elevation] = [50, 40].map((degrees) => (degrees * Math.PI) / 180);
    close(uniform(0), [-Math.cos(elevation) * Math.cos(azimuth),
                       -Math.cos(elevation) * Math.sin(azimuth), Math.sin(elevation)]);
    close(uniform(1), [4, 4, 4]);
    // The light's camera: the whole box between its planes.
    const matrix = calls.find(([one]) => one === "gl.uniformMatrix4fv")[3];
    for (const [x, y, z] of [[0, 0, 0], [6, 1, 3], [0, 1, 3], [6, 0, 0]])
        for (let row = 0; row < 3; ++row) {
            const at = matrix[row] * x + matrix[4 + row] * y + matrix[8 + row] * z + matrix[12 + row];
            assert.ok(Math.abs(at) < 1, `row ${row} of ${[x, y, z]}: ${at}`);
        }
});

test("textures are asked for where they lie", () => {
    const place = path.join(folder, "Sessions", "my flat", "scene.js");
    run("export", "flat", place);
    const { page, calls } = evaluateDocument(fs.readFileSync(place, "latin1"));
    const asked = new Set(calls.filter(([name]) => name === "setImage").map(([, url]) => url));
    assert.ok(asked.size >= 8, `${asked.size} textures`);
    for (const url of asked) {
        assert.match(url, /^Sessions\/my flat\/dec\d+\.png$/);
        assert.ok(fs.existsSync(path.join(folder, url)), url);
    }
    const pictured = page.Scene.objects.filter((object) => object.hasDiffuseTex === 1);
    assert.deepEqual(new Set(pictured.map((object) => object.diffuseTexFN)), asked);
});

test("an export replaces an older one and keeps its neighbours", () => {
    const list = () => JSON.parse(fs.readFileSync(path.join(folder, "Sessions", "scenes.json"))).scenes;
    exported("order");
    assert.deepEqual(list().slice(-1), ["order"]);
    const stale = path.join(folder, "Sessions", "objects", "tex0.png");
    const other = path.join(folder, "Sessions", "objects", "notes.txt");
    fs.writeFileSync(stale, "old");
    fs.writeFileSync(other, "mine");
    const { page } = exported("objects");
    assert.deepEqual(page.Scene.objects.map((object) => object.hasDiffuseTex), [0, 0, 0, 0]);
    assert.ok(!fs.existsSync(stale) && fs.existsSync(other));
    assert.deepEqual([...list()].sort(), ["my flat", "objects", "order", "view"]);
    assert.throws(() => run("export", "flat", path.join(folder, "scene.js")), /Sessions\/NAME\/scene.js/);
});
