// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "fixed/batches/edge_builder.h"

#include "fixed/batches/edge_color.h"
#include "fixed/batches/loop_points.h"

#include <algorithm>
#include <cstring>

namespace ogl {

namespace {

void appendTriangles(const FaceTriangles& triangles, Vec4 color, ColorVertexArray& target) {
    const size_t at = target.positions.size();
    const auto count = static_cast<size_t>(triangles.triangleCount) * kVerticesPerTriangle;
    target.positions.resize(at + count);
    std::memcpy(target.positions.data() + at, triangles.positions, count * sizeof(Vec3));
    target.colors.insert(target.colors.end(), count, color);
}

} // namespace

struct EdgeBuilder::Outline {
    int firstPoint = 0;
    int pointCount = 0;
    bool closed = true;

    int segmentCount() const { return closed ? pointCount : std::max(pointCount - 1, 0); }
};

EdgeBuilder::EdgeBuilder(const SCENE& scene, EdgeRules rules)
    : lists_(scene), rules_(rules), scale_(loopPointScale(scene)) {}

/// The loops of a face, cut to those that exist.
FACELOOPS EdgeBuilder::loopsOf(int face) const {
    const FACELOOPS* stored = lists_.faceLoops.at(face);
    if (stored == nullptr)
        return {};
    const ItemRange range = clippedRange(stored->firstLoop, stored->loopCount, lists_.loops.size());
    return {range.first, range.count};
}

const LOOPSTYLE* EdgeBuilder::firstStyle(const FACELOOPS& loops) const {
    return loops.loopCount > 0 ? lists_.loopStyles.at(loops.firstLoop) : nullptr;
}

bool EdgeBuilder::isOutlined(const FACE& face, const FaceTriangles& triangles) const {
    if (triangles.triangleCount == 0)
        return false;
    if (rules_.edgesOnly)
        return true;
    const MATERIAL* material = lists_.materials.at(face.material);
    return material != nullptr && material->opacity != 0.0f && !isSkipped(*material);
}

bool EdgeBuilder::isSilhouette(const FACE& face, int object, float alpha) const {
    const bool smooth = (face.flags & kFaceVertexNormals) != 0;
    const OBJECT* record = lists_.objects.at(object);
    return rules_.silhouettes && !rules_.edgesOnly && (alpha < 1.0f || smooth) &&
           (record == nullptr || record->kind != kObjectKindNoSilhouette);
}

/// The loop as it is drawn; nothing when it is hidden, of an unknown kind, or when any of its
/// points does not exist.
EdgeBuilder::Outline EdgeBuilder::outline(int loop, bool isFirst) const {
    const LOOP& record = lists_.loops[loop];
    const LOOPSTYLE* style = lists_.loopStyles.at(loop);
    const int count = record.pointCount;
    if (clippedRange(record.firstPoint, count, lists_.loopPoints.size()).count != count)
        return {};
    if (rules_.edgesOnly)
        return {record.firstPoint, count, true};
    const bool isHidden = style != nullptr && (style->flags & kLoopHidden) != 0;
    const bool isOpen = !isFirst && style != nullptr && style->kind == kLoopOpen;
    const bool isClosed = isFirst || (style != nullptr && style->kind == kLoopClosed);
    if (isHidden || !(isOpen || isClosed))
        return {};
    return {record.firstPoint, count, isClosed};
}

template <class Visitor>
void EdgeBuilder::forEachOutline(const FACELOOPS& loops, const Visitor& visit) const {
    const int count = rules_.edgesOnly ? std::min<int>(loops.loopCount, 1) : loops.loopCount;
    for (int j = 0; j < count; ++j) {
        const Outline each = outline(loops.firstLoop + j, j == 0);
        if (each.segmentCount() > 0)
            visit(each);
    }
}

void EdgeBuilder::appendOutline(const Outline& outline, Vec4 color, ColorVertexArray& edges) const {
    appendSegments(lists_.loopPoints, {outline.firstPoint, outline.pointCount}, outline.closed,
                   scale_, edges.positions);
    const int segments = outline.segmentCount();
    edges.colors.insert(edges.colors.end(), static_cast<size_t>(segments) * 2, color);
}

void EdgeBuilder::addSizes(int object, Sizes& sizes) const {
    const ItemRange range = lists_.faces.cluster(object);
    for (int f = range.first; f < range.end(); ++f) {
        const FACE& face = lists_.faces.items()[f];
        const FaceTriangles triangles = faceTriangles(lists_, f, face.flags);
        if (!isOutlined(face, triangles))
            continue;
        const FACELOOPS loops = loopsOf(f);
        const Vec4 color = edgeColor(firstStyle(loops), rules_.edgesOnly);
        if (isSilhouette(face, object, color.w))
            sizes.silhouetteVertices +=
                static_cast<size_t>(triangles.triangleCount) * kVerticesPerTriangle;
        else
            forEachOutline(loops, [&](const Outline& each) {
                sizes.edgeVertices += static_cast<size_t>(each.segmentCount()) * 2;
            });
    }
}

void EdgeBuilder::reserve(int objectCount, ColorVertexArray& edges,
                          ColorVertexArray* silhouettes) const {
    Sizes sizes;
    for (int k = 0; k < objectCount; ++k)
        if (lists_.isDrawn(k))
            addSizes(k, sizes);
    edges.positions.reserve(sizes.edgeVertices);
    edges.colors.reserve(sizes.edgeVertices);
    if (silhouettes != nullptr) {
        silhouettes->positions.reserve(sizes.silhouetteVertices);
        silhouettes->colors.reserve(sizes.silhouetteVertices);
    }
}

int EdgeBuilder::append(int object, ColorVertexArray& edges, ColorVertexArray* silhouettes) const {
    const ItemRange range = lists_.faces.cluster(object);
    int count = 0;
    for (int f = range.first; f < range.end(); ++f) {
        const FACE& face = lists_.faces.items()[f];
        const FaceTriangles triangles = faceTriangles(lists_, f, face.flags);
        if (!isOutlined(face, triangles))
            continue;
        const FACELOOPS loops = loopsOf(f);
        const Vec4 color = edgeColor(firstStyle(loops), rules_.edgesOnly);
        if (silhouettes != nullptr && isSilhouette(face, object, color.w)) {
            appendTriangles(triangles, color, *silhouettes);
            count += triangles.triangleCount;
        } else {
            forEachOutline(loops, [&](const Outline& each) { appendOutline(each, color, edges); });
            ++count;
        }
    }
    return count;
}

} // namespace ogl
