// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/surfaces/mesh_runs.h"

namespace ogl {

void MeshRuns::add(const MeshVertexArray& mesh) {
    if (bound_ != nullptr && bound_->positionBuffer != mesh.positionBuffer)
        flush();
    bound_ = &mesh;
    mesh.appendWithin(volume_, runs_);
}

void MeshRuns::flush() {
    if (bound_ == nullptr || runs_.empty())
        return;
    bound_->bind(kDrawPositions);
    if (texCoordUnit >= 0)
        bound_->bindTexCoords(texCoordUnit);
    runs_.draw(GL_TRIANGLES);
    bound_ = nullptr;
}

} // namespace ogl
