// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// What an export leaves in its folder. The page shows what the documents say.
import assert from "node:assert/strict";
import fs from "node:fs";
import path from "node:path";
import { test } from "node:test";

import { makeFolder, run } from "./setup.mjs";

const folder = makeFolder();

/** The pictures that the objects of the exported document have. */
function exported(name, model = path.join(folder, "board.obj")) {
    const place = path.join(folder, "Sessions", name, "scene.js");
    fs.writeFileSync(path.join(folder, "board.obj"), "v 0 0 0\nv 2 0 0\nv 2 1 0\nf 1 2 3\n");
    run("export", model, place);
    const names = fs.readFileSync(place, "latin1").matchAll(/object\.diffuseTexFN=(.*);/g);
    return [...names].map(([, value]) => JSON.parse(value));
}

test("textures are asked for where they lie", () => {
    const asked = new Set(exported("my flat", "flat").filter((name) => name));
    assert.ok(asked.size >= 8, `${asked.size} textures`);
    for (const name of asked) {
        assert.match(name, /^Sessions\/my flat\/dec\d+\.png$/);
        assert.ok(fs.existsSync(path.join(folder, name)), name);
    }
});

test("an export replaces an older one and keeps its neighbours", () => {
    const list = () => JSON.parse(fs.readFileSync(path.join(folder, "Sessions", "scenes.json"))).scenes;
    exported("objects");
    exported("order");
    assert.deepEqual(list().slice(-1), ["order"]);
    const stale = path.join(folder, "Sessions", "objects", "tex0.png");
    const other = path.join(folder, "Sessions", "objects", "notes.txt");
    fs.writeFileSync(stale, "old");
    fs.writeFileSync(other, "mine");
    assert.deepEqual(exported("objects"), ["", null]); // the model and the ground
    assert.ok(!fs.existsSync(stale) && fs.existsSync(other));
    assert.deepEqual([...list()].sort(), ["my flat", "objects", "order"]);
    assert.throws(() => run("export", "flat", path.join(folder, "scene.js")), /Sessions\/NAME\/scene.js/);
});
