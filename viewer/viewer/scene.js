// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// What a document fills: the list of surfaces, each with its buffers and its texture.
"use strict";

/** What the graphics system can do; asked once, for every question waits for it. */
const Limits = {
    known: null,
    ofContext() {
        if (!this.known) {
            const sharper = gl.getExtension("EXT_texture_filter_anisotropic");
            const most = sharper ? gl.getParameter(sharper.MAX_TEXTURE_MAX_ANISOTROPY_EXT) : 1;
            this.known = { sharper, sharpness: Math.min(most, 8),
                           textureSize: gl.getParameter(gl.MAX_TEXTURE_SIZE) };
        }
        return this.known;
    },
};

/** A picture, loaded once for all the surfaces that show it. */
class Picture {
    /** `url` is relative to the page, its parts as a file system names them. */
    constructor(url) {
        this.texture = null; // until it has arrived
        const image = new Image();
        this.arrival = new Promise((resolve) => {
            image.onload = () => {
                this.upload(image);
                resolve(true);
            };
            image.onerror = () => resolve(false);
        });
        image.src = url.split("/").map(encodeURIComponent).join("/");
    }

    upload(image) {
        const texture = gl.createTexture();
        gl.bindTexture(gl.TEXTURE_2D, texture);
        // The document leaves this at 1; its v runs downwards, as the picture's rows do.
        gl.pixelStorei(gl.UNPACK_FLIP_Y_WEBGL, 0);
        gl.texImage2D(gl.TEXTURE_2D, 0, gl.RGBA, gl.RGBA, gl.UNSIGNED_BYTE, tileable(image));
        gl.generateMipmap(gl.TEXTURE_2D);
        gl.texParameteri(gl.TEXTURE_2D, gl.TEXTURE_MIN_FILTER, gl.LINEAR_MIPMAP_LINEAR);
        gl.texParameteri(gl.TEXTURE_2D, gl.TEXTURE_WRAP_S, gl.REPEAT);
        gl.texParameteri(gl.TEXTURE_2D, gl.TEXTURE_WRAP_T, gl.REPEAT);
        const { sharper, sharpness } = Limits.ofContext();
        if (sharper)
            gl.texParameterf(gl.TEXTURE_2D, sharper.TEXTURE_MAX_ANISOTROPY_EXT, sharpness);
        gl.bindTexture(gl.TEXTURE_2D, null);
        this.texture = texture;
        requestDraw();
    }

    static all = new Map();
    static of(url) {
        if (!this.all.has(url)) this.all.set(url, new Picture(url));
        return this.all.get(url);
    }
    /** For every picture, when it is settled, whether it arrived. */
    static get arrivals() {
        return Promise.all([...this.all.values()].map((picture) => picture.arrival));
    }
}

/** The texture of a surface. Until it has arrived, and when it does not, the surface is plain. */
class RenderTexture {
    constructor() {
        this.picture = null;
    }
    setImage(url) {
        this.picture = Picture.of(url);
    }
    get diffuseTex() {
        return this.picture ? this.picture.texture : null;
    }
}

/** The picture at a size that repeats and has mip maps: WebGL 1 wants powers of two. */
function tileable(image) {
    const { textureSize } = Limits.ofContext();
    const size = (pixels) =>
        Math.min(textureSize, glVersion > 1 ? pixels : 2 ** Math.ceil(Math.log2(pixels)));
    const width = size(image.naturalWidth);
    const height = size(image.naturalHeight);
    if (width === image.naturalWidth && height === image.naturalHeight) return image;
    const canvas = document.createElement("canvas");
    canvas.width = width;
    canvas.height = height;
    canvas.getContext("2d").drawImage(image, 0, 0, width, height);
    return canvas;
}

/** A surface. A document fills these fields before it adds the object to the scene. */
class RenderObject {
    constructor() {
        this.vertices = [];
        this.normals = [];
        this.texuvs = [];
        this.numVertices = 0;
        this.diffuseMat = [1, 1, 1, 1];
        this.specularMat = [0, 10, 0, 0];
        this.hasDiffuseTex = 0;
        this.diffuseTexFN = "";
        this.renderTexture = new RenderTexture();
        this.vertexBuffer = null;
        this.normalBuffer = null;
        this.texcoordBuffer = null;
        this.box = new Box();
    }

    /** True for the small fixed quad that every document adds last: it alone names no texture. */
    get isGroundMark() {
        return this.diffuseTexFN === null;
    }
    get isTranslucent() {
        return this.diffuseMat[3] < 1;
    }
}

/** An axis-aligned box; empty until something is added. */
class Box {
    constructor() {
        this.min = [Infinity, Infinity, Infinity];
        this.max = [-Infinity, -Infinity, -Infinity];
    }
    get isEmpty() {
        return this.min[0] > this.max[0];
    }
    get center() {
        return this.isEmpty ? [0, 0, 0] : this.min.map((low, k) => (low + this.max[k]) / 2);
    }
    /** Length of the diagonal. */
    get size() {
        return this.isEmpty ? 0 : Math.hypot(...this.min.map((low, k) => this.max[k] - low));
    }
    addPoints(points) {
        for (let k = 0; k < points.length; ++k) {
            const axis = k % 3;
            if (points[k] < this.min[axis]) this.min[axis] = points[k];
            if (points[k] > this.max[axis]) this.max[axis] = points[k];
        }
    }
    addBox(box) {
        if (box.isEmpty) return;
        this.addPoints([...box.min, ...box.max]);
    }
}

function newBuffer(numbers) {
    const buffer = gl.createBuffer();
    gl.bindBuffer(gl.ARRAY_BUFFER, buffer);
    gl.bufferData(gl.ARRAY_BUFFER, new Float32Array(numbers), gl.STATIC_DRAW);
    return buffer;
}

/** The scene of the document that was loaded last. */
const Scene = {
    objects: [],
    known: { count: -1 }, // what the surfaces were when they were last looked at

    addObject(object) {
        object.vertexBuffer = newBuffer(object.vertices);
        object.normalBuffer = newBuffer(object.normals);
        object.texcoordBuffer = newBuffer(object.texuvs);
        object.box.addPoints(object.vertices);
        // The buffers hold them now.
        object.vertices = object.normals = object.texuvs = null;
        this.objects.push(object);
        this.known.count = -1;
    },

    /** The surfaces to draw, and the box around them. */
    get surfaces() {
        return this.look().surfaces;
    },
    get box() {
        return this.look().box;
    },

    look() {
        if (this.known.count !== this.objects.length) {
            const surfaces = this.objects.filter((o) => !o.isGroundMark && o.diffuseMat[3] > 0);
            const box = new Box();
            for (const object of surfaces) box.addBox(object.box);
            this.known = { count: this.objects.length, surfaces, box };
        }
        return this.known;
    },
};
