// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// What the tests share: the program under test, a folder that goes at the end, a served page and a
// browser. OGLVIEW names the program, CHROMIUM the browser.
import { spawn, spawnSync } from "node:child_process";
import fs from "node:fs";
import { createRequire } from "node:module";
import os from "node:os";
import path from "node:path";

const require = createRequire(new URL("../../viewer/package.json", import.meta.url));

export const oglview = process.env.OGLVIEW ?? "build/linux/oglview";
export const house = "/usr/share/assimp/models/IFC/AC14-FZK-Haus.ifc";
export const kPatience = 120000; // ms; waits end with what they wait for

export function makeFolder() {
    const folder = fs.mkdtempSync(path.join(os.tmpdir(), "ogl-viewer-"));
    process.on("exit", () => fs.rmSync(folder, { recursive: true, force: true }));
    return folder;
}

/** Runs oglview; throws with its words when it fails. */
export function run(...parameters) {
    const result = spawnSync(oglview, parameters, { encoding: "utf8", env: { ...process.env, OGL_DEBUG: "0" } });
    if (result.status !== 0) throw new Error(`oglview ${parameters.join(" ")}: ${result.stderr}`);
    return result.stdout;
}

/** Serves the folder; `url` is its address. */
export async function serve(folder) {
    const server = spawn(oglview, ["serve", folder, "--port", "0"], { stdio: ["ignore", "pipe", "inherit"] });
    process.on("exit", () => server.kill("SIGKILL"));
    const url = await new Promise((resolve, reject) => {
        server.stdout.on("data", (text) => resolve(String(text).trim()));
        server.on("exit", () => reject(new Error("the server did not start")));
    });
    return { url, stop: () => server.kill("SIGKILL") };
}

export async function openBrowser(...switches) {
    const { chromium } = require("playwright-core");
    return chromium.launch({
        executablePath: process.env.CHROMIUM ?? "/usr/bin/chromium",
        args: ["--no-sandbox", "--no-proxy-server", "--use-gl=angle", "--use-angle=swiftshader",
               "--enable-unsafe-swiftshader", ...switches],
        timeout: kPatience,
    });
}

/** Opens an address and waits until the page is in one of the states. */
export async function openPage(browser, address, states, size = { width: 480, height: 320 }) {
    const page = await browser.newPage({ viewport: size, reducedMotion: "reduce" });
    page.problems = [];
    page.on("pageerror", (error) => page.problems.push(error.message));
    page.on("console", (line) => {
        if (["error", "warning"].includes(line.type())) page.problems.push(line.text());
    });
    page.setDefaultTimeout(kPatience);
    await page.goto(address, { waitUntil: "commit" });
    await page.waitForFunction((wanted) => wanted.includes(document.documentElement.dataset.state), states);
    return page;
}

/** The pixels that the page's scene has now: (x, y) from the top left corner, red, green, blue. */
export async function drawnPixels(page) {
    const { width, height, bytes } = await page.evaluate(() => {
        drawFrame();
        const { width, height } = canvas;
        const pixels = new Uint8Array(width * height * 4);
        gl.readPixels(0, 0, width, height, gl.RGBA, gl.UNSIGNED_BYTE, pixels);
        let text = "";
        for (let k = 0; k < pixels.length; k += 8192)
            text += String.fromCharCode(...pixels.subarray(k, k + 8192));
        return { width, height, bytes: btoa(text) };
    });
    const pixels = Buffer.from(bytes, "base64");
    return { width, height, at: (x, y) => [...pixels.subarray(((height - 1 - y) * width + x) * 4).subarray(0, 3)] };
}

/** A BMP of 24 bits as `oglview render` writes it. */
export function readBmp(file) {
    const bytes = fs.readFileSync(file);
    const [start, width, height] = [10, 18, 22].map((place) => bytes.readInt32LE(place));
    const stride = (width * 3 + 3) & ~3;
    return { width, height, at: (x, y) => {
        const place = start + (height - 1 - y) * stride + x * 3;
        return [bytes[place + 2], bytes[place + 1], bytes[place]];
    } };
}
