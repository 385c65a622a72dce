// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// A scene record put together byte by byte, by the numbers of its description: a white square of
// 2 x 2 metres in the plane y = 0, seen from 5 metres in front of it. It never sees the library's
// own headers, so that a shifted field shows.
#pragma once

#include <cstdint>
#include <cstring>

/// Bytes below 4 GiB: static memory of a program that is not moved at start.
struct RawScene {
    unsigned char scene[17461];
    unsigned char view[1250];
    unsigned char objectList[20];
    unsigned char objects[2 * 271];
    unsigned char cache[2 * 24];
    unsigned char material[290];
    unsigned char facesOfObject[2 * 8];
    unsigned char faces[2 * 64];
    unsigned char trianglesOfFace[2 * 8];
    unsigned char triangles[4 * 36];
    unsigned char loopsOfFace[2 * 8];
    unsigned char loops[2 * 8];
    unsigned char points[8 * 14];
    unsigned char styles[2 * 32];
    unsigned char pathIndex[2 * 8];
    unsigned char pathPoints[5 * 14];
};
extern RawScene raw;

/// The second object is the same square, 1 metre behind. Path 0 has 2 points, path 1 has 3; path 1
/// is the current one.
void fillRawScene();

template <class T> void put(unsigned char* record, int offset, T value) {
    std::memcpy(record + offset, &value, sizeof value);
}
template <class T> T get(const unsigned char* record, int offset) {
    T value;
    std::memcpy(&value, record + offset, sizeof value);
    return value;
}
inline void putAddress(unsigned char* record, int offset, const void* address) {
    put(record, offset, static_cast<uint32_t>(reinterpret_cast<uintptr_t>(address)));
}
