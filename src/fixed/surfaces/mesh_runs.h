// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "gpu/mesh_vertex_array.h"

namespace ogl {

/// Gathers surfaces that are drawn one after the other with the same state. Those in the same
/// buffers take one draw call; the order stays.
class MeshRuns {
  public:
    /// `volume`: what lies outside is left out; null for nothing.
    explicit MeshRuns(const ViewVolume* volume) : volume_(volume) {}

    /// Must be followed by a flush() before state changes.
    void add(const MeshVertexArray& mesh);
    /// Draws what was gathered.
    void flush();

    /// A texture unit that gets the texture coordinates too, besides the first; -1 for none.
    int texCoordUnit = -1;

  private:
    const ViewVolume* volume_;
    const MeshVertexArray* bound_ = nullptr; ///< in whose buffers the runs are
    VertexRuns runs_;
};

} // namespace ogl
