// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "gpu/vertex_array.h"

#include "gpu/view_volume.h"

#include <algorithm>

namespace ogl {

namespace {

/// Vertices of a part that is drawn or left out as one: whole lines, whole triangles.
constexpr size_t kPartVertices = 384;

/// Fills `buffer` with the elements, if there are any, and stores their number in `count`.
template <class Array> void uploadArray(const Array& elements, GLBuffer& buffer, int& count) {
    if (elements.empty())
        return;
    buffer.create();
    glBindBuffer(GL_ARRAY_BUFFER, buffer.name());
    glBufferData(GL_ARRAY_BUFFER,
                 static_cast<GLsizeiptr>(elements.size() * sizeof(typename Array::value_type)),
                 elements.data(), GL_STATIC_DRAW);
    count = static_cast<int>(elements.size());
    ++glWork().uploads;
}

void drawArrays(unsigned mode, int count) {
    if (count <= 0)
        return;
    glDrawArrays(mode, 0, count);
    ++glWork().drawCalls;
}

/// Runs of vertices for one draw call.
struct Runs {
    std::vector<int> firsts;
    std::vector<int> counts;

    void append(int first, int count) {
        if (!firsts.empty() && firsts.back() + counts.back() == first) {
            counts.back() += count;
        } else {
            firsts.push_back(first);
            counts.push_back(count);
        }
    }
};

} // namespace

void VertexArray::upload(unsigned mode, unsigned) {
    primitiveMode = mode;
    bounds_.reset();
    uploadArray(positions, positionBuffer, vertexCount);
    glBindBuffer(GL_ARRAY_BUFFER, 0);
}

void VertexArray::bind(unsigned) const {
    // Without a buffer the pointer would be an address of the program.
    if (!positionBuffer.exists())
        return;
    glBindBuffer(GL_ARRAY_BUFFER, positionBuffer.name());
    glVertexPointer(3, GL_FLOAT, 0, nullptr);
    glEnableClientState(GL_VERTEX_ARRAY);
}

void VertexArray::unbind() const {
    glBindBuffer(GL_ARRAY_BUFFER, 0);
    glDisableClientState(GL_VERTEX_ARRAY);
}

void VertexArray::draw(unsigned drawFlags) const {
    bind(drawFlags);
    drawArrays(primitiveMode, vertexCount);
}

void VertexArray::drawAs(unsigned drawFlags, unsigned mode) const {
    bind(drawFlags);
    drawArrays(mode, vertexCount);
}

const VertexArray::Bounds& VertexArray::bounds() const {
    if (bounds_ != nullptr)
        return *bounds_;
    auto made = std::make_unique<Bounds>();
    const size_t count = std::min(positions.size(), static_cast<size_t>(vertexCount));
    for (size_t first = 0; first < count; first += kPartVertices) {
        Box box;
        for (size_t i = first; i < std::min(first + kPartVertices, count); ++i)
            box.grow(positions[i]);
        made->all.grow(box.min);
        made->all.grow(box.max);
        made->parts.push_back(box);
    }
    bounds_ = std::move(made);
    return *bounds_;
}

bool VertexArray::isWithin(const ViewVolume& volume) const {
    return vertexCount > 0 && volume.meets(bounds().all);
}

void VertexArray::drawWithin(const ViewVolume* volume, unsigned drawFlags, unsigned mode) const {
    if (volume == nullptr) {
        bind(drawFlags);
        drawArrays(mode, vertexCount);
        return;
    }
    if (!isWithin(*volume))
        return;
    Runs runs;
    const std::vector<Box>& parts = bounds().parts;
    for (size_t i = 0; i < parts.size(); ++i)
        if (volume->meets(parts[i])) {
            const size_t first = i * kPartVertices;
            const size_t count = static_cast<size_t>(vertexCount) - first;
            runs.append(static_cast<int>(first), static_cast<int>(std::min(count, kPartVertices)));
        }
    if (runs.firsts.empty())
        return;
    bind(drawFlags);
    glMultiDrawArrays(mode, runs.firsts.data(), runs.counts.data(),
                      static_cast<int>(runs.firsts.size()));
    ++glWork().drawCalls;
}

void ColorVertexArray::upload(unsigned mode, unsigned usage) {
    uploadArray(colors, colorBuffer, colorCount);
    colors.clear();
    VertexArray::upload(mode, usage);
}

void ColorVertexArray::bind(unsigned drawFlags) const {
    if ((drawFlags & kDrawColors) != 0 && colorCount > 0) {
        glBindBuffer(GL_ARRAY_BUFFER, colorBuffer.name());
        glColorPointer(4, GL_FLOAT, 0, nullptr);
        glEnableClientState(GL_COLOR_ARRAY);
    } else {
        glDisableClientState(GL_COLOR_ARRAY);
    }
    VertexArray::bind(drawFlags);
}

void ColorVertexArray::unbind() const {
    VertexArray::unbind();
    glDisableClientState(GL_COLOR_ARRAY);
}

void MeshVertexArray::upload(unsigned mode, unsigned usage) {
    uploadArray(normals, normalBuffer, normalCount);
    uploadArray(tangents, tangentBuffer, tangentCount);
    uploadArray(texCoords, texCoordBuffer, texCoordCount);
    normals.clear();
    tangents.clear();
    texCoords.clear();
    VertexArray::upload(mode, usage);
}

void MeshVertexArray::bind(unsigned drawFlags) const {
    VertexArray::bind(drawFlags);
    if (normalCount > 0) {
        glBindBuffer(GL_ARRAY_BUFFER, normalBuffer.name());
        glNormalPointer(GL_FLOAT, 0, nullptr);
        glEnableClientState(GL_NORMAL_ARRAY);
    } else {
        glDisableClientState(GL_NORMAL_ARRAY);
    }
    if (texCoordCount > 0) {
        glBindBuffer(GL_ARRAY_BUFFER, texCoordBuffer.name());
        glTexCoordPointer(3, GL_FLOAT, 0, nullptr);
        glEnableClientState(GL_TEXTURE_COORD_ARRAY);
    } else {
        glDisableClientState(GL_TEXTURE_COORD_ARRAY);
    }
    if (tangentCount > 0) {
        glBindBuffer(GL_ARRAY_BUFFER, tangentBuffer.name());
        glSecondaryColorPointer(3, GL_FLOAT, 0, nullptr);
        glEnableClientState(GL_SECONDARY_COLOR_ARRAY);
    } else {
        glDisableClientState(GL_SECONDARY_COLOR_ARRAY);
    }
}

void MeshVertexArray::unbind() const {
    VertexArray::unbind();
    glDisableClientState(GL_NORMAL_ARRAY);
    glDisableClientState(GL_TEXTURE_COORD_ARRAY);
    glDisableClientState(GL_SECONDARY_COLOR_ARRAY);
}

void MeshVertexArray::bindTexCoords(int unit) const {
    if (texCoordCount <= 0)
        return;
    glClientActiveTexture(static_cast<unsigned>(GL_TEXTURE0 + unit));
    glBindBuffer(GL_ARRAY_BUFFER, texCoordBuffer.name());
    glTexCoordPointer(3, GL_FLOAT, 0, nullptr);
    glEnableClientState(GL_TEXTURE_COORD_ARRAY);
    glClientActiveTexture(GL_TEXTURE0);
}

void MeshVertexArray::unbindTexCoords(int unit) {
    glClientActiveTexture(static_cast<unsigned>(GL_TEXTURE0 + unit));
    glDisableClientState(GL_TEXTURE_COORD_ARRAY);
    glClientActiveTexture(GL_TEXTURE0);
}

void unbindAllArrays() {
    glBindBuffer(GL_ARRAY_BUFFER, 0);
    glDisableClientState(GL_VERTEX_ARRAY);
    glDisableClientState(GL_SECONDARY_COLOR_ARRAY);
    glDisableClientState(GL_NORMAL_ARRAY);
    glDisableClientState(GL_TEXTURE_COORD_ARRAY);
    glDisableClientState(GL_COLOR_ARRAY);
}

} // namespace ogl
