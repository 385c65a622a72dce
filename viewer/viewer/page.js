// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// The page around the scene: finds the document, loads it, and says so when that does not work.
// The attribute data-state of the root element tells what it is doing: loading, shown, ready (all
// textures have arrived or failed) or failed.
"use strict";

const canvas = document.getElementById("imageScript_canvas");
let gl = null;
let glVersion = 0;

const kHomeMilliseconds = 450;

const Page = {
    isShown: false,
    moving: 0,

    set state(name) {
        document.documentElement.dataset.state = name;
    },

    /** Shows a message in place of the scene. */
    fail(title, text) {
        if (document.documentElement.dataset.state === "failed") return; // the first reason counts
        this.isShown = false;
        this.state = "failed";
        document.getElementById("message-title").textContent = title;
        document.getElementById("message-text").textContent = text;
    },

    /** Shows a line for a while beside the scene. */
    note(text) {
        const note = document.getElementById("note");
        note.textContent = text;
        note.hidden = false;
        setTimeout(() => (note.hidden = true), 8000);
    },

    show(name) {
        this.isShown = true;
        this.state = "shown";
        document.title = `${name} – ogl viewer`;
        document.getElementById("scene-name").textContent = name;
        requestDraw();
        Picture.arrivals.then((arrived) => {
            const missing = arrived.filter((one) => !one).length;
            if (missing > 0) this.note(`${missing} of ${arrived.length} textures could not be loaded.`);
            requestAnimationFrame(() => requestAnimationFrame(() => (this.state = "ready")));
        });
    },

    commands: {
        home: () => Page.moveHome(),
        near: () => moveView(() => Camera.approach(kZoomPerKey)),
        far: () => moveView(() => Camera.approach(1 / kZoomPerKey)),
        ground: () => moveView(() => (Ground.isShown = !Ground.isShown)),
        full: () => (document.fullscreenElement ? document.exitFullscreen()
                                                : document.documentElement.requestFullscreen?.()),
        help: () => Page.toggleHelp(),
        close: () => Page.toggleHelp(false),
    },
    run(command) {
        this.commands[command]();
        const button = document.querySelector("[data-command=ground]");
        button.setAttribute("aria-pressed", String(Ground.isShown));
    },

    toggleHelp(isOpen = document.getElementById("help").hidden) {
        document.getElementById("help").hidden = !isOpen;
        document.querySelector("[data-command=help]").setAttribute("aria-expanded", String(isOpen));
    },

    /** Moves the camera to where it was at first, at once where motion is unwelcome. */
    moveHome() {
        this.stopMoving();
        const from = { eye: vec3.clone(eyeVec), center: vec3.clone(sceneCenter), time: performance.now() };
        const still = matchMedia("(prefers-reduced-motion: reduce)").matches;
        const step = (now) => {
            const t = still ? 1 : Math.min(Math.max((now - from.time) / kHomeMilliseconds, 0), 1);
            const share = t * t * (3 - 2 * t);
            vec3.lerp(eyeVec, from.eye, homeEyeVec, share);
            vec3.lerp(sceneCenter, from.center, homeSceneCenter, share);
            if (t === 1) Camera.goHome();
            this.moving = t < 1 ? requestAnimationFrame(step) : 0;
            drawFrame();
        };
        this.moving = requestAnimationFrame(step);
    },
    stopMoving() {
        cancelAnimationFrame(this.moving);
        this.moving = 0;
    },
};

/** The scene that the address asks for, or the one that the list of scenes names first. */
async function findScene() {
    const asked = new URLSearchParams(location.search).get("scene");
    if (asked !== null) return { name: asked, scenes: [] };
    const answer = await fetch("Sessions/scenes.json", { cache: "no-store" });
    const scenes = answer.ok ? (await answer.json()).scenes : [];
    if (!Array.isArray(scenes) || scenes.length === 0) throw new Error("no scene is listed");
    return { name: scenes[scenes.length - 1], scenes };
}

/** Lets the user choose among the scenes beside this one. */
function offerScenes(name, scenes) {
    const list = document.getElementById("scenes");
    for (const other of scenes.filter((one) => one !== name)) {
        const link = document.createElement("a");
        link.href = `?scene=${encodeURIComponent(other)}`;
        link.textContent = other;
        list.append(link);
    }
    document.getElementById("scene-switch").hidden = scenes.length < 2;
}

/** Loads a document as a classic script: its declarations become the page's. */
function loadDocument(name) {
    const script = document.createElement("script");
    const url = `Sessions/${encodeURIComponent(name)}/scene.js`;
    let problem = "";
    const listen = (event) => (problem = event.message || "unknown error");
    window.addEventListener("error", listen);
    script.onerror = () => Page.fail("The scene cannot be loaded", `There is no document ${url}.`);
    script.onload = () => {
        window.removeEventListener("error", listen);
        if (problem === "" && typeof initObjects === "function" && Scene.objects.length > 0)
            Page.show(name);
        else
            Page.fail("The scene is damaged",
                      `${url} is not a complete scene document${problem && `: ${problem}`}.`);
    };
    script.src = url;
    document.head.append(script);
}

function openCanvas() {
    const options = { alpha: false, antialias: true };
    gl = canvas.getContext("webgl2", options);
    glVersion = gl ? 2 : 1;
    gl = gl || canvas.getContext("webgl", options);
    canvas.addEventListener("webglcontextlost", (event) => {
        event.preventDefault();
        Page.fail("The graphics system was interrupted", "The scene comes back by itself.");
    });
    canvas.addEventListener("webglcontextrestored", () => location.reload());
    return gl !== null;
}

/** Makes the tools work. Documents call it before they fill the scene. */
function initUI() {
    for (const button of document.querySelectorAll("[data-command]"))
        button.onclick = () => Page.run(button.dataset.command);
    listenToUser();
}

async function start() {
    if (!openCanvas())
        return Page.fail("This browser shows no 3D graphics",
                         "The scene needs WebGL. Turn on hardware acceleration in the browser's " +
                         "settings, or open the page in a current version of another browser.");
    try {
        const { name, scenes } = await findScene();
        if (name === "" || name === "." || name === ".." || /[/\\]/.test(name))
            return Page.fail("The scene cannot be loaded", `"${name}" is no name of a scene.`);
        offerScenes(name, scenes);
        loadDocument(name);
    } catch (error) {
        Page.fail("There is no scene to show",
                  location.protocol === "file:"
                      ? "The page must come from a web server: oglview serve FOLDER is one."
                      : "Write one with: oglview export MODEL FOLDER/Sessions/NAME/scene.js");
    }
}

start();
