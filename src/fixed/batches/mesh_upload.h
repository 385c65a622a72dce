// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#pragma once

#include "fixed/batches/mesh_layout.h"

#include <vector>

namespace ogl {

/// Gathers batches in memory and uploads them set of buffers by set of buffers.
class MeshUpload {
  public:
    /// `layout`: where all batches go.
    explicit MeshUpload(const MeshLayout& layout) : layout_(layout) {}

    /// Takes the arrays of a batch but its positions. Batches come in the order of the layout and
    /// stay alive until finish().
    void add(MeshVertexArray& batch, MeshPlace place);
    /// Uploads what is left.
    void finish();

  private:
    void start(int buffers);

    struct Member {
        MeshVertexArray* batch;
        int first;
    };

    const MeshLayout& layout_;
    int buffers_ = -1; ///< that are being filled
    Vec3Array positions_, normals_, tangents_, texCoords_;
    std::vector<Member> members_;
};

} // namespace ogl
