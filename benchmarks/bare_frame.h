// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ogl/host_records.h"

#include <vector>

namespace ogl::bench {

/// The yardstick of a frame: a plain OpenGL program that draws the buffers which a technical
/// drawing built, with the same state, one call per object and material.
class BareFrame {
  public:
    /// Notes the buffers parked in the scene's object cache and those of the edges.
    BareFrame(const VIEW& view, int materials, unsigned edgeBuffer, int edgeVertices);

    /// Clears and draws with the camera that is set.
    void draw() const;

  private:
    struct Mesh {
        unsigned positions, normals, texCoords, tangents;
        int vertices;
    };

    std::vector<std::vector<Mesh>> materials_;
    unsigned edgeBuffer_;
    int edgeVertices_;
};

} // namespace ogl::bench
