// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "gpu/vertex_array.h"

#include "math/view_volume.h"

#include <algorithm>

namespace ogl {

namespace {

/// Vertices of a part that is drawn or left out as one: whole lines, whole triangles.
constexpr size_t kPartVertices = 384;

void drawArrays(unsigned mode, int first, int count) {
    if (count <= 0)
        return;
    glDrawArrays(mode, first, count);
    ++glWork().drawCalls;
}

} // namespace

void VertexRuns::append(int first, int count) {
    if (count <= 0)
        return;
    if (!empty() && firsts_.back() + counts_.back() == first) {
        counts_.back() += count;
        return;
    }
    firsts_.push_back(first);
    counts_.push_back(count);
}

void VertexRuns::draw(unsigned mode) {
    if (empty())
        return;
    if (firsts_.size() == 1)
        glDrawArrays(mode, firsts_[0], counts_[0]);
    else
        glMultiDrawArrays(mode, firsts_.data(), counts_.data(), static_cast<int>(firsts_.size()));
    ++glWork().drawCalls;
    firsts_.clear();
    counts_.clear();
}

void VertexArray::placeUploaded(unsigned mode, int first) {
    primitiveMode = mode;
    firstVertex = first;
    if (!positions.empty())
        vertexCount = static_cast<int>(positions.size());
    bounds_.reset();
    glBindBuffer(GL_ARRAY_BUFFER, 0);
}

void VertexArray::upload(unsigned mode, unsigned) {
    if (!positions.empty())
        positionBuffer = makeBuffer(std::as_bytes(std::span(positions)));
    placeUploaded(mode, 0);
}

void VertexArray::bind(unsigned) const {
    // Without a buffer the pointer would be an address of the program.
    if (positionBuffer == nullptr || !positionBuffer->exists())
        return;
    glBindBuffer(GL_ARRAY_BUFFER, positionBuffer->name());
    glVertexPointer(3, GL_FLOAT, 0, nullptr);
    glEnableClientState(GL_VERTEX_ARRAY);
}

void VertexArray::unbind() const {
    glBindBuffer(GL_ARRAY_BUFFER, 0);
    glDisableClientState(GL_VERTEX_ARRAY);
}

void VertexArray::draw(unsigned drawFlags) const {
    bind(drawFlags);
    drawArrays(primitiveMode, firstVertex, vertexCount);
}

void VertexArray::drawAs(unsigned drawFlags, unsigned mode) const {
    bind(drawFlags);
    drawArrays(mode, firstVertex, vertexCount);
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

void VertexArray::appendWithin(const ViewVolume* volume, VertexRuns& runs) const {
    if (volume == nullptr) {
        runs.append(firstVertex, vertexCount);
        return;
    }
    if (!isWithin(*volume))
        return;
    const std::vector<Box>& parts = bounds().parts;
    for (size_t i = 0; i < parts.size(); ++i)
        if (volume->meets(parts[i])) {
            const auto first = static_cast<int>(i * kPartVertices);
            runs.append(firstVertex + first,
                        std::min(vertexCount - first, static_cast<int>(kPartVertices)));
        }
}

void VertexArray::drawWithin(const ViewVolume* volume, unsigned drawFlags, unsigned mode) const {
    VertexRuns runs;
    appendWithin(volume, runs);
    if (runs.empty())
        return;
    bind(drawFlags);
    runs.draw(mode);
}

void ColorVertexArray::upload(unsigned mode, unsigned usage) {
    if (!colors.empty())
        colorBuffer = makeBuffer(std::as_bytes(std::span(colors)));
    colors.clear();
    VertexArray::upload(mode, usage);
}

void ColorVertexArray::bind(unsigned drawFlags) const {
    if ((drawFlags & kDrawColors) != 0 && colorBuffer != nullptr) {
        glBindBuffer(GL_ARRAY_BUFFER, colorBuffer->name());
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

void unbindAllArrays() {
    glBindBuffer(GL_ARRAY_BUFFER, 0);
    glDisableClientState(GL_VERTEX_ARRAY);
    glDisableClientState(GL_SECONDARY_COLOR_ARRAY);
    glDisableClientState(GL_NORMAL_ARRAY);
    glDisableClientState(GL_TEXTURE_COORD_ARRAY);
    glDisableClientState(GL_COLOR_ARRAY);
}

} // namespace ogl
