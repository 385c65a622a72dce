// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host/face_store.h"

#include <algorithm>
#include <limits>
#include <stdexcept>

namespace ogl::host {

namespace {

/// Dark grey lines with a pen: full opacity, so that the edges of flat faces are drawn as lines
/// and smooth faces as silhouettes.
LOOPSTYLE lineStyle(const NewLoop& loop) {
    constexpr BGR8 kLineColor{48, 48, 48};
    LOOPSTYLE style{};
    style.kind = loop.closed ? kLoopClosed : kLoopOpen;
    style.flags = loop.hidden ? kLoopHidden : uint8_t{0};
    style.pen = 1;
    style.penNumber = kLoopNoPen;
    style.color = kLineColor;
    style.alternateColor = kLineColor;
    return style;
}

int32_t checkedNumber(size_t value) {
    if (value > static_cast<size_t>(std::numeric_limits<int32_t>::max()))
        throw std::length_error("an object has too many triangles");
    return static_cast<int32_t>(value);
}

// The record's triangles run the other way round than the callers'.
constexpr size_t kStoredOrder[3] = {0, 2, 1};

} // namespace

void FaceStore::add(const NewFace& face, const LoopGrid& grid) {
    FACE record{};
    record.flags = face.flags | (face.normals.empty() ? 0u : kFaceVertexNormals);
    record.normal = {-face.outward.x, -face.outward.y, -face.outward.z};
    record.texCoordIndex = face.texCoords.empty() ? -1 : checkedNumber(texCoords.size());
    record.material = static_cast<int16_t>(face.material);

    const size_t firstFloat = triangles.size();
    addTriangles(face, grid);
    triangleRanges.push_back({checkedNumber(firstFloat * sizeof(float)),
                              checkedNumber((triangles.size() - firstFloat) * sizeof(float))});
    triangleCount_ += face.corners.size() / 3;

    const int32_t firstLoop = checkedNumber(loops.size());
    if (face.loops.empty())
        addLoop({});
    for (const NewLoop& loop : face.loops)
        addLoop(loop);
    faceLoops.push_back({firstLoop, checkedNumber(loops.size()) - firstLoop});
    faces.push_back(record);
}

void FaceStore::addTriangles(const NewFace& face, const LoopGrid& grid) {
    const size_t count = face.corners.size() / 3 * 3;
    for (size_t i = 0; i < count; ++i) {
        const GridPoint p = face.corners[i - i % 3 + kStoredOrder[i % 3]];
        triangles.insert(triangles.end(),
                         {grid.coordinate(p.x), grid.coordinate(p.y), grid.coordinate(p.z)});
        bounds_.add(grid.position(p));
    }
    if (!face.normals.empty()) {
        for (size_t i = 0; i < count; ++i) {
            const Vec3 n = face.normals[i - i % 3 + kStoredOrder[i % 3]];
            triangles.insert(triangles.end(), {static_cast<float>(n.x), static_cast<float>(n.y),
                                               static_cast<float>(n.z)});
        }
    }
    if (!face.texCoords.empty()) {
        for (size_t i = 0; i < count; ++i) {
            const Vec2 t = face.texCoords[i - i % 3 + kStoredOrder[i % 3]];
            texCoords.push_back({static_cast<float>(t.x), static_cast<float>(t.y)});
        }
    }
}

void FaceStore::addLoop(const NewLoop& loop) {
    loops.push_back({checkedNumber(loopPoints.size()), checkedNumber(loop.points.size())});
    loopStyles.push_back(lineStyle(loop));
    for (size_t i = loop.points.size(); i-- > 0;) {
        const GridPoint p = loop.points[i];
        loopPoints.push_back({{p.x, p.y, p.z}, 0});
    }
}

void FaceStore::releaseArrays() {
    faces = {};
    triangleRanges = {};
    triangles = {};
    texCoords = {};
    faceLoops = {};
    loops = {};
    loopStyles = {};
    loopPoints = {};
}

void Box::add(Vec3 p) {
    low = {std::min(low.x, p.x), std::min(low.y, p.y), std::min(low.z, p.z)};
    high = {std::max(high.x, p.x), std::max(high.y, p.y), std::max(high.z, p.z)};
}

} // namespace ogl::host
