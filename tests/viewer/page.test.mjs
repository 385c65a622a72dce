// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// The page in a browser that draws in software.
import assert from "node:assert/strict";
import fs from "node:fs";
import path from "node:path";
import { after, before, test } from "node:test";

import { drawnPixels, house, makeFolder, openBrowser, openPage, readBmp, run, serve } from "./setup.mjs";

const size = { width: 480, height: 320 };
const folder = makeFolder();
const documentOf = (name) => path.join(folder, "Sessions", name, "scene.js");
let browser;
let server;

before(async () => {
    run("export", "flat", documentOf("flat"), "--size", "480x320");
    run("export", house, documentOf("house"), "--size", "480x320", "--background", "ff00ff");
    server = await serve(folder);
    browser = await openBrowser();
});
after(async () => {
    await browser?.close();
    server?.stop();
});

const open = (name, states = ["ready"]) => openPage(browser, `${server.url}?scene=${encodeURIComponent(name)}`, states, size);
const differing = (a, b) => {
    let count = 0;
    for (let y = 0; y < a.height; ++y)
        for (let x = 0; x < a.width; ++x)
            if (a.at(x, y).some((value, k) => Math.abs(value - b.at(x, y)[k]) > 8)) ++count;
    return count / (a.width * a.height);
};

/** What the surface shader makes of a colour where the sun reaches a surface (lit = 1) or not (0). */
function shadedColor(color, normalZ, facing, page, lit = 1) {
    const sky = 1.2 * page.ambient * (0.5 + 0.25 * normalZ);
    return color.map((value, k) => {
        const light = sky + page.intensity[k] * 0.6 * (0.0625 * (facing + 1) + lit * facing);
        return 255 * (1 - Math.exp(-0.8 * value ** 2.2 * light)) ** (1 / 2.2);
    });
}

test("lit surfaces have the colours that light and material give", async () => {
    // A blue floor, a red wall on it, and before it a small board that shades a part of the floor.
    fs.writeFileSync(path.join(folder, "boards.obj"),
                     "mtllib boards.mtl\nv -1 -1 0\nv 1 -1 0\nv 1 1 0\nv -1 1 0\n" +
                     "v -1 0 0\nv 1 0 0\nv 1 0 2\nv -1 0 2\n" +
                     "v -0.6 -1.1 0.5\nv -0.2 -1.1 0.5\nv -0.2 -0.7 0.5\nv -0.6 -0.7 0.5\n" +
                     "usemtl red\nf 5 6 7 8\nf 9 10 11 12\nusemtl blue\nf 1 2 3 4\n");
    fs.writeFileSync(path.join(folder, "boards.mtl"), "newmtl red\nKd 0.8 0.4 0.2\nnewmtl blue\nKd 0.2 0.4 0.8\n");
    run("export", path.join(folder, "boards.obj"), documentOf("boards"), "--up", "z", "--unit", "m",
        "--size", "480x320", "--camera", "0,-4,2.5,0,0,0.5", "--background", "205080");
    const page = await open("boards");
    const pixels = await drawnPixels(page);
    const light = await page.evaluate(() => ({
        toLight: [...gl.getUniform(objPrg, objPrg.lightDir)],
        intensity: [...gl.getUniform(objPrg, objPrg.lightIntensity)],
        ambient: gl.getUniform(objPrg, objPrg.ambientFactor),
        // Where points are on the canvas: floor in the sun, wall, floor in the small board's shadow.
        places: [[0.6, -0.8, 0], [0.2, 0, 1], [-0.02, -0.44, 0]].map((point) => {
            const at = glMatrix.vec4.transformMat4([], [...point, 1], Camera.viewProjection);
            return [Math.round((at[0] / at[3] + 1) * 240), Math.round((1 - at[1] / at[3]) * 160)];
        }),
    }));
    const near = (actual, expected, what) => expected.forEach((value, k) =>
        assert.ok(Math.abs(actual[k] - value) <= 3, `${what}: ${actual} instead of ${expected}`));
    near(pixels.at(2, 2), [0x20, 0x50, 0x80], "background");
    near(pixels.at(...light.places[0]), shadedColor([0.2, 0.4, 0.8], 1, light.toLight[2], light), "blue");
    near(pixels.at(...light.places[1]), shadedColor([0.8, 0.4, 0.2], 0, -light.toLight[1], light), "red");
    near(pixels.at(...light.places[2]), shadedColor([0.2, 0.4, 0.8], 1, light.toLight[2], light, 0), "shadow");
    assert.deepEqual(page.problems, []);
    await page.close();
});

test("a picture stands upright on its surface, and repeats at any size", async () => {
    // 3 x 2 pixels, blue below and red above: a size that needs care before it repeats.
    const row = (blue, red) => [...Array(3).fill([blue, 0, red]).flat(), 0, 0, 0];
    const bmp = Buffer.alloc(54 + 24);
    bmp.write("BM");
    [[2, 78], [10, 54], [14, 40], [18, 3], [22, 2]].forEach(([at, value]) => bmp.writeInt32LE(value, at));
    [[26, 1], [28, 24]].forEach(([at, value]) => bmp.writeInt16LE(value, at));
    Buffer.from([...row(255, 0), ...row(0, 255)]).copy(bmp, 54);
    fs.writeFileSync(path.join(folder, "sign.bmp"), bmp);
    fs.writeFileSync(path.join(folder, "sign.mtl"), "newmtl sign\nKd 1 1 1\nmap_Kd sign.bmp\n");
    fs.writeFileSync(path.join(folder, "sign.obj"),
                     "mtllib sign.mtl\nv -1 0 0\nv 1 0 0\nv 1 0 2\nv -1 0 2\n" +
                     "vt 0 0\nvt 2 0\nvt 2 2\nvt 0 2\nusemtl sign\nf 1/1 2/2 3/3 4/4\n");
    run("export", path.join(folder, "sign.obj"), documentOf("sign"), "--up", "z", "--unit", "m",
        "--size", "480x320", "--camera", "0,-4,1,0,0,1", "--fov", "40");
    const page = await open("sign");
    const pixels = await drawnPixels(page);
    // Two pictures above each other, 2 m in 2 x 4 m tan(20 degrees): 220 of the 320 pixels.
    const isRed = [0.125, 0.375, 0.625, 0.875].map((share) => {
        const [red, , blue] = pixels.at(240, Math.round(160 - 110 + 220 * share));
        assert.ok(Math.abs(red - blue) > 60, `${red} and ${blue} at ${share}`);
        return red > blue;
    });
    assert.deepEqual(isRed, [true, false, true, false]);
    assert.deepEqual(page.problems, []);
    await page.close();
});

test("the house starts in the view that it was exported from", async () => {
    const page = await open("house");
    await page.keyboard.press("g"); // the library draws no shadow on the ground
    const shown = await drawnPixels(page);
    const picture = path.join(folder, "house.bmp");
    run("render", house, "-o", picture, "--size", "480x320", "--background", "ff00ff");
    const drawn = readBmp(picture);
    const isPaper = ([r, g, b]) => r > 240 && g < 16 && b > 240;
    let outside = 0;
    let wrong = 0;
    for (let y = 1; y < 319; ++y)
        for (let x = 1; x < 479; ++x) {
            const here = isPaper(drawn.at(x, y));
            outside += here ? 1 : 0;
            // Outlines may differ by a pixel, and the library draws lines on them.
            const near = [-1, 0, 1].some((dy) => [-1, 0, 1].some((dx) => isPaper(shown.at(x + dx, y + dy)) === here));
            wrong += near ? 0 : 1;
        }
    assert.ok(outside > 20000 && outside < 110000, `${outside} pixels around the house`);
    assert.ok(wrong < 60, `${wrong} pixels are house in one picture and paper in the other`);
    assert.deepEqual(page.problems, []);
    await page.close();
});

test("the flat shows its textures, and every way to move changes and restores the view", async () => {
    const page = await open("flat");
    assert.deepEqual(page.problems, []);
    assert.equal(await page.evaluate(() => Scene.surfaces.filter((o) => o.hasDiffuseTex === 1 && !o.renderTexture.diffuseTex).length), 0);
    const home = await drawnPixels(page);
    const distinct = new Set();
    for (let y = 0; y < 320; y += 2) for (let x = 0; x < 480; x += 2) distinct.add(home.at(x, y).join());
    assert.ok(distinct.size > 2000, `${distinct.size} colours`);

    const distance = () => page.evaluate(() => Camera.distance);
    const drag = async (button) => {
        await page.mouse.move(240, 160);
        await page.mouse.down({ button });
        await page.mouse.move(300, 180, { steps: 3 });
        await page.mouse.up({ button });
    };
    const moves = {
        "drag": () => drag("left"),
        "drag with the right button": () => drag("right"),
        "arrow key": () => page.keyboard.press("ArrowLeft"),
        "arrow key with Shift": () => page.keyboard.press("Shift+ArrowUp"),
        "tool": () => page.click("[data-command=near]"),
        "finger": () => page.evaluate(() => {
            const at = (type, x, y) => canvas.dispatchEvent(new PointerEvent(type, {
                pointerId: 7, pointerType: "touch", clientX: x, clientY: y, bubbles: true, cancelable: true }));
            canvas.setPointerCapture = () => {}; // the browser knows of no such finger
            at("pointerdown", 200, 150);
            at("pointermove", 240, 150);
            at("pointerup", 240, 150);
        }),
    };
    for (const [name, move] of Object.entries(moves)) {
        await move();
        const moved = await drawnPixels(page);
        assert.ok(differing(home, moved) > 0.05, `${name} changed ${differing(home, moved)}`);
        await page.click("[data-command=home]");
        await page.waitForFunction(() => Page.moving === 0 && vec3.equals(eyeVec, homeEyeVec));
        assert.ok(differing(home, await drawnPixels(page)) < 0.001, `home after ${name}`);
    }
    // A turn of the wheel acts once: once more the same factor, not its square.
    const start = await distance();
    await page.mouse.move(240, 160);
    await page.mouse.wheel(0, -100);
    await page.waitForFunction((before) => Camera.distance !== before, start);
    assert.ok(Math.abs((await distance()) / start - Math.exp(-0.15)) < 1e-3);
    await page.close();
});

test("a sun in the zenith casts a shadow, and a view straight down is a picture", async () => {
    run("export", "flat", documentOf("plan"), "--size", "480x320", "--view", "plan");
    const text = fs.readFileSync(documentOf("plan"), "latin1");
    const [, center] = /lookAt\(lightViewMatrix, \[[^\]]*\], \[([^\]]*)\]/.exec(text);
    const [x, y, z] = center.split(",").map(Number);
    fs.writeFileSync(documentOf("plan"), text
        .replace(/lookAt\(lightViewMatrix, \[[^\]]*\]/, `lookAt(lightViewMatrix, [${x},${y},${z + 36}]`)
        .replace(/objPrg.lightDir, [^)]*\)/, "objPrg.lightDir, 0,0,1)"), "latin1");
    const page = await open("plan");
    const pixels = await drawnPixels(page);
    const share = (test) => {
        let count = 0;
        for (let py = 0; py < 320; ++py) for (let px = 0; px < 480; ++px) count += test(...pixels.at(px, py)) ? 1 : 0;
        return count / (480 * 320);
    };
    assert.ok(share((r, g, b) => g > r && g > b + 20) > 0.2, "lawn around the flat");
    assert.ok(share((r, g, b) => r > b + 40) > 0.1, "wooden floors in it");
    // What stands over others shades them: some depths of the map are nearer than the lawn's.
    const depths = await page.evaluate(() => {
        gl.bindFramebuffer(gl.FRAMEBUFFER, ShadowMap.target);
        const row = new Uint8Array(2048 * 4);
        gl.readPixels(0, 1024, 2048, 1, gl.RGBA, gl.UNSIGNED_BYTE, row);
        gl.bindFramebuffer(gl.FRAMEBUFFER, null);
        return [...new Set(row.filter((_, k) => k % 4 === 0))];
    });
    assert.ok(depths.length > 5, `${depths.length} depths along the flat`);
    assert.deepEqual(page.problems, []);
    await page.close();
});

test("what does not work is said on the page", async () => {
    const whole = fs.readFileSync(documentOf("flat"), "latin1");
    const broken = {
        "half a document": [whole.slice(0, whole.length / 2), "damaged"],
        "another script": ["var answer = 42;", "damaged"],
        "an error in it": [whole.replace("initUI();", "noSuchFunction();"), "damaged"],
        "a broken shader": [whole.replace(/objPrg=initProgram\("/, "$&broken "), "shader"],
    };
    for (const [name, [text, says]] of Object.entries(broken)) {
        fs.mkdirSync(path.dirname(documentOf(name)), { recursive: true });
        fs.writeFileSync(documentOf(name), text, "latin1");
        const page = await open(name, ["failed", "ready"]);
        const message = page.locator("#message");
        assert.ok(await message.isVisible(), name);
        assert.match(await message.innerText(), new RegExp(says), name);
        await page.close();
    }
    for (const [name, says] of [["no such scene", "no document"], ["..", "no name"]]) {
        const page = await open(name, ["failed", "ready"]);
        assert.match(await page.locator("#message").innerText(), new RegExp(says), name);
        await page.close();
    }
});

test("a browser without WebGL gets told", async () => {
    const page = await browser.newPage({ viewport: size });
    await page.addInitScript(() => (HTMLCanvasElement.prototype.getContext = () => null));
    await page.goto(server.url, { waitUntil: "commit" });
    await page.waitForFunction(() => document.documentElement.dataset.state === "failed");
    assert.match(await page.locator("#message").innerText(), /WebGL/);
    await page.close();
});

test("a texture that is missing leaves a plain surface and a note", async () => {
    run("export", "flat", documentOf("bare"), "--size", "480x320");
    const names = fs.readdirSync(path.dirname(documentOf("bare"))).filter((name) => name.endsWith(".png"));
    fs.rmSync(path.join(path.dirname(documentOf("bare")), names[0]));
    const page = await open("bare");
    assert.match(await page.locator("#note").innerText(), new RegExp(`^1 of \\d+ textures`));
    assert.equal(await page.evaluate(() => document.documentElement.dataset.state), "ready");
    await page.close();
});

test("the server hands out the folder and nothing else", async () => {
    fs.writeFileSync(path.join(path.dirname(folder), path.basename(folder) + "-secret"), "secret");
    fs.symlinkSync("/etc/hostname", path.join(folder, "link"));
    const request = async (target, headers = {}) => {
        const { request: ask } = await import("node:http");
        const { hostname, port } = new URL(server.url);
        return new Promise((resolve, reject) => ask({ hostname, port, path: target, headers }, (answer) => {
            answer.resume();
            answer.on("end", () => resolve([answer.statusCode, answer.headers["content-type"] ?? ""]));
        }).on("error", reject).end());
    };
    const secret = `${path.basename(folder)}-secret`;
    for (const [target, status, type] of [
        ["/", 200, "text/html; charset=utf-8"],
        ["/viewer/page.js", 200, "text/javascript; charset=utf-8"],
        ["/viewer/viewer.css", 200, "text/css; charset=utf-8"],
        ["/Sessions/flat/dec4.png", 200, "image/png"],
        ["/missing", 404], ["/Sessions", 404], ["/link", 404],
        [`/../${secret}`, 404], [`/%2e%2e/${secret}`, 404], [`/viewer/..%2f..%2f${secret}`, 404],
    ]) {
        const [answered, answeredType] = await request(target);
        assert.equal(answered, status, target);
        if (type) assert.equal(answeredType, type, target);
    }
    assert.equal((await request("/", { Host: "example.org" }))[0], 403);
    fs.rmSync(path.join(path.dirname(folder), secret));
});
