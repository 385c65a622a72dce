// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// A page made of fakes that record what an exported document does, in order.
import { createRequire } from "node:module";
import vm from "node:vm";

const require = createRequire(new URL("../../viewer/package.json", import.meta.url));
const { mat4, vec3 } = require("gl-matrix");

/** An object whose every property is a function that records its call under its name. */
function recorder(name, calls) {
    const made = new Map();
    return new Proxy({}, {
        get(_, property) {
            if (/^[A-Z_0-9]+$/.test(property)) return `${name}.${property}`;
            if (!made.has(property))
                made.set(property, (...parameters) => {
                    calls.push([`${name}.${property}`, ...parameters]);
                    return { [property]: calls.length };
                });
            return made.get(property);
        },
    });
}

/** Runs a document as a classic script. Gives back what it did and the page's globals. */
export function evaluateDocument(text) {
    const calls = [];
    const note = (name) => (...parameters) => void calls.push([name, ...parameters]);
    const canvas = {};
    const page = {
        canvas,
        gl: recorder("gl", calls),
        mat4,
        vec3,
        Scene: {
            objects: [],
            addObject(object) {
                this.objects.push(object);
            },
        },
        RenderObject: class {
            constructor() {
                this.renderTexture = { diffuseTex: {}, setImage: note("setImage") };
            }
        },
        document: { getElementById: (id) => (id === "imageScript_canvas" ? canvas : null) },
        console: { log: () => {} },
        objPrg: null,
        uiPrg: null,
        depthPrg: null,
        dOrg: vec3.create(),
        dExt: vec3.create(),
        initProgram(vertex, fragment) {
            calls.push(["initProgram", vertex, fragment]);
            return { vertex, fragment };
        },
    };
    for (const name of ["initUI", "updateCamera", "drawFrame", "handleMouseDown", "handleMouseUp",
                        "handleMouseMove", "handleMouseWheel"])
        page[name] = note(name);
    vm.runInNewContext(text, page);
    return { calls, page };
}
