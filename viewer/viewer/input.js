// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Mouse, touch and keyboard. The document hangs the four mouse handlers on the canvas and the
// document; touch and wheel, which it does not know, get listeners of their own.
"use strict";

const kOrbitPerPixel = 0.006; // radians
const kOrbitPerKey = 0.08;
const kPanPerKey = 40; // pixels
const kZoomPerKey = 1.2;

/** A change of the view that the user asked for. */
function moveView(change) {
    Page.stopMoving();
    change();
    requestDraw();
}

const Mouse = { button: -1, x: 0, y: 0 };

function handleMouseDown(event) {
    Object.assign(Mouse, { button: event.button, x: event.clientX, y: event.clientY });
    canvas.classList.add("dragging");
    canvas.focus();
    event.preventDefault();
}

function handleMouseUp() {
    Mouse.button = -1;
    canvas.classList.remove("dragging");
}

function handleMouseMove(event) {
    if (Mouse.button < 0) return;
    if (event.buttons === 0) return handleMouseUp(); // let go outside of the window
    const right = event.clientX - Mouse.x;
    const down = event.clientY - Mouse.y;
    Object.assign(Mouse, { x: event.clientX, y: event.clientY });
    const pans = Mouse.button !== 0 || event.shiftKey || event.ctrlKey;
    moveView(() => dragView(right, down, pans));
}

function dragView(right, down, pans) {
    if (pans) Camera.pan(right, down);
    else Camera.orbit(-right * kOrbitPerPixel, down * kOrbitPerPixel);
}

/**
 * Documents hang this on an event that only some browsers have. Those have the "wheel" event of
 * handleWheel() as well, and a turn of the wheel is to act once.
 */
function handleMouseWheel(event) {
    if (!("onwheel" in canvas)) handleWheel(event);
}

function handleWheel(event) {
    event.preventDefault();
    const perUnit = event.deltaMode === 0 ? 1 : event.deltaMode === 1 ? 30 : 400;
    const turned = Math.max(-300, Math.min(300, (event.deltaY ?? -event.wheelDelta) * perUnit));
    const [x, y] = placeOnCanvas(event.clientX, event.clientY);
    moveView(() => Camera.approach(Math.exp(-turned * 0.0015), x, y));
}

/** From -1 to 1 to the right and upwards. */
function placeOnCanvas(clientX, clientY) {
    const frame = canvas.getBoundingClientRect();
    return [((clientX - frame.left) / frame.width) * 2 - 1, 1 - ((clientY - frame.top) / frame.height) * 2];
}

/** Fingers on the canvas: one turns the view; two move it and bring it nearer. */
const Touches = {
    fingers: new Map(),

    /** Middle of the fingers and their mean distance from it. */
    spread() {
        const points = [...this.fingers.values()];
        const x = points.reduce((sum, p) => sum + p.x, 0) / points.length;
        const y = points.reduce((sum, p) => sum + p.y, 0) / points.length;
        const size = points.reduce((sum, p) => sum + Math.hypot(p.x - x, p.y - y), 0) / points.length;
        return { x, y, size };
    },
    down(event) {
        if (event.pointerType === "mouse") return;
        event.preventDefault(); // no mouse events that imitate the finger
        canvas.setPointerCapture(event.pointerId);
        this.fingers.set(event.pointerId, { x: event.clientX, y: event.clientY });
    },
    move(event) {
        if (!this.fingers.has(event.pointerId)) return;
        const before = this.spread();
        this.fingers.set(event.pointerId, { x: event.clientX, y: event.clientY });
        const after = this.spread();
        const several = this.fingers.size > 1;
        moveView(() => {
            dragView(after.x - before.x, after.y - before.y, several);
            if (several && before.size > 5 && after.size > 5)
                Camera.approach(after.size / before.size, ...placeOnCanvas(after.x, after.y));
        });
    },
    up(event) {
        this.fingers.delete(event.pointerId);
    },
};

const kKeys = {
    ArrowLeft: (pans) => (pans ? Camera.pan(kPanPerKey, 0) : Camera.orbit(-kOrbitPerKey, 0)),
    ArrowRight: (pans) => (pans ? Camera.pan(-kPanPerKey, 0) : Camera.orbit(kOrbitPerKey, 0)),
    ArrowUp: (pans) => (pans ? Camera.pan(0, kPanPerKey) : Camera.orbit(0, kOrbitPerKey)),
    ArrowDown: (pans) => (pans ? Camera.pan(0, -kPanPerKey) : Camera.orbit(0, -kOrbitPerKey)),
    "+": () => Camera.approach(kZoomPerKey),
    "=": () => Camera.approach(kZoomPerKey),
    "-": () => Camera.approach(1 / kZoomPerKey),
};

function handleKey(event) {
    if (!Page.isShown || event.ctrlKey || event.metaKey || event.altKey) return;
    if (event.target.closest("button, a") && (event.key === "Enter" || event.key === " ")) return;
    const command = { h: "home", Home: "home", g: "ground", "?": "help", f: "full", Escape: "close" }[event.key];
    if (command) Page.run(command);
    else if (kKeys[event.key]) moveView(() => kKeys[event.key](event.shiftKey));
    else return;
    event.preventDefault();
}

function listenToUser() {
    canvas.addEventListener("pointerdown", (event) => Touches.down(event));
    canvas.addEventListener("pointermove", (event) => Touches.move(event));
    for (const name of ["pointerup", "pointercancel"])
        canvas.addEventListener(name, (event) => Touches.up(event));
    canvas.addEventListener("wheel", handleWheel, { passive: false });
    canvas.addEventListener("contextmenu", (event) => event.preventDefault());
    window.addEventListener("keydown", handleKey);
    new ResizeObserver(requestDraw).observe(canvas);
}
