// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/batches/mesh_upload.h"

#include <algorithm>

namespace ogl {

void MeshUpload::add(MeshVertexArray& batch, MeshPlace place) {
    if (place.buffers != buffers_) {
        finish();
        start(place.buffers);
    }
    std::ranges::copy(batch.positions, positions_.begin() + place.first);
    std::ranges::copy(batch.normals, normals_.begin() + place.first);
    std::ranges::copy(batch.tangents, tangents_.begin() + place.first);
    std::ranges::copy(batch.texCoords, texCoords_.begin() + place.first);
    members_.push_back({&batch, place.first});
}

void MeshUpload::start(int buffers) {
    buffers_ = buffers;
    const auto size = static_cast<size_t>(layout_.bufferSize(buffers));
    for (Vec3Array* array : {&positions_, &normals_, &tangents_, &texCoords_})
        array->resize(size);
}

void MeshUpload::finish() {
    if (members_.empty())
        return;
    const auto upload = [](const Vec3Array& array) {
        return makeBuffer(std::as_bytes(std::span(array)));
    };
    const MeshBuffers buffers{upload(positions_), upload(normals_), upload(tangents_),
                              upload(texCoords_)};
    for (const Member& member : members_)
        member.batch->place(buffers, member.first, GL_TRIANGLES);
    members_.clear();
}

} // namespace ogl
