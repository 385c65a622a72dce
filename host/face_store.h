// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "host/loop_grid.h"
#include "host/scene_parts.h"

#include <vector>

namespace ogl::host {

/// One outline or polyline of a new face, in the callers' sense of rotation.
struct NewLoop {
    std::vector<GridPoint> points;
    bool closed = true;
    bool hidden = false;
};

/// Triangles of a new face: three corners each, counter-clockwise seen from the visible side.
struct NewFace {
    MaterialId material = kNone;
    uint32_t flags = 0;
    Vec3 outward; ///< unit normal of the visible side
    std::vector<GridPoint> corners;
    std::vector<Vec3> normals;   ///< one per corner and outwards, or empty for a flat face
    std::vector<Vec2> texCoords; ///< one per corner, or empty
    std::vector<NewLoop> loops;
};

/// The faces of one object in the form of the record: clockwise triangles, inward face normals.
/// Numbers in the records (triangle bytes, points, loops, texture coordinates) count from the start
/// of this store; the scene writer shifts them.
class FaceStore {
  public:
    /// Adds a face. A face without loops gets one without points, so that it has a line style.
    void add(const NewFace& face, const LoopGrid& grid);

    /// Gives back the memory of the lists; counts and bounds stay.
    void releaseArrays();

    size_t triangleCount() const { return triangleCount_; }
    const Box& bounds() const { return bounds_; }

    std::vector<FACE> faces;
    std::vector<INDEX> triangleRanges; ///< per face, in bytes
    std::vector<float> triangles;
    std::vector<TEXCOORD> texCoords;
    std::vector<FACELOOPS> faceLoops;
    std::vector<LOOP> loops;
    std::vector<LOOPSTYLE> loopStyles;
    std::vector<LOOPPOINT> loopPoints;

  private:
    void addTriangles(const NewFace& face, const LoopGrid& grid);
    void addLoop(const NewLoop& loop);

    size_t triangleCount_ = 0;
    Box bounds_;
};

} // namespace ogl::host
