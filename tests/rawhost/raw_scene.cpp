// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "rawhost/raw_scene.h"

#include <initializer_list>

RawScene raw;

namespace {

constexpr float kCorners[4][2] = {{-1, -1}, {-1, 1}, {1, 1}, {1, -1}}; // x and z, clockwise

void putList(unsigned char* record, int offset, int count, int elementSize, const void* data) {
    put<int32_t>(record, offset, count);
    put<int16_t>(record, offset + 12, static_cast<int16_t>(elementSize));
    putAddress(record, offset + 16, data);
}

void putSquare(int face, float y) {
    put<int32_t>(raw.facesOfObject, 8 * face, face);
    put<int32_t>(raw.facesOfObject, 8 * face + 4, 1);
    put<double>(raw.faces, 64 * face + 12, 1.0); // y of the normal, which points into the body
    put<int32_t>(raw.faces, 64 * face + 56, -1);
    put<int32_t>(raw.trianglesOfFace, 8 * face, 72 * face);
    put<int32_t>(raw.trianglesOfFace, 8 * face + 4, 72);
    int at = 72 * face;
    for (const int corner : {0, 1, 2, 0, 2, 3}) {
        put<float>(raw.triangles, at, kCorners[corner][0]);
        put<float>(raw.triangles, at + 4, y);
        put<float>(raw.triangles, at + 8, kCorners[corner][1]);
        at += 12;
    }
    put<int32_t>(raw.loopsOfFace, 8 * face, face);
    put<int32_t>(raw.loopsOfFace, 8 * face + 4, 1);
    put<int32_t>(raw.loops, 8 * face, 4 * face);
    put<int32_t>(raw.loops, 8 * face + 4, 4);
    for (int corner = 0; corner < 4; ++corner) {
        const int point = 14 * (4 * face + corner);
        put<int32_t>(raw.points, point, static_cast<int32_t>(1000 * kCorners[corner][0]));
        put<int32_t>(raw.points, point + 4, static_cast<int32_t>(1000 * y));
        put<int32_t>(raw.points, point + 8, static_cast<int32_t>(1000 * kCorners[corner][1]));
    }
    raw.styles[32 * face] = 2;
}

void putLists() {
    putList(raw.objectList, 0, 2, 271, raw.objects);
    putAddress(raw.scene, 15375, raw.objectList);
    putList(raw.scene, 17113, 2, 8, raw.facesOfObject);
    putList(raw.scene, 17133, 2, 64, raw.faces);
    putList(raw.scene, 17193, 2, 8, raw.loops);
    putList(raw.scene, 17213, 8, 14, raw.points);
    putList(raw.scene, 17273, 2, 8, raw.trianglesOfFace);
    putList(raw.scene, 17293, 144, 1, raw.triangles);
    putList(raw.scene, 17333, 1, 290, raw.material);
    putList(raw.scene, 17421, 2, 8, raw.loopsOfFace);
    putList(raw.scene, 17441, 2, 32, raw.styles);
    putList(raw.scene, 11720, 2, 4, nullptr); // paths: only the count is read
    putList(raw.scene, 11740, 2, 8, raw.pathIndex);
    putList(raw.scene, 11760, 5, 14, raw.pathPoints);
    putAddress(raw.scene, 17393, raw.view);
    putList(raw.view, 1174, 2, 24, raw.cache);
}

} // namespace

void fillRawScene() {
    putSquare(0, 0.0f);
    putSquare(1, 1.0f);
    putLists();
    raw.material[2] = raw.material[3] = raw.material[4] = 255;
    put<float>(raw.material, 14, 0.4f);
    put<float>(raw.material, 50, 1.0f);
    put<int16_t>(raw.material, 256, -1);
    put<uint32_t>(raw.material, 286, 2);
    put<int32_t>(raw.scene, 7240, 10);        // technical drawing
    put<uint32_t>(raw.scene, 7702, 0x10);     // on a background of its own
    put<uint32_t>(raw.scene, 7706, 0x785028); // 40, 80, 120
    put<double>(raw.scene, 15379, 1.0);
    put<double>(raw.scene, 16511, 1.0471975511965976); // 60 degrees
    put<float>(raw.scene, 16883 + 4, -5.0f);
    put<float>(raw.scene, 16907 + 8, 1.0f);
    put<int32_t>(raw.scene, 17105, 100);
    put<uint32_t>(raw.view, 0, 0x810); // no highlights, no heads-up display
    put<int32_t>(raw.scene, 5654, 1);
    const int32_t clusters[] = {0, 2, 2, 3};
    std::memcpy(raw.pathIndex, clusters, sizeof clusters);
}
